#include "export/ObjWriter.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <numeric>
#include <set>
#include <utility>

#include "core/MessageSink.h"
#include "export/AtomicFile.h"
#include "export/CornerNormals.h"
#include "export/ExportableMesh.h"
#include "export/FileAxes.h"
#include "export/PhaseTimes.h"
#include "export/RecordWeld.h"
#include "export/ShellOrientation.h"
#include "export/TextureReference.h"

namespace mv {

namespace {

std::string objName(const std::string& name) {
  std::string result = name.empty() ? "unnamed" : name;
  for (char& c : result) {
    if (c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '#') c = '_';
  }
  return result;
}

std::string baseName(const std::string& path) {
  const size_t slash = path.find_last_of('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

// One line of text built in place: numbers in their shortest round-trip form.
class Line {
 public:
  explicit Line(const char* prefix) : text_(prefix) {}
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
    text_ += '\n';
    out.write(text_);
  }

 private:
  template <typename Number>
  void append(char separator, Number value) {
    char digits[32];
    digits[0] = separator;
    text_.append(digits, std::to_chars(digits + 1, digits + sizeof digits, value).ptr);
  }

  std::string text_;
};

const TexturePolygon& texturePolygonOf(const MeshData& mesh, uint32_t polygon) {
  static const TexturePolygon none;
  return polygon < mesh.texturePolygons.size() ? mesh.texturePolygons[polygon] : none;
}

// Texture coordinates and normals, each distinct value written once when first used; indices
// from 1.
class SharedLines {
 public:
  explicit SharedLines(size_t expected) : textures_(4, expected), normals_(3, expected) {}

  uint32_t texture(AtomicFile& out, const Vector3& uv) {
    const double value[2] = {uv.x, 1.0 - uv.y};
    uint32_t words[4];
    std::memcpy(words, value, sizeof words);
    const size_t before = textures_.size();
    const uint32_t index = textures_.indexOf(words);
    if (textures_.size() > before) (Line("vt") << value[0] << value[1]).writeTo(out);
    return index + 1;
  }

  uint32_t normal(AtomicFile& out, const Vector3& libraryNormal) {
    const Vector3 n = FileAxes::fromLibrary(libraryNormal);
    const float value[3] = {float(n.x), float(n.y), float(n.z)};
    uint32_t words[3];
    std::memcpy(words, value, sizeof words);
    const size_t before = normals_.size();
    const uint32_t index = normals_.indexOf(words);
    if (normals_.size() > before) (Line("vn") << value[0] << value[1] << value[2]).writeTo(out);
    return index + 1;
  }

 private:
  RecordWeld textures_, normals_;
};

// The selection names of every polygon, in the order of the mesh's selection map.
std::vector<std::string> selectionSuffixes(const MeshData& mesh) {
  std::vector<std::string> suffixes(mesh.polygons.size());
  for (const auto& [name, polygons] : mesh.selections) {
    for (uint32_t index : polygons) {
      if (index < suffixes.size()) suffixes[index] += " " + objName(name);
    }
  }
  return suffixes;
}

// Polygon indices ordered by material, the mesh's order kept within a material.
std::vector<uint32_t> byMaterial(const MeshData& mesh) {
  std::vector<uint32_t> order(mesh.polygons.size());
  std::iota(order.begin(), order.end(), 0u);
  std::stable_sort(order.begin(), order.end(), [&mesh](uint32_t l, uint32_t r) {
    return mesh.polygons[l].material < mesh.polygons[r].material;
  });
  return order;
}

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
  return write(mesh, LineStrips(), -1, path);
}

bool ObjWriter::write(const MeshData& mesh, const LineStrips& lines, int lineMaterial,
                      const std::string& path) const {
  if (!ExportableMesh::check(mesh, "OBJ") || !ExportableMesh::check(lines, "OBJ")) return false;
  const std::string libraryPath = materialLibraryPath(path);
  AtomicFile library(libraryPath, options_.replaceAnyFile), obj(path, options_.replaceAnyFile);
  if (!library.open() || !obj.open()) return false;
  if (options_.phaseTimes) options_.phaseTimes->begin("orient");
  const ShellOrientation shells(mesh);
  std::set<int> used = MaterialTable::usedIndices(mesh);
  if (lines.hasSegments()) used.insert(lineMaterial);
  writeMaterialLibrary(library, used, path);
  writeObj(obj, mesh, baseName(libraryPath), shells);
  writeLines(obj, lines, lineMaterial, mesh.points.size() + 1);
  const bool written = AtomicFile::commitPair(library, obj);
  if (options_.phaseTimes) options_.phaseTimes->end();
  return written;
}

void ObjWriter::writeMaterialLibrary(AtomicFile& out, const std::set<int>& used,
                                     const std::string& objPath) const {
  out.write("# Morvo\n");
  std::set<std::string> checked;
  for (int index : used) {
    const ExportMaterial material = materials_.lookup(index);
    out.write("\nnewmtl " + objName(material.name) + "\n");
    (Line("Kd") << material.red << material.green << material.blue).writeTo(out);
    out.write("Ka 0 0 0\nKs 0 0 0\nd 1\nillum 1\n");
    if (material.textureFile.empty()) continue;
    const std::string reference = TextureReference::relative(material.textureFile);
    if (reference.empty()) continue;
    if (checked.insert(reference).second &&
        !std::filesystem::exists(TextureReference::besideOutput(reference, objPath))) {
      messageSink.warning("texture \"" + reference + "\" is not found beside " + objPath);
    }
    out.write("map_Kd " + reference + "\n");
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
  SharedLines shared(mesh.points.size());
  const std::vector<std::string> suffixes = selectionSuffixes(mesh);
  std::string group, material, smoothing;
  for (uint32_t i : byMaterial(mesh)) {
    const MeshPolygon& polygon = mesh.polygons[i];
    const std::string name = objName(materials_.lookup(polygon.material).name);
    if (name + suffixes[i] != group) out.write("g " + (group = name + suffixes[i]) + "\n");
    if (name != material) out.write("usemtl " + (material = name) + "\n");
    const TexturePolygon& uv = texturePolygonOf(mesh, i);
    const Vector3* uvs[4] = {&uv.a, &uv.b, &uv.c, &uv.d};
    const uint32_t points[4] = {polygon.a, polygon.b, polygon.c, polygon.d};
    const int corners = polygon.isTriangle() ? 3 : 4;
    const double sense = shells.reversed(i) ? -1.0 : 1.0;
    uint32_t normalIndex[4], textureIndex[4];
    for (int k = 0; k < corners; ++k) {
      normalIndex[k] = shared.normal(out, normals.at(i, k) * sense);
      textureIndex[k] = shared.texture(out, *uvs[k]);
    }
    const bool flat = std::equal(normalIndex + 1, normalIndex + corners, normalIndex);
    if ((flat ? "off" : "1") != smoothing)
      out.write("s " + (smoothing = flat ? "off" : "1") + "\n");
    Line face("f");
    for (int n = 0; n < corners; ++n) {
      const int k = shells.reversed(i) ? (corners - n) % corners : n;  // a, then backwards
      face.corner(points[k] + 1, textureIndex[k], normalIndex[k]);
    }
    face.writeTo(out);
  }
}

void ObjWriter::writeLines(AtomicFile& out, const LineStrips& lines, int lineMaterial,
                           size_t firstIndex) const {
  if (!lines.hasSegments()) return;
  for (const Vector3& point : lines.points) {
    const Vector3 p = FileAxes::fromLibrary(point);
    (Line("v") << p.x << p.y << p.z).writeTo(out);
  }
  out.write("g lines\nusemtl " + objName(materials_.lookup(lineMaterial).name) + "\n");
  size_t start = firstIndex;
  for (uint32_t count : lines.counts) {
    if (count >= 2) {
      Line strip("l");
      for (size_t k = 0; k < count; ++k) strip << start + k;
      strip.writeTo(out);
    }
    start += count;
  }
}

}  // namespace mv
