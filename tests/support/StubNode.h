// StubNode: a BaseNode for tests that stands in for a linked object: a world matrix, a local
// matrix and optionally a spline (not owned). It hits nothing.
#pragma once

#include <string>

#include "core/BaseNode.h"
#include "geometry/Spline.h"

class StubNode : public mv::BaseNode {
 public:
  explicit StubNode(const mv::Matrix4& world = mv::Matrix4(), mv::Spline* nodeSpline = nullptr)
      : world_(world), spline_(nodeSpline) {}

  std::string& name(std::string& out) override { return out = "stub"; }
  mv::Matrix4& globalMatrix(mv::Matrix4& out) override { return out = world_; }
  mv::Matrix4& localMatrix(mv::Matrix4& out) override { return out = world_; }
  mv::Spline* spline() override { return spline_; }
  double rayDistance(const mv::Vector3&, const mv::Vector3&, bool) override { return -1.0; }

 private:
  mv::Matrix4 world_;
  mv::Spline* spline_;
};
