#include "export/ObjWriter.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <numeric>
#include <ostream>
#include <unordered_map>
#include <utility>

#include "export/AtomicFile.h"
#include "export/ExportableMesh.h"
#include "export/FileAxes.h"

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

// "prefix x y z" or "prefix x y"; geometry keeps all digits of a double, colours need fewer.
void writeNumbers(std::ostream& out, const char* prefix, const double* values, int count,
                  int digits = 17) {
  char line[128];
  int length = std::snprintf(line, sizeof line, "%s", prefix);
  for (int k = 0; k < count; ++k) {
    length += std::snprintf(line + length, sizeof line - static_cast<size_t>(length), " %.*g",
                            digits, values[k]);
  }
  line[length++] = '\n';
  out.write(line, length);
}

// Texture coordinates, shared by every corner with the same value; indices from 1.
class TextureIndex {
 public:
  uint32_t indexOf(std::ostream& out, const Vector3& uv) {
    const std::pair<double, double> key(uv.x, 1.0 - uv.y);
    const auto found = indices_.find(key);
    if (found != indices_.end()) return found->second;
    const double values[2] = {key.first, key.second};
    writeNumbers(out, "vt", values, 2);
    return indices_[key] = static_cast<uint32_t>(indices_.size()) + 1;
  }

 private:
  struct Hash {
    size_t operator()(const std::pair<double, double>& key) const {
      return std::hash<double>()(key.first) * 31u + std::hash<double>()(key.second);
    }
  };
  std::unordered_map<std::pair<double, double>, uint32_t, Hash> indices_;
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

ObjWriter::ObjWriter(std::vector<ExportMaterial> materials) : materials_(std::move(materials)) {}

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
  AtomicFile library(libraryPath), obj(path);
  if (!library.open() || !obj.open()) return false;
  std::set<int> used = MaterialTable::usedIndices(mesh);
  if (lines.hasSegments()) used.insert(lineMaterial);
  writeMaterialLibrary(library.stream(), used);
  writeObj(obj.stream(), mesh, baseName(libraryPath));
  writeLines(obj.stream(), lines, lineMaterial, mesh.points.size() + 1);
  return library.commit() && obj.commit();
}

void ObjWriter::writeMaterialLibrary(std::ostream& out, const std::set<int>& used) const {
  out << "# Morvo\n";
  for (int index : used) {
    const ExportMaterial material = materials_.lookup(index);
    out << "\nnewmtl " << objName(material.name) << "\n";
    const double colour[3] = {material.red, material.green, material.blue};
    writeNumbers(out, "Kd", colour, 3, 6);
    out << "Ka 0 0 0\nKs 0 0 0\nd 1\nillum 1\n";
    if (!material.textureFile.empty()) out << "map_Kd " << material.textureFile << "\n";
  }
}

void ObjWriter::writeObj(std::ostream& out, const MeshData& mesh,
                         const std::string& libraryName) const {
  out << "# Morvo\nmtllib " << libraryName << "\n";
  for (const Vector3& point : mesh.points) {
    const Vector3 p = FileAxes::fromLibrary(point);
    const double values[3] = {p.x, p.y, p.z};
    writeNumbers(out, "v", values, 3);
  }
  TextureIndex textures;
  const std::vector<std::string> suffixes = selectionSuffixes(mesh);
  std::string group, material;
  for (uint32_t i : byMaterial(mesh)) {
    const MeshPolygon& polygon = mesh.polygons[i];
    const std::string name = objName(materials_.lookup(polygon.material).name);
    if (name + suffixes[i] != group) out << "g " << (group = name + suffixes[i]) << "\n";
    if (name != material) out << "usemtl " << (material = name) << "\n";
    TexturePolygon uv;
    mesh.getTexturePolygon(i, uv);
    const Vector3 uvs[4] = {uv.a, uv.b, uv.c, uv.d};
    const uint32_t v[4] = {polygon.a, polygon.b, polygon.c, polygon.d};
    std::string face = "f";
    for (int k = 0; k < (polygon.isTriangle() ? 3 : 4); ++k) {
      face += ' ' + std::to_string(v[k] + 1) + '/' + std::to_string(textures.indexOf(out, uvs[k]));
    }
    out << face;
    out << '\n';
  }
}

void ObjWriter::writeLines(std::ostream& out, const LineStrips& lines, int lineMaterial,
                           size_t firstIndex) const {
  if (!lines.hasSegments()) return;
  for (const Vector3& point : lines.points) {
    const Vector3 p = FileAxes::fromLibrary(point);
    const double values[3] = {p.x, p.y, p.z};
    writeNumbers(out, "v", values, 3);
  }
  out << "g lines\nusemtl " << objName(materials_.lookup(lineMaterial).name) << "\n";
  size_t start = firstIndex;
  for (uint32_t count : lines.counts) {
    if (count >= 2) {
      std::string line = "l";
      for (size_t k = 0; k < count; ++k) line += ' ' + std::to_string(start + k);
      out << line << '\n';
    }
    start += count;
  }
}

}  // namespace mv
