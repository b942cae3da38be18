#include "export/GlbWriter.h"

#include <tiny_gltf.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <map>
#include <unordered_map>
#include <utility>

#include "core/MessageSink.h"
#include "export/AtomicFile.h"
#include "export/CornerNormals.h"
#include "export/ExportableMesh.h"
#include "export/FileAxes.h"

namespace mv {

namespace {

constexpr size_t kLargestShortIndexCount = 65535;  // 65 535 itself is the restart value

// The vertices and triangles of one primitive. Corners equal in point, normal and texture
// coordinate (as stored, in single precision) share a vertex.
class PrimitiveBuilder {
 public:
  void addCorner(uint32_t point, const Vector3& position, const Vector3& normal,
                 const Vector3& uv) {
    const std::array<float, 8> v = {float(position.x), float(position.y), float(position.z),
                                    float(normal.x),   float(normal.y),   float(normal.z),
                                    float(uv.x),       float(uv.y)};
    Key key{point, {}};
    std::memcpy(key.bits.data(), v.data() + 3, sizeof key.bits);
    const auto [found, added] = vertices_.try_emplace(key, uint32_t(vertices_.size()));
    if (added) {
      positions.insert(positions.end(), v.begin(), v.begin() + 3);
      normals.insert(normals.end(), v.begin() + 3, v.begin() + 6);
      texcoords.insert(texcoords.end(), v.begin() + 6, v.end());
    }
    indices.push_back(found->second);
  }
  size_t vertexCount() const { return vertices_.size(); }

  std::vector<float> positions, normals, texcoords;
  std::vector<uint32_t> indices;

 private:
  struct Key {
    uint32_t point;
    std::array<uint32_t, 5> bits;  // normal and texture coordinate
    bool operator==(const Key& o) const { return point == o.point && bits == o.bits; }
  };
  struct KeyHash {
    size_t operator()(const Key& key) const {
      size_t hash = key.point;
      for (uint32_t b : key.bits) hash = hash * 1000003u ^ b;
      return hash;
    }
  };
  std::unordered_map<Key, uint32_t, KeyHash> vertices_;
};

// Triangles of every polygon, grouped by material; quads split along a-c.
std::map<int, PrimitiveBuilder> buildPrimitives(const MeshData& mesh, double creaseAngle) {
  const std::vector<Vector3> normals = CornerNormals::compute(mesh, creaseAngle);
  std::map<int, PrimitiveBuilder> primitives;
  TexturePolygon uv;
  for (uint32_t i = 0; i < mesh.getPolygonCount(); ++i) {
    const MeshPolygon& polygon = mesh.polygons[i];
    mesh.getTexturePolygon(i, uv);
    const uint32_t points[4] = {polygon.a, polygon.b, polygon.c, polygon.d};
    const Vector3 uvs[4] = {uv.a, uv.b, uv.c, uv.d};
    PrimitiveBuilder& builder = primitives[polygon.material];
    const auto corner = [&](int k) {
      builder.addCorner(points[k], FileAxes::fromLibrary(mesh.points[points[k]]),
                        FileAxes::fromLibrary(normals[4 * i + k]), uvs[k]);
    };
    for (int k : {0, 1, 2}) corner(k);
    if (polygon.isTriangle()) continue;
    for (int k : {0, 2, 3}) corner(k);
  }
  return primitives;
}

// Assembles the model: one buffer, one view and accessor per attribute.
class ModelBuilder {
 public:
  ModelBuilder() {
    model.asset.version = "2.0";
    model.asset.generator = "Morvo";
  }

  int addAccessor(const void* data, size_t bytes, int target, int componentType, size_t count,
                  int type) {
    tinygltf::BufferView view;
    view.buffer = 0;
    view.byteOffset = buffer_.size();
    view.byteLength = bytes;
    view.target = target;
    buffer_.insert(buffer_.end(), static_cast<const unsigned char*>(data),
                   static_cast<const unsigned char*>(data) + bytes);
    buffer_.resize((buffer_.size() + 3) / 4 * 4, 0);  // every view starts 4-aligned
    model.bufferViews.push_back(view);
    tinygltf::Accessor accessor;
    accessor.bufferView = int(model.bufferViews.size()) - 1;
    accessor.componentType = componentType;
    accessor.count = count;
    accessor.type = type;
    model.accessors.push_back(accessor);
    return int(model.accessors.size()) - 1;
  }

  int addFloats(const std::vector<float>& values, int type, int components) {
    return addAccessor(values.data(), values.size() * sizeof(float), TINYGLTF_TARGET_ARRAY_BUFFER,
                       TINYGLTF_COMPONENT_TYPE_FLOAT, values.size() / components, type);
  }

  int addPositions(const std::vector<float>& positions) {
    const int index = addFloats(positions, TINYGLTF_TYPE_VEC3, 3);
    tinygltf::Accessor& accessor = model.accessors[size_t(index)];
    accessor.minValues.assign(3, std::numeric_limits<double>::max());
    accessor.maxValues.assign(3, std::numeric_limits<double>::lowest());
    for (size_t k = 0; k < positions.size(); ++k) {
      accessor.minValues[k % 3] = std::min(accessor.minValues[k % 3], double(positions[k]));
      accessor.maxValues[k % 3] = std::max(accessor.maxValues[k % 3], double(positions[k]));
    }
    return index;
  }

