// ProfileNode: a stand-in for the node behind a profile link (id 1006): a spline with a local
// matrix, as classic generators read their profile.
#pragma once

#include <string>

#include "core/BaseNode.h"
#include "geometry/SplineData.h"
#include "support/SplineBuilders.h"

class ProfileNode : public mv::BaseNode {
 public:
  std::string& name(std::string& out) override { return out = "profile"; }
  mv::Matrix4& globalMatrix(mv::Matrix4& out) override { return out = mv::Matrix4(); }
  mv::Matrix4& localMatrix(mv::Matrix4& out) override { return out = local; }
  mv::Spline* spline() override { return &profile; }
  double rayDistance(const mv::Vector3&, const mv::Vector3&, bool) override { return -1.0; }

  // A closed circle of count points and the given radius.
  static ProfileNode circle(double radius, int count) {
    ProfileNode node;
    node.profile.makeCircle(radius, count);
    return node;
  }
  // An open line across x from -halfWidth to halfWidth, in three points.
  static ProfileNode line(double halfWidth) {
    ProfileNode node;
    appendSegment(node.profile, {{-halfWidth, 0, 0}, {0, 0, 0}, {halfWidth, 0, 0}});
    return node;
  }

  mv::SplineData profile;
  mv::Matrix4 local;
};
