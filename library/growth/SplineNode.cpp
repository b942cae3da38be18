#include "growth/SplineNode.h"

namespace mv {

SplineNode::SplineNode(Spline* spline, const std::string& name, const Matrix4& local)
    : spline_(spline), name_(name), local_(local) {
  empty = spline == nullptr;
}

std::string& SplineNode::name(std::string& out) { return out = name_; }

Matrix4& SplineNode::globalMatrix(Matrix4& out) { return out = local_; }

Matrix4& SplineNode::localMatrix(Matrix4& out) { return out = local_; }

double SplineNode::rayDistance(const Vector3&, const Vector3&, bool) { return -1.0; }

}  // namespace mv
