#include "export/ExportableMesh.h"

#include <cmath>
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

}  // namespace mv
