// FileAxes: the axes of the mesh files. The library is right-handed with z up; OBJ and glTF
// readers expect y up, so a point (x, y, z) is written as (x, z, -y), a rotation that keeps the
// sense of every polygon.
#pragma once

#include "core/Vector3.h"

namespace mv {

struct FileAxes {
  static Vector3 fromLibrary(const Vector3& v) { return {v.x, v.z, -v.y}; }
  static Vector3 toLibrary(const Vector3& v) { return {v.x, -v.z, v.y}; }
};

}  // namespace mv
