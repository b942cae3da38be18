#include "export/GlbWriter.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <map>
#include <utility>

#include "core/MessageSink.h"
#include "export/AtomicFile.h"
#include "export/CornerNormals.h"
#include "export/CornerWeld.h"
#include "export/ExportableMesh.h"
#include "export/FileAxes.h"
#include "export/PhaseTimes.h"
#include "export/ShellOrientation.h"
#include "export/TextureReference.h"
#include "export/Utf8Text.h"

namespace mv {

namespace {

constexpr size_t kLargestShortIndexCount = 65535;  // 65 535 itself is the restart value
constexpr uint32_t kMagic = 0x46546C67, kJsonChunk = 0x4E4F534A, kBinaryChunk = 0x004E4942;
constexpr int kArrayBuffer = 34962, kElementArrayBuffer = 34963;
constexpr int kFloat = 5126, kUnsignedShort = 5123, kUnsignedInt = 5125;
// Stand-ins, at least as long in JSON as any real value, for the numbers that are known only
// once the geometry is written: the JSON chunk is reserved at that length before the geometry.
constexpr uint64_t kWidestCount = std::numeric_limits<uint64_t>::max();
constexpr double kWidestBound = -1.2345678901234567e-300;

struct View {
  uint64_t offset = 0, length = 0;
  int target = 0;  // 0: none, as for images
};

struct Accessor {
  int view = 0, componentType = kFloat;
  uint64_t count = 0;
  const char* type = "VEC3";
  bool bounded = false;
  std::array<double, 3> min{}, max{};
};

struct Image {
  std::string uri;  // a reference, or empty when the image is stored in view
  int view = -1;
  std::string mimeType;
  std::string bytes;  // the stored image until it is written
};

struct Material {
  std::string name;
  std::array<double, 3> colour{};
  int texture = -1;
  bool doubleSided = false;
};

struct Primitive {
  int material = -1;  // the mesh's material index
  uint64_t triangles = 0;
  uint64_t corners = 0;  // at least as many as the primitive's vertices
  bool open = false;     // some polygon lies in an open sheet
};

// Everything the JSON chunk says; primitive k has accessors 4k to 4k + 3 (position, normal,
// texture coordinate, indices) and views after the images' views in the same order.
struct Document {
  std::vector<View> views;
  std::vector<Accessor> accessors;
  std::vector<Image> images;
  std::vector<Material> materials;
  uint64_t bufferLength = 0;

  nlohmann::json accessorJson(const Accessor& accessor, bool widest) const {
    nlohmann::json json = {{"bufferView", accessor.view},
                           {"componentType", accessor.componentType},
                           {"count", widest ? kWidestCount : accessor.count},
                           {"type", accessor.type}};
    if (accessor.bounded) {
      const auto bound = [&](const std::array<double, 3>& value) {
        return widest ? std::vector<double>(3, kWidestBound)
                      : std::vector<double>(value.begin(), value.end());
      };
      json["min"] = bound(accessor.min);
      json["max"] = bound(accessor.max);
    }
    return json;
  }

  nlohmann::json viewJson(const View& view, bool widest) const {
    nlohmann::json json = {{"buffer", 0},
                           {"byteOffset", widest ? kWidestCount : view.offset},
                           {"byteLength", widest ? kWidestCount : view.length}};
    if (view.target != 0) json["target"] = view.target;
    return json;
  }

  nlohmann::json meshJson() const {
    nlohmann::json primitives = nlohmann::json::array();
    for (size_t k = 0; k < materials.size(); ++k) {
      const int first = int(4 * k);
      primitives.push_back(
          {{"attributes", {{"POSITION", first}, {"NORMAL", first + 1}, {"TEXCOORD_0", first + 2}}},
           {"indices", first + 3},
           {"material", int(k)},
           {"mode", 4}});
    }
    return {{"primitives", primitives}};
  }

  nlohmann::json materialJson(const Material& material) const {
    nlohmann::json pbr = {
        {"baseColorFactor", {material.colour[0], material.colour[1], material.colour[2], 1.0}},
        {"metallicFactor", 0.0},
        {"roughnessFactor", 1.0}};
    if (material.texture >= 0) pbr["baseColorTexture"] = {{"index", material.texture}};
    return {{"name", material.name},
            {"doubleSided", material.doubleSided},
            {"pbrMetallicRoughness", pbr}};
  }