  int addIndices(const std::vector<uint32_t>& indices, size_t vertexCount) {
    const int target = TINYGLTF_TARGET_ELEMENT_ARRAY_BUFFER;
    if (vertexCount > kLargestShortIndexCount) {
      return addAccessor(indices.data(), indices.size() * 4, target,
                         TINYGLTF_COMPONENT_TYPE_UNSIGNED_INT, indices.size(),
                         TINYGLTF_TYPE_SCALAR);
    }
    const std::vector<uint16_t> shorts(indices.begin(), indices.end());
    return addAccessor(shorts.data(), shorts.size() * 2, target,
                       TINYGLTF_COMPONENT_TYPE_UNSIGNED_SHORT, shorts.size(), TINYGLTF_TYPE_SCALAR);
  }

  int addMaterial(const ExportMaterial& source) {
    tinygltf::Material material;
    material.name = source.name;
    material.doubleSided = true;
    material.pbrMetallicRoughness.baseColorFactor = {source.red, source.green, source.blue, 1.0};
    material.pbrMetallicRoughness.metallicFactor = 0.0;
    material.pbrMetallicRoughness.roughnessFactor = 1.0;
    if (!source.textureFile.empty()) {
      material.pbrMetallicRoughness.baseColorTexture.index = textureFor(source.textureFile);
    }
    model.materials.push_back(material);
    return int(model.materials.size()) - 1;
  }

  // Adds the mesh and its scene; a mesh without polygons leaves the model empty but for the
  // asset, which is a valid file.
  void finish(std::vector<tinygltf::Primitive> primitives) {
    if (primitives.empty()) return;
    tinygltf::Mesh mesh;
    mesh.primitives = std::move(primitives);
    model.meshes.push_back(mesh);
    tinygltf::Node node;
    node.mesh = 0;
    model.nodes.push_back(node);
    tinygltf::Scene scene;
    scene.nodes.push_back(0);
    model.scenes.push_back(scene);
    model.defaultScene = 0;
    tinygltf::Buffer buffer;
    buffer.data = std::move(buffer_);
    model.buffers.push_back(buffer);
  }

  tinygltf::Model model;

 private:
  // One image, texture and shared sampler per distinct file.
  int textureFor(const std::string& file) {
    const auto found = textures_.find(file);
    if (found != textures_.end()) return found->second;
    if (model.samplers.empty()) {
      tinygltf::Sampler sampler;
      sampler.magFilter = TINYGLTF_TEXTURE_FILTER_LINEAR;
      sampler.minFilter = TINYGLTF_TEXTURE_FILTER_LINEAR_MIPMAP_LINEAR;
      model.samplers.push_back(sampler);
    }
    tinygltf::Image image;
    image.uri = file;
    model.images.push_back(image);
    tinygltf::Texture texture;
    texture.source = int(model.images.size()) - 1;
    texture.sampler = 0;
    model.textures.push_back(texture);
    return textures_[file] = int(model.textures.size()) - 1;
  }

  std::vector<unsigned char> buffer_;
  std::map<std::string, int> textures_;
};

// One LINES primitive of all strips: each segment is a pair of indices into the strip points.
tinygltf::Primitive linePrimitive(ModelBuilder& builder, const LineStrips& lines,
                                  const std::vector<uint32_t>& segments,
                                  const ExportMaterial& material) {
  std::vector<float> positions;
  positions.reserve(3 * lines.points.size());
  for (const Vector3& point : lines.points) {
    const Vector3 p = FileAxes::fromLibrary(point);
    positions.insert(positions.end(), {float(p.x), float(p.y), float(p.z)});
  }
  tinygltf::Primitive primitive;
  primitive.mode = TINYGLTF_MODE_LINE;
  primitive.attributes["POSITION"] = builder.addPositions(positions);
  primitive.indices = builder.addIndices(segments, lines.points.size());
  primitive.material = builder.addMaterial(material);
  return primitive;
}

}  // namespace

GlbWriter::GlbWriter(std::vector<ExportMaterial> materials, double creaseAngle)
    : materials_(std::move(materials)), creaseAngle_(creaseAngle) {}

bool GlbWriter::write(const MeshData& mesh, const std::string& path) const {
  return write(mesh, LineStrips(), -1, path);
}

bool GlbWriter::write(const MeshData& mesh, const LineStrips& lines, int lineMaterial,
                      const std::string& path) const {
  if (!ExportableMesh::check(mesh, "glTF") || !ExportableMesh::check(lines, "glTF")) return false;
  ModelBuilder builder;
  std::vector<tinygltf::Primitive> primitives;
  for (const auto& [material, data] : buildPrimitives(mesh, creaseAngle_)) {
    tinygltf::Primitive primitive;
    primitive.mode = TINYGLTF_MODE_TRIANGLES;
    primitive.attributes["POSITION"] = builder.addPositions(data.positions);
    primitive.attributes["NORMAL"] = builder.addFloats(data.normals, TINYGLTF_TYPE_VEC3, 3);
    primitive.attributes["TEXCOORD_0"] = builder.addFloats(data.texcoords, TINYGLTF_TYPE_VEC2, 2);
    primitive.indices = builder.addIndices(data.indices, data.vertexCount());
    primitive.material = builder.addMaterial(materials_.lookup(material));
    primitives.push_back(primitive);
  }
  const std::vector<uint32_t> segments = lines.segmentIndices();
  if (!segments.empty()) {
    primitives.push_back(linePrimitive(builder, lines, segments, materials_.lookup(lineMaterial)));
  }
  builder.finish(std::move(primitives));

  AtomicFile file(path);
  if (!file.open()) return false;
  tinygltf::TinyGLTF gltf;
  gltf.SetImageWriter(nullptr, nullptr);  // images are references, never written or embedded
  if (!gltf.WriteGltfSceneToStream(&builder.model, file.stream(), false, true)) {
    messageSink.error("Writing " + path + " failed");
    return false;
  }
  return file.commit();
}

}  // namespace mv
