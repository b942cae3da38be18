// BaseNode: the read-only view of one object of the surrounding hierarchy, as parameters of node
// kind hand it out: its name, its matrices, its spline or mesh, and a ray query.
#pragma once

#include <string>

#include "core/Matrix4.h"
#include "core/Vector3.h"

namespace mv {

class Spline;
class IMesh;

class BaseNode {
 public:
  virtual ~BaseNode() = default;
  virtual std::string& name(std::string& out) = 0;
  virtual Matrix4& globalMatrix(Matrix4& out) = 0;  // node to world
  virtual Matrix4& localMatrix(Matrix4& out) = 0;   // node to parent
  virtual Spline* spline() { return nullptr; }
  virtual IMesh* mesh() { return nullptr; }
  // Distance to the nearest hit along the ray, or -1.0 for no hit or no geometry.
  virtual double rayDistance(const Vector3& origin, const Vector3& direction,
                             bool limitToLength) = 0;

  bool empty = true;
};

}  // namespace mv