  nlohmann::json imageJson(const Image& image) const {
    if (image.view < 0) return {{"uri", image.uri}};
    return {{"bufferView", image.view}, {"mimeType", image.mimeType}};
  }

  // The JSON chunk's text; widest puts the stand-ins in place of the written geometry's numbers.
  std::string json(bool widest) const {
    nlohmann::json json = {{"asset", {{"version", "2.0"}, {"generator", "Morvo"}}}};
    if (!materials.empty()) {
      json["scene"] = 0;
      json["scenes"] = {{{"nodes", {0}}}};
      json["nodes"] = {{{"mesh", 0}}};
      json["meshes"] = {meshJson()};
      for (const Material& material : materials)
        json["materials"].push_back(materialJson(material));
    }
    for (const Accessor& accessor : accessors) {
      json["accessors"].push_back(accessorJson(accessor, widest));
    }
    for (const View& view : views) json["bufferViews"].push_back(viewJson(view, widest));
    if (!views.empty()) {
      json["buffers"] = {{{"byteLength", widest ? kWidestCount : bufferLength}}};
    }
    if (!images.empty()) {
      json["samplers"] = {{{"magFilter", 9729}, {"minFilter", 9987}}};
      for (size_t k = 0; k < images.size(); ++k) {
        json["images"].push_back(imageJson(images[k]));
        json["textures"].push_back({{"source", int(k)}, {"sampler", 0}});
      }
    }
    return json.dump();
  }
};

const TexturePolygon& texturePolygonOf(const MeshData& mesh, uint32_t polygon) {
  static const TexturePolygon none;
  return polygon < mesh.texturePolygons.size() ? mesh.texturePolygons[polygon] : none;
}

template <typename T>
void writeValues(AtomicFile& file, const std::vector<T>& values) {
  file.write(reinterpret_cast<const char*>(values.data()), values.size() * sizeof(T));
}

void padToFour(AtomicFile& file) {
  static const char zeros[4] = {0, 0, 0, 0};
  file.write(zeros, (4 - file.size() % 4) % 4);
}

void writeWord(AtomicFile& file, uint64_t offset, uint32_t word) {
  file.writeAt(offset, reinterpret_cast<const char*>(&word), 4);
}

// The bytes of a picture to store; empty unless path is a regular file of a picture's size (a
// scene may name a device or a huge file).
std::string readImage(const std::string& path) {
  constexpr uintmax_t kLargestImage = uintmax_t(1) << 28;
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error) ||
      std::filesystem::file_size(path, error) > kLargestImage || error) {
    return "";
  }
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

std::string imageMimeType(const std::string& bytes) {
  if (bytes.rfind("\x89PNG\r\n\x1a\n", 0) == 0) return "image/png";
  if (bytes.rfind("\xff\xd8\xff", 0) == 0) return "image/jpeg";
  return "";
}

// Writes one primitive: the corners of every polygon of one material, welded into vertices in
// the order they first appear. The indices go to the file as the polygons are welded (their
// width is chosen from the corner count, which bounds the vertex count), the vertices after them
// once all are known.
class PrimitiveWriter {
 public:
  PrimitiveWriter(const MeshData& mesh, const CornerNormals& normals,
                  const ShellOrientation& shells, AtomicFile& file, Document& document)
      : mesh_(mesh),
        normals_(normals),
        shells_(shells),
        file_(file),
        document_(document),
        weld_(mesh.points.size(), 5) {}

  // Welds the primitive's polygons and writes its indices, accessor first + 3.
  void weld(const Primitive& primitive, size_t first) {
    weld_.clear();
    indexBytes_ = primitive.corners > kLargestShortIndexCount ? 4 : 2;
    Accessor& indices = document_.accessors[first + 3];
    indices.componentType = indexBytes_ == 4 ? kUnsignedInt : kUnsignedShort;
    document_.views[size_t(indices.view)].offset = document_.bufferLength;
    indexCount_ = 0;
    for (uint32_t i = 0; i < mesh_.polygons.size(); ++i) {
      if (mesh_.polygons[i].material == primitive.material) addPolygon(i);
    }
    flushIndices();
    finishView(file_, document_, first + 3, indexCount_, indexCount_ * indexBytes_);
  }

