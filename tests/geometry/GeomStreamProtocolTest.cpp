#include <gtest/gtest.h>

#include "support/CapturingMessageHandler.h"
#include "support/CountingGeomStream.h"
#include "support/GeometryExpectations.h"

using mv::GeomState;

namespace {

// Writes the header of a 2 by 2 patch up to the point where its point list may open.
void writePatchHeader(mv::OGeomStream& s) {
  s << mv::CmdPatch << 2 << 2 << '[' << 0.0 << 0.0 << 1.0 << 1.0 << ']' << 0.0 << 1.0;
  s << 2 << 2 << '[' << 0.0 << 0.0 << 1.0 << 1.0 << ']' << 0.0 << 1.0;
}

}  // namespace

TEST(GeomStream, patchWalksEveryStateInOrder) {
  CapturingMessageHandler capture;
  CountingGeomStream s;
  const std::vector<std::pair<std::function<void()>, int>> steps = {
      {[&] { s << mv::CmdPatch; }, mv::StateUCount},
      {[&] { s << 3; }, mv::StateUOrder},
      {[&] { s << 2; }, mv::StateUKnots},
      {[&] { s << '[' << 0.0 << 0.0 << 1.0 << 2.0 << 2.0; }, mv::StateUKnots},
      {[&] { s << ']'; }, mv::StateUMin},
      {[&] { s << 0.0; }, mv::StateUMax},
      {[&] { s << 2.0; }, mv::StateVCount},
      {[&] { s << 2; }, mv::StateVOrder},
      {[&] { s << 2; }, mv::StateVKnots},
      {[&] { s << '[' << 0.0 << 0.0 << 1.0 << 1.0 << ']'; }, mv::StateVMin},
      {[&] { s << 0.0; }, mv::StateVMax},
      {[&] { s << 1.0; }, mv::StateParamList},
      {[&] { s.param(mv::ParamPoints); }, mv::StateParamValues},
      {[&] { s << '['; }, mv::StateParamValues},
  };
  for (size_t i = 0; i < steps.size(); ++i) {
    steps[i].first();
    EXPECT_EQ(s.state(), steps[i].second) << "after step " << i;
  }
  for (int i = 0; i < 6; ++i) s << mv::Vector3(i, 0, 0);
  EXPECT_EQ(s.valueCounter(), 6);
  s << ']';
  EXPECT_EQ(s.state(), mv::StateParamList);
  EXPECT_EQ(s.valueCounter(), -1);
  s.param(mv::ParamTexture) << '[' << 0.5 << 0.5 << ']';
  EXPECT_EQ(s.paramKind(), mv::ParamTexture);
  EXPECT_EQ(s.state(), mv::StateParamList);
  EXPECT_TRUE(capture.errors.empty());
}

TEST(GeomStream, intCountsAsNumberWhereAPatchWantsOne) {
  CapturingMessageHandler capture;
  CountingGeomStream s;
  s << mv::CmdPatch << 2 << 2 << '[' << 0 << 1 << ']';
  EXPECT_EQ(s.state(), mv::StateUMin);
  s << 3;  // the u minimum
  EXPECT_EQ(s.state(), mv::StateUMax);
  EXPECT_TRUE(capture.errors.empty());
}

TEST(GeomStream, doubleWhereAPatchWantsACountIsReported) {
  CapturingMessageHandler capture;
  CountingGeomStream s;
  s << mv::CmdPatch << 3.0;
  EXPECT_EQ(s.state(), mv::StateUCount);
  ASSERT_EQ(capture.errors.size(), 1u);
  EXPECT_EQ(capture.errors[0], "Unexpected value for currrent GeometryStream State: 0");
}

TEST(GeomStream, afterVKnotsTwoNumbersThenParam) {
  CapturingMessageHandler capture;
  CountingGeomStream s;
  writePatchHeader(s);
  EXPECT_EQ(s.state(), mv::StateParamList);
  s << 5.0;  // a third number has no place
  EXPECT_EQ(capture.errors.size(), 1u);
  EXPECT_EQ(s.state(), mv::StateParamList);
}

TEST(GeomStream, polygonOutlineProtocol) {
  CountingGeomStream s;
  s << mv::CmdPolygon;
  EXPECT_EQ(s.state(), mv::StateListCount);
  s << 1;
  EXPECT_EQ(s.state(), mv::StateListValues);
  s << '[' << 4;
  s.param(mv::ParamPoints);  // before the closing bracket: nothing happens
  EXPECT_EQ(s.state(), mv::StateListValues);
  EXPECT_EQ(s.valueCounter(), 1);
  s << ']';
  EXPECT_EQ(s.state(), mv::StateParamList);
  s.param(mv::ParamPoints) << '[' << mv::Vector3() << mv::Vector3(1, 0, 0) << ']';
  EXPECT_EQ(s.state(), mv::StateParamList);
  EXPECT_EQ(s.pointCount, 2);
}

