#include <gtest/gtest.h>

#include "core/BaseNode.h"
#include "curves/ParameterSetData.h"
#include "geometry/MeshData.h"

namespace {

class MeshNode : public mv::BaseNode {
 public:
  explicit MeshNode(mv::IMesh* meshValue) : mesh_(meshValue) {}
  std::string& name(std::string& out) override { return out = "mesh"; }
  mv::Matrix4& globalMatrix(mv::Matrix4& out) override { return out = mv::Matrix4(); }
  mv::Matrix4& localMatrix(mv::Matrix4& out) override { return out = mv::Matrix4(); }
  mv::IMesh* mesh() override { return mesh_; }
  double rayDistance(const mv::Vector3&, const mv::Vector3&, bool) override { return -1.0; }

 private:
  mv::IMesh* mesh_;
};

}  // namespace

TEST(ParameterSet, getSplineOfNodeWithoutSplineIsNullAndNotOk) {
  mv::MeshData mesh;
  MeshNode node(&mesh);
  mv::ParameterSetData params;
  params.setNode(mv::IdTargetNode, &node);
  bool ok = true;
  EXPECT_EQ(params.getSpline(mv::IdTargetNode, &ok), nullptr);
  EXPECT_FALSE(ok);
  EXPECT_EQ(params.getMesh(mv::IdTargetNode, &ok), &mesh);
  EXPECT_TRUE(ok);
}

TEST(ParameterSet, getMeshOfAbsentOrEmptyNodeIsNotOk) {
  MeshNode empty(nullptr);
  mv::ParameterSetData params;
  params.setNode(1, &empty);
  bool ok = true;
  EXPECT_EQ(params.getMesh(1, &ok), nullptr);
  EXPECT_FALSE(ok);
  ok = true;
  EXPECT_EQ(params.getMesh(2, &ok), nullptr);
  EXPECT_FALSE(ok);
  EXPECT_EQ(params.getSpline(2), nullptr);  // ok may be null
}