  // Appends positions, normals and texture coordinates to the file, each a view.
  void write(size_t first) {
    AtomicFile& file = file_;
    Document& document = document_;
    const size_t count = weld_.size();
    Accessor& position = document.accessors[first];
    position.bounded = true;
    position.min.fill(std::numeric_limits<double>::max());
    position.max.fill(std::numeric_limits<double>::lowest());
    writeView(file, document, first, count, 12, [&](size_t v, float* out) {
      const Vector3 p = FileAxes::fromLibrary(mesh_.points[weld_.point(v)]);
      out[0] = float(p.x), out[1] = float(p.y), out[2] = float(p.z);
      for (int k = 0; k < 3; ++k) {
        position.min[k] = std::min(position.min[k], double(out[k]));
        position.max[k] = std::max(position.max[k], double(out[k]));
      }
    });
    writeView(file, document, first + 1, count, 12,
              [&](size_t v, float* out) { std::memcpy(out, weld_.attributes(v), 12); });
    writeView(file, document, first + 2, count, 8,
              [&](size_t v, float* out) { std::memcpy(out, weld_.attributes(v) + 3, 8); });
  }

 private:
  void addPolygon(uint32_t i) {
    const MeshPolygon& polygon = mesh_.polygons[i];
    const TexturePolygon& uv = texturePolygonOf(mesh_, i);
    const bool reversed = shells_.reversed(i);
    const uint32_t points[4] = {polygon.a, polygon.b, polygon.c, polygon.d};
    const Vector3* uvs[4] = {&uv.a, &uv.b, &uv.c, &uv.d};
    uint32_t vertex[4];
    const int corners = polygon.isTriangle() ? 3 : 4;
    for (int k = 0; k < corners; ++k) {
      const Vector3 normal = FileAxes::fromLibrary(normals_.at(i, k) * (reversed ? -1.0 : 1.0));
      const float values[5] = {float(normal.x), float(normal.y), float(normal.z), float(uvs[k]->x),
                               float(uvs[k]->y)};
      uint32_t attributes[5];
      std::memcpy(attributes, values, sizeof values);
      bool added;
      vertex[k] = weld_.indexOf(points[k], attributes, added);
    }
    // Quads split along a-c; reversing keeps the diagonal.
    static const int forward[2][3] = {{0, 1, 2}, {0, 2, 3}};
    static const int backward[2][3] = {{0, 3, 2}, {0, 2, 1}};
    const int(*order)[3] = reversed ? backward : forward;
    if (corners == 3) {
      for (int k : order[reversed ? 1 : 0]) addIndex(vertex[k]);
      return;
    }
    for (int t = 0; t < 2; ++t) {
      for (int k : order[t]) addIndex(vertex[k]);
    }
  }

  void addIndex(uint32_t vertex) {
    const uint16_t shortIndex = uint16_t(vertex);
    const char* bytes = indexBytes_ == 4 ? reinterpret_cast<const char*>(&vertex)
                                         : reinterpret_cast<const char*>(&shortIndex);
    indexChunk_.insert(indexChunk_.end(), bytes, bytes + indexBytes_);
    ++indexCount_;
    if (indexChunk_.size() >= kIndexChunkBytes) flushIndices();
  }

  void flushIndices() {
    file_.write(indexChunk_.data(), indexChunk_.size());
    indexChunk_.clear();
  }

  template <typename Fill>
  void writeView(AtomicFile& file, Document& document, size_t accessor, size_t count,
                 size_t vertexBytes, Fill&& fill) {
    const size_t floats = vertexBytes / 4;
    std::vector<float> chunk;
    chunk.reserve(4096 * floats);
    View& view = document.views[size_t(document.accessors[accessor].view)];
    view.offset = document.bufferLength;
    for (size_t v = 0; v < count; ++v) {
      chunk.resize(chunk.size() + floats);
      fill(v, chunk.data() + chunk.size() - floats);
      if (chunk.size() == chunk.capacity()) {
        writeValues(file, chunk);
        chunk.clear();
      }
    }
    writeValues(file, chunk);
    finishView(file, document, accessor, count, count * vertexBytes);
  }

