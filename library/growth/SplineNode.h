// SplineNode: a BaseNode over a spline, for running a node without a host: a parameter set
// hands it out as the profile (1006) or path (1007) of the node. It has no geometry to hit.
#pragma once

#include <string>

#include "core/BaseNode.h"

namespace mv {

class SplineNode : public BaseNode {
 public:
  // spline is not owned and must outlive the node; null stands for a node without a spline.
  explicit SplineNode(Spline* spline, const std::string& name = "Spline",
                      const Matrix4& local = Matrix4());

  std::string& name(std::string& out) override;
  Matrix4& globalMatrix(Matrix4& out) override;  // its local matrix: it stands at the top
  Matrix4& localMatrix(Matrix4& out) override;
  Spline* spline() override { return spline_; }
  double rayDistance(const Vector3& origin, const Vector3& direction,
                     bool limitToLength) override;  // always -1.0: nothing to hit

 private:
  Spline* spline_;
  std::string name_;
  Matrix4 local_;
};

}  // namespace mv
