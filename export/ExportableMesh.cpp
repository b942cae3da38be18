#include "export/ExportableMesh.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include "core/MessageSink.h"

namespace mv {

namespace {

bool representable(double value) {
  return std::isfinite(value) && std::abs(value) <= std::numeric_limits<float>::max();
}

bool representable(const Vector3& v) {
  return representable(v.x) && representable(v.y) && representable(v.z);
}

}  // namespace

bool ExportableMesh::check(const MeshData& mesh, const std::string& writer) {
  const size_t count = mesh.points.size();
  for (const MeshPolygon& p : mesh.polygons) {
    if (p.a >= count || p.b >= count || p.c >= count || p.d >= count) {
      messageSink.error(writer + ": a polygon names a point that does not exist");
      return false;
    }
  }
  for (const Vector3& p : mesh.points) {
    if (!representable(p)) {
      messageSink.error(writer + ": a point is not a finite single-precision number");
      return false;
    }
  }
  for (const TexturePolygon& t : mesh.texturePolygons) {
    if (!representable(t.a) || !representable(t.b) || !representable(t.c) || !representable(t.d)) {
      messageSink.error(writer + ": a texture coordinate is not a finite single-precision number");
      return false;
    }
  }
  return true;
}

bool ExportableMesh::check(const LineStrips& lines, const std::string& writer) {
  uint64_t total = 0;
  for (uint32_t count : lines.counts) total += count;
  if (total != lines.points.size()) {
    messageSink.error(writer + ": the line strips do not add up to their points");
    return false;
  }
  for (const Vector3& p : lines.points) {
    if (!representable(p)) {
      messageSink.error(writer + ": a line point is not a finite single-precision number");
      return false;
    }
  }
  return true;
}

}  // namespace mv