  // Records the view's length and count and keeps the next view 4-aligned.
  static void finishView(AtomicFile& file, Document& document, size_t accessor, size_t count,
                         uint64_t bytes) {
    View& view = document.views[size_t(document.accessors[accessor].view)];
    view.length = bytes;
    document.accessors[accessor].count = count;
    padToFour(file);
    document.bufferLength = view.offset + (bytes + 3) / 4 * 4;
  }

  static constexpr size_t kIndexChunkBytes = size_t(1) << 16;

  const MeshData& mesh_;
  const CornerNormals& normals_;
  const ShellOrientation& shells_;
  AtomicFile& file_;
  Document& document_;
  CornerWeld weld_;
  size_t indexBytes_ = 2;
  uint64_t indexCount_ = 0;
  std::vector<char> indexChunk_;
};

// The primitives in ascending material order, with their triangle counts and sidedness.
std::vector<Primitive> primitivesOf(const MeshData& mesh, const ShellOrientation& shells) {
  std::map<int, Primitive> byMaterial;
  Primitive* current = nullptr;
  for (uint32_t i = 0; i < mesh.polygons.size(); ++i) {
    const MeshPolygon& polygon = mesh.polygons[i];
    if (!current || current->material != polygon.material) {
      current = &byMaterial[polygon.material];
      current->material = polygon.material;
    }
    current->triangles += polygon.isTriangle() ? 1 : 2;
    current->corners += polygon.isTriangle() ? 3 : 4;
    current->open = current->open || shells.inOpenSheet(i);
  }
  std::vector<Primitive> result;
  for (const auto& entry : byMaterial) result.push_back(entry.second);
  return result;
}

}  // namespace

GlbWriter::GlbWriter(std::vector<ExportMaterial> materials, double creaseAngle)
    : materials_(std::move(materials)), creaseAngle_(creaseAngle) {}

