#include "export/ObjWriter.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <map>
#include <set>
#include <utility>

#include "core/MessageSink.h"
#include "export/AtomicFile.h"
#include "export/CornerNormals.h"
#include "export/CornerWeld.h"
#include "export/ExportableMesh.h"
#include "export/FileAxes.h"
#include "export/PhaseTimes.h"
#include "export/RecordWeld.h"
#include "export/ShellOrientation.h"
#include "export/TextureReference.h"

namespace mv {

namespace {

constexpr uint32_t kNoGroup = 0xffffffffu;

bool isControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7f; }

// A name as one word of a line: blanks, controls and the comment sign become '_'.
std::string objName(const std::string& name) {
  std::string result = name.empty() ? "unnamed" : name;
  for (char& c : result) {
    if (c == ' ' || c == '#' || isControl(c)) c = '_';
  }
  return result;
}

// A file reference as the rest of a line: no control may end the line early.
std::string lineText(std::string text) {
  for (char& c : text) {
    if (isControl(c)) c = '_';
  }
  return text;
}

std::string baseName(const std::string& path) {
  const size_t slash = path.find_last_of('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

// One line of text built in place: numbers in their shortest round-trip form. The longest line,
// a prefix and three doubles or four corners of three indices, fits the buffer.
class Line {
 public:
  explicit Line(const char* prefix) : length_(std::strlen(prefix)) {
    std::memcpy(text_, prefix, length_);
  }
  template <typename Number>
  Line& operator<<(Number value) {
    append(' ', value);
    return *this;
  }
  // " v/t/n", the indices of one face corner.
  Line& corner(uint32_t point, uint32_t texture, uint32_t normal) {
    append(' ', point);
    append('/', texture);
    append('/', normal);
    return *this;
  }
  void writeTo(AtomicFile& out) {
    text_[length_++] = '\n';
    out.write(text_, length_);
  }

 private:
  template <typename Number>
  void append(char separator, Number value) {
    text_[length_++] = separator;
    length_ = size_t(std::to_chars(text_ + length_, text_ + sizeof text_ - 1, value).ptr - text_);
  }

  char text_[160];
  size_t length_;
};

const TexturePolygon& texturePolygonOf(const MeshData& mesh, uint32_t polygon) {
  static const TexturePolygon none;
  return polygon < mesh.texturePolygons.size() ? mesh.texturePolygons[polygon] : none;
}

// The corners' texture coordinates and normals, each line written when first used; indices
// from 1. A texture coordinate is shared by every corner with the same value (leaves repeat one
// layout thousands of times); a normal by the corners of one point that agree on it.
class CornerLines {
 public:
  explicit CornerLines(size_t points) : textures_(4, 1024), normals_(points, 3) {}

  uint32_t texture(AtomicFile& out, const Vector3& uv) {
    const double value[2] = {uv.x, 1.0 - uv.y};
    uint32_t words[4];
    std::memcpy(words, value, sizeof words);
    const size_t before = textures_.size();
    const uint32_t index = textures_.indexOf(words);
    if (textures_.size() > before) (Line("vt") << value[0] << value[1]).writeTo(out);
    return index + 1;
  }

  uint32_t normal(AtomicFile& out, uint32_t point, const Vector3& libraryNormal) {
    const Vector3 n = FileAxes::fromLibrary(libraryNormal);
    const float value[3] = {float(n.x), float(n.y), float(n.z)};
    uint32_t words[3];
    std::memcpy(words, value, sizeof words);
    bool added;
    const uint32_t index = normals_.indexOf(point, words, added);
    if (added) (Line("vn") << value[0] << value[1] << value[2]).writeTo(out);
    return index + 1;
  }

 private:
  RecordWeld textures_;
  CornerWeld normals_;
};

// Each polygon's group suffix: the names of the selections it belongs to, in the order of the
// mesh's selection map, as an index into a short list of distinct suffixes.
struct SelectionSuffixes {
  std::vector<std::string> texts{""};
  std::vector<uint32_t> ofPolygon;
};

SelectionSuffixes selectionSuffixes(const MeshData& mesh) {
  SelectionSuffixes suffixes;
  suffixes.ofPolygon.assign(mesh.polygons.size(), 0);
  for (const auto& [name, polygons] : mesh.selections) {
    // The suffix that each earlier suffix becomes with this selection added.
    std::map<uint32_t, uint32_t> extended;
    for (uint32_t index : polygons) {
      if (index >= suffixes.ofPolygon.size()) continue;
      uint32_t& suffix = suffixes.ofPolygon[index];
      const auto [found, added] = extended.emplace(suffix, uint32_t(suffixes.texts.size()));
      if (added) suffixes.texts.push_back(suffixes.texts[suffix] + " " + objName(name));
      suffix = found->second;
    }
  }
  return suffixes;
}

// Writes the faces of one material after another, with the group, material and smoothing lines
// they need and the texture and normal lines of their corners.
class FaceWriter {
 public:
  FaceWriter(AtomicFile& out, const MeshData& mesh, const ShellOrientation& shells,
             const CornerNormals& normals)
      : out_(out),
        mesh_(mesh),
        shells_(shells),
        normals_(normals),
        lines_(mesh.points.size()),
        suffixes_(selectionSuffixes(mesh)) {}

  void writeMaterial(int materialIndex, const std::string& name) {
    uint32_t group = kNoGroup;
    bool named = false;
    for (uint32_t i = 0; i < mesh_.polygons.size(); ++i) {
      if (mesh_.polygons[i].material != materialIndex) continue;
      if (suffixes_.ofPolygon[i] != group) {
        group = suffixes_.ofPolygon[i];
        out_.write("g " + name + suffixes_.texts[group] + "\n");
      }
      if (!named) out_.write("usemtl " + name + "\n");
      named = true;
      writeFace(i);
    }
  }

 private:
  void writeFace(uint32_t i) {
    const MeshPolygon& polygon = mesh_.polygons[i];
    const TexturePolygon& uv = texturePolygonOf(mesh_, i);
    const Vector3* uvs[4] = {&uv.a, &uv.b, &uv.c, &uv.d};
    const uint32_t points[4] = {polygon.a, polygon.b, polygon.c, polygon.d};
    const int corners = polygon.isTriangle() ? 3 : 4;
    const bool reversed = shells_.reversed(i);
    uint32_t normal[4], texture[4];
    bool flat = true;
    const Vector3 first = normals_.at(i, 0) * (reversed ? -1.0 : 1.0);
    for (int k = 0; k < corners; ++k) {
      const Vector3 corner = k == 0 ? first : normals_.at(i, k) * (reversed ? -1.0 : 1.0);
      flat = flat && corner == first;
      normal[k] = lines_.normal(out_, points[k], corner);
      texture[k] = lines_.texture(out_, *uvs[k]);
    }
    const char* smoothing = flat ? "off" : "1";
    if (smoothing_ != smoothing) out_.write("s " + (smoothing_ = smoothing) + "\n");
    Line face("f");
    for (int n = 0; n < corners; ++n) {
      const int k = reversed ? (corners - n) % corners : n;  // a, then backwards
      face.corner(points[k] + 1, texture[k], normal[k]);
    }
    face.writeTo(out_);
  }

  AtomicFile& out_;
  const MeshData& mesh_;
  const ShellOrientation& shells_;
  const CornerNormals& normals_;
  CornerLines lines_;
  const SelectionSuffixes suffixes_;
  std::string smoothing_;
};

}  // namespace

ObjWriter::ObjWriter(std::vector<ExportMaterial> materials, double creaseAngle)
    : materials_(std::move(materials)), creaseAngle_(creaseAngle) {}

std::string ObjWriter::materialLibraryPath(const std::string& objPath) {
  const size_t dot = objPath.find_last_of('.');
  const size_t slash = objPath.find_last_of('/');
  const bool hasSuffix = dot != std::string::npos && (slash == std::string::npos || dot > slash);
  return (hasSuffix ? objPath.substr(0, dot) : objPath) + ".mtl";
}

bool ObjWriter::write(const MeshData& mesh, const std::string& path) const {
  if (!ExportableMesh::check(mesh, "OBJ")) return false;
  const std::string libraryPath = materialLibraryPath(path);
  AtomicFile library(libraryPath, options_.replaceAnyFile), obj(path, options_.replaceAnyFile);
  if (!library.open() || !obj.open()) return false;
  if (options_.phaseTimes) options_.phaseTimes->begin("orient");
  const ShellOrientation shells(mesh);
  writeMaterialLibrary(library, mesh, path);
  writeObj(obj, mesh, baseName(libraryPath), shells);
  const bool written = AtomicFile::commitPair(library, obj);
  if (options_.phaseTimes) options_.phaseTimes->end();
  return written;
}

void ObjWriter::writeMaterialLibrary(AtomicFile& out, const MeshData& mesh,
                                     const std::string& objPath) const {
  out.write("# Morvo\n");
  std::set<std::string> checked;
  for (int index : MaterialTable::usedIndices(mesh)) {
    const ExportMaterial material = materials_.lookup(index);
    out.write("\nnewmtl " + objName(material.name) + "\n");
    // Colours come from single-precision files: their shortest float text is what was meant.
    (Line("Kd") << float(material.red) << float(material.green) << float(material.blue))
        .writeTo(out);
    out.write("Ka 0 0 0\nKs 0 0 0\nd 1\nillum 1\n");
    if (material.textureFile.empty()) continue;
    const std::string reference = TextureReference::relative(material.textureFile);
    if (reference.empty()) continue;
    if (checked.insert(reference).second &&
        !std::filesystem::exists(TextureReference::besideOutput(reference, objPath))) {
      messageSink.warning("texture \"" + reference + "\" is not found beside " + objPath);
    }
    out.write("map_Kd " + lineText(reference) + "\n");
  }
}

void ObjWriter::writeObj(AtomicFile& out, const MeshData& mesh, const std::string& libraryName,
                         const ShellOrientation& shells) const {
  PhaseTimes* times = options_.phaseTimes;
  if (times) times->begin("write");
  out.write("# Morvo\nmtllib " + libraryName + "\n");
  for (const Vector3& point : mesh.points) {
    const Vector3 p = FileAxes::fromLibrary(point);
    (Line("v") << p.x << p.y << p.z).writeTo(out);
  }
  if (times) times->begin("normals");
  const CornerNormals normals(mesh, creaseAngle_);
  if (times) times->begin("write");
  FaceWriter faces(out, mesh, shells, normals);
  for (int index : MaterialTable::usedIndices(mesh)) {
    faces.writeMaterial(index, objName(materials_.lookup(index).name));
  }
}

}  // namespace mv