TEST(GeomStream, numbersOutsideAPatchAreIgnoredSilently) {
  CapturingMessageHandler capture;
  CountingGeomStream s;
  s << mv::CmdPolygonMesh << 1 << '[' << 0 << 1 << 2 << 3 << ']' << 2.5 << 7;
  EXPECT_EQ(s.state(), mv::StateParamList);
  EXPECT_TRUE(capture.errors.empty());
}

TEST(GeomStream, emptyGroupLeavesStacksAsTheyWere) {
  CountingGeomStream s;
  s << mv::CmdGroupBegin << mv::CmdGroupEnd;
  EXPECT_EQ(s.transformDepth(), 1u);
  EXPECT_EQ(s.attributeDepth(), 1u);
  s << mv::CmdGroupBeginLegacy;
  EXPECT_EQ(s.transformDepth(), 2u);
  EXPECT_EQ(s.attributeDepth(), 2u);
  s << mv::CmdGroupEndLegacy;
  EXPECT_EQ(s.transformDepth(), 1u);
}

TEST(GeomStream, materialAndSelectionAreGoneAfterGroupEnd) {
  CountingGeomStream s;
  s << mv::CmdGroupBegin << mv::CmdMaterialIndex << 4;
  s << mv::CmdAttribute;
  s.param(mv::ParamSelection) << std::string("bark");
  EXPECT_EQ(s.topAttributes().material, 4);
  EXPECT_EQ(s.topAttributes().selectionName, "bark");
  s << mv::CmdAttribute;
  s.param(mv::ParamSelection) << 12;
  EXPECT_EQ(s.topAttributes().selectionId, 12);
  EXPECT_EQ(s.state(), mv::StateParamList);
  s << mv::CmdGroupEnd;
  EXPECT_EQ(s.topAttributes().material, -1);
  EXPECT_TRUE(s.topAttributes().selectionName.empty());
  EXPECT_EQ(s.topAttributes().selectionId, 0);
}

TEST(GeomStream, transformBlocksLeaveAttributesAlone) {
  CountingGeomStream s;
  s << mv::CmdMaterialIndex << 2;
  s << mv::CmdTransformBegin << mv::CmdTransform << mv::Matrix4::translation({1, 0, 0});
  EXPECT_EQ(s.attributeDepth(), 1u);
  EXPECT_EQ(s.transformDepth(), 2u);
  s << mv::CmdTransformEnd;
  EXPECT_EQ(s.topTransform(), mv::Matrix4());
  EXPECT_EQ(s.topAttributes().material, 2);
}

// A point is carried by the matrix given first, then by the later one.
TEST(GeomStream, successiveMatricesCompose) {
  CountingGeomStream s;
  s << mv::CmdGroupBegin << mv::CmdTransform << mv::Matrix4::rotationZ(M_PI / 2)
    << mv::Matrix4::translation({10, 0, 0});
  expectNear(s.topTransform().transformPoint({1, 0, 0}), {10, 1, 0});
  s << mv::CmdGroupBegin << mv::CmdTransform << mv::Matrix4::scaling({2, 2, 2});
  expectNear(s.topTransform().transformPoint({1, 0, 0}), {20, 2, 0});  // inner acts last
  s << mv::CmdGroupEnd;
  expectNear(s.topTransform().transformPoint({1, 0, 0}), {10, 1, 0});
}

TEST(GeomStream, matrixOutsideTransformIsIgnored) {
  CountingGeomStream s;
  s << mv::Matrix4::translation({1, 2, 3});
  s << mv::CmdTransform << mv::CmdGroupBegin << mv::Matrix4::translation({1, 2, 3});
  EXPECT_EQ(s.topTransform(), mv::Matrix4());
}

TEST(GeomStream, unknownCommandsAreOnlyRecorded) {
  CountingGeomStream s;
  s << mv::CmdMaterialIndex;
  s << static_cast<mv::GeomCommand>(13);
  EXPECT_EQ(s.lastCommand(), 13);
  EXPECT_EQ(s.state(), mv::StateMaterial);
  s << static_cast<mv::GeomCommand>(99);
  EXPECT_EQ(s.lastCommand(), 99);
}

TEST(GeomStream, unbalancedEndIsReportedAndKeepsTheTop) {
  CapturingMessageHandler capture;
  CountingGeomStream s;
  s << mv::CmdGroupEnd << mv::CmdTransformEnd;
  EXPECT_EQ(s.transformDepth(), 1u);
  EXPECT_EQ(s.attributeDepth(), 1u);
  EXPECT_EQ(capture.errors.size(), 3u);
  EXPECT_EQ(s.topTransform(), mv::Matrix4());
}

TEST(GeomStream, addMaterialAppendsWithoutMerging) {
  CountingGeomStream s;
  EXPECT_EQ(s.addMaterial("bark"), 0);
  EXPECT_EQ(s.addMaterial("leaf"), 1);
  EXPECT_EQ(s.addMaterial("bark"), 2);
  EXPECT_EQ(s.materialNames().size(), 3u);
}