double GlbWriter::linearFromSrgb(double value) {
  return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

namespace {

// Builds the writing of one file: materials and images first, then the geometry one primitive
// at a time, then the JSON chunk into the space reserved for it.
class GlbFile {
 public:
  GlbFile(const std::string& path, const WriteOptions& options)
      : path_(path), options_(options), file_(path, options.replaceAnyFile) {}

  void phase(const char* name) {
    if (options_.phaseTimes) options_.phaseTimes->begin(name);
  }

  void addMaterial(const ExportMaterial& source, bool doubleSided) {
    Material material;
    material.name = Utf8Text::fromBytes(source.name);
    material.colour = {GlbWriter::linearFromSrgb(source.red),
                       GlbWriter::linearFromSrgb(source.green),
                       GlbWriter::linearFromSrgb(source.blue)};
    material.doubleSided = doubleSided;
    if (!source.textureFile.empty()) material.texture = textureFor(source.textureFile);
    document_.materials.push_back(material);
  }

  void planGeometry(size_t primitives) {
    for (size_t k = 0; k < 4 * primitives; ++k) {
      Accessor accessor;
      accessor.view = int(document_.views.size());
      accessor.type = k % 4 == 0 || k % 4 == 1 ? "VEC3" : k % 4 == 2 ? "VEC2" : "SCALAR";
      document_.accessors.push_back(accessor);
      document_.views.push_back({0, 0, k % 4 == 3 ? kElementArrayBuffer : kArrayBuffer});
    }
  }

  // Writes the headers with room for the JSON, and the stored images.
  bool begin() {
    try {
      reserved_ = document_.json(true).size();
    } catch (const std::exception& e) {
      messageSink.error("Writing " + path_ + " failed: " + e.what());
      return false;
    }
    reserved_ = (reserved_ + 3) / 4 * 4;
    if (!file_.open()) return false;
    file_.write(std::string(20, '\0') + std::string(reserved_, ' '));
    if (!document_.views.empty()) file_.write(std::string(8, '\0'));
    for (Image& image : document_.images) {
      if (image.view < 0) continue;
      document_.views[size_t(image.view)] = {document_.bufferLength, image.bytes.size(), 0};
      file_.write(image.bytes);
      padToFour(file_);
      document_.bufferLength += (image.bytes.size() + 3) / 4 * 4;
      image.bytes = std::string();
    }
    return true;
  }

  AtomicFile& file() { return file_; }
  Document& document() { return document_; }
  size_t firstAccessor(size_t primitive) const { return 4 * primitive; }

  bool finish() {
    std::string json;
    try {
      json = document_.json(false);
    } catch (const std::exception& e) {
      messageSink.error("Writing " + path_ + " failed: " + e.what());
      return false;
    }
    json.resize(reserved_, ' ');
    writeWord(file_, 0, kMagic);
    writeWord(file_, 4, 2);
    writeWord(file_, 8, uint32_t(file_.size()));
    writeWord(file_, 12, uint32_t(reserved_));
    writeWord(file_, 16, kJsonChunk);
    file_.writeAt(20, json.data(), json.size());
    if (!document_.views.empty()) {
      writeWord(file_, 20 + reserved_, uint32_t(document_.bufferLength));
      writeWord(file_, 24 + reserved_, kBinaryChunk);
    }
    if (file_.size() > std::numeric_limits<uint32_t>::max()) {
      messageSink.error("Writing " + path_ + " failed: a .glb file holds at most 4 GiB");
      return false;
    }
    return file_.commit();
  }

 private:
  // One image and texture per distinct reference; stored when asked to and readable.
  int textureFor(const std::string& textureFile) {
    const std::string reference = TextureReference::relative(textureFile);
    if (reference.empty()) return -1;
    const auto found = textures_.find(reference);
    if (found != textures_.end()) return found->second;
    Image image;
    image.uri = TextureReference::uri(reference);
    const std::string beside = TextureReference::besideOutput(reference, path_);
    std::error_code error;
    if (!std::filesystem::exists(beside, error)) {
      messageSink.warning("texture \"" + reference + "\" is not found beside " + path_);
    }
    if (options_.embedTextures) embed(image, {beside, reference}, textureFile);
    document_.images.push_back(std::move(image));
    return textures_[reference] = int(document_.images.size()) - 1;
  }

  // Stores the picture found beside the output, or else at the same relative reference from the
  // current folder, in the file. Only references inside those folders are read: a scene cannot
  // have any other file of the machine copied into its output.
  void embed(Image& image, const std::array<std::string, 2>& places,
             const std::string& textureFile) {
    std::string bytes = readImage(places[0]);
    if (bytes.empty()) bytes = readImage(places[1]);
    if (bytes.empty()) {
      messageSink.warning("texture \"" + textureFile + "\" cannot be read; referenced, not stored");
    } else if (imageMimeType(bytes).empty()) {
      messageSink.warning("texture \"" + textureFile +
                          "\" is neither PNG nor JPEG; referenced, not stored");
    } else {
      image.mimeType = imageMimeType(bytes);
      image.bytes = std::move(bytes);
      image.view = int(document_.views.size());
      document_.views.push_back({});
    }
  }

  std::string path_;
  WriteOptions options_;
  AtomicFile file_;
  Document document_;
  size_t reserved_ = 0;
  std::map<std::string, int> textures_;
};

}  // namespace

bool GlbWriter::write(const MeshData& mesh, const std::string& path) const {
  if (!ExportableMesh::check(mesh, "glTF")) return false;
  GlbFile glb(path, options_);
  glb.phase("orient");
  const ShellOrientation shells(mesh);
  const std::vector<Primitive> primitives = primitivesOf(mesh, shells);
  for (const Primitive& primitive : primitives) {
    glb.addMaterial(materials_.lookup(primitive.material), primitive.open);
  }
  glb.planGeometry(primitives.size());
  glb.phase("normals");
  const CornerNormals normals(mesh, creaseAngle_);
  if (!glb.begin()) return false;
  PrimitiveWriter writer(mesh, normals, shells, glb.file(), glb.document());
  for (size_t k = 0; k < primitives.size(); ++k) {
    glb.phase("weld");
    writer.weld(primitives[k], glb.firstAccessor(k));
    glb.phase("write");
    writer.write(glb.firstAccessor(k));
  }
  const bool written = glb.finish();
  if (options_.phaseTimes) options_.phaseTimes->end();
  return written;
}

}  // namespace mv
