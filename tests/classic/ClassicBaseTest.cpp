// The classic node base: the path spline, the photo correction and its matrix helpers, and the
// placement that a plain classic node hands its children.
#include <gtest/gtest.h>

#include <cmath>

#include "classic/ClassicSimple.h"
#include "classic/ClassicSpline.h"
#include "classic/PhotoTurn.h"
#include "core/ChildRole.h"
#include "curves/CurveParam.h"
#include "curves/ParameterSetData.h"
#include "support/GeometryExpectations.h"
#include "support/PatchRecorder.h"

using namespace mv;

namespace {

// Some orthonormal frames of every orientation, placed away from the origin.
std::vector<Matrix4> sampleFrames() {
  std::vector<Matrix4> frames;
  for (int i = 0; i < 12; ++i) {
    Matrix4 frame = Matrix4::rotationZ(0.7 * i) * Matrix4::rotationX(0.45 * i - 1.0) *
                    Matrix4::rotationY(1.3 * i + 0.2);
    frame.setRow(3, {1.0 * i, -2.0, 0.5 * i});
    frames.push_back(frame);
  }
  return frames;
}

Vector3 axisOf(const Matrix4& m, int axis) { return m.row(axis).normalized(); }

}  // namespace

TEST(ClassicSpline, twoKeysMakeAHermiteArcWithChordTangents) {
  ClassicSpline spline;
  spline.keys = {{0.0, {0, 0, 0}}, {1.0, {10, 0, 0}}};
  const double m = 10 / 1.325;
  for (double s : {0.0, 0.25, 0.5, 0.8, 1.0}) {
    const double h01 = -2 * s * s * s + 3 * s * s;
    const double h10 = s * s * s - 2 * s * s + s;
    const double h11 = s * s * s - s * s;
    expectNear(spline.pointAt(s), {h01 * 10 + (h10 + h11) * m, 0, 0}, 1e-12);
  }
  EXPECT_DOUBLE_EQ(spline.length(), 10.0);
}

TEST(ClassicSpline, passesThroughEveryKeyAndClampsT) {
  ClassicSpline spline;
  spline.keys = {{0.0, {0, 0, 0}}, {0.3, {1, 2, 0}}, {0.7, {3, 2, 1}}, {1.0, {4, 0, 1}}};
  for (const auto& [t, point] : spline.keys) expectNear(spline.pointAt(t), point, 1e-12);
  expectNear(spline.pointAt(-5), spline.pointAt(0));
  expectNear(spline.pointAt(7), spline.pointAt(1));
  EXPECT_NEAR(spline.length(), std::sqrt(5.0) + std::sqrt(5.0) + std::sqrt(5.0), 1e-12);
}

TEST(ClassicSpline, extrapolatesTheOuterPairsBeyondTheOuterKeys) {
  ClassicSpline spline;
  spline.tension = 1.0;
  spline.keys = {{0.2, {0, 0, 0}}, {0.6, {0, 0, 4}}};
  // With tension 1 and equal chord tangents the arc is the straight line at uniform speed.
  expectNear(spline.pointAt(0.9), {0, 0, 7}, 1e-12);
  expectNear(spline.pointAt(0.0), {0, 0, -2}, 1e-12);
}

TEST(ClassicSpline, fewKeysGiveFixedPoints) {
  ClassicSpline spline;
  expectNear(spline.pointAt(0.5), {0, 0, 0});
  EXPECT_EQ(spline.length(), 0.0);
  spline.keys[0.4] = {1, 2, 3};
  expectNear(spline.pointAt(0.9), {1, 2, 3});
  EXPECT_EQ(spline.length(), 0.0);
}

TEST(PhotoTurn, zeroStrengthIsTheIdentity) {
  for (const Matrix4& frame : sampleFrames()) {
    EXPECT_EQ(photoTurn(frame, 0, 0.0, 0), Matrix4());
    EXPECT_EQ(photoTurn(frame, 1, 5e-9, 1), Matrix4());
  }
}

TEST(PhotoTurn, fullStrengthTurnsTheAxisOntoTheLight) {
  // The quarter turn of axis 1 brings -y to z, so that axis ends against the light.
  const double sense[3] = {1.0, -1.0, 1.0};
  for (const Matrix4& frame : sampleFrames()) {
    for (int axis : {0, 1, 2}) {
      const Matrix4 toward = photoTurn(frame, axis, 1.0, 0) * frame;
      const Matrix4 away = photoTurn(frame, axis, -1.0, 0) * frame;
      expectNear(axisOf(toward, axis), {0, 0, sense[axis]}, 1e-9);
      expectNear(axisOf(away, axis), {0, 0, -sense[axis]}, 1e-9);
      expectOrthonormalFrame(toward);
      expectNear(toward.position(), frame.position(), 1e-9);
    }
  }
}

TEST(PhotoTurn, halfStrengthLeansHalfway) {
  for (const Matrix4& frame : sampleFrames()) {
    const Vector3 before = axisOf(frame, 0);
    if ((before - Vector3{0, 0, -1}).length() < 1e-3) continue;
    const Vector3 expected = (Vector3{0, 0, 0.5} + before * 0.5).normalized();
    expectNear(axisOf(photoTurn(frame, 0, 0.5, 0) * frame, 0), expected, 1e-9);
  }
}

TEST(PhotoTurn, axesBeyondTwoBehaveAsZ) {
  for (const Matrix4& frame : sampleFrames()) {
    EXPECT_EQ(photoTurn(frame, 5, 0.7, 0), photoTurn(frame, 2, 0.7, 0));
    EXPECT_EQ(photoTurn(frame, -1, 0.7, 1), photoTurn(frame, 2, 0.7, 1));
  }
}

TEST(PhotoTurn, modeOneTakesTheLightPerpendicularToTheQuarterTurnedAxisRow) {
  // For axis 0 that row is the frame's z axis: the light loses its part along it, and full
  // strength turns the x axis onto what remains.
  for (const Matrix4& frame : sampleFrames()) {
    const Vector3 z = axisOf(frame, 2);
    if (std::fabs(z.z) > 0.99) continue;
    const Vector3 remainder = (Vector3{0, 0, 1} - z * z.z).normalized();
    expectNear(axisOf(photoTurn(frame, 0, 1.0, 1) * frame, 0), remainder, 1e-9);
  }
}

TEST(PhotoTurn, turnTowardsPointsZAtTheTarget) {
  for (const Matrix4& frame : sampleFrames()) {
    const Vector3 target = frame.position() + Vector3{1, 2, -2};
    Matrix4 rotation;
    turnTowards(rotation, frame, target);
    expectNear(axisOf(rotation * frame, 2), Vector3{1, 2, -2}.normalized(), 1e-9);
    expectOrthonormalFrame(rotation);
  }
  Matrix4 flip;
  turnTowards(flip, Matrix4(), {0, 0, -3});  // straight behind: only the turn about y
  expectNear(flip.row(2), {0, 0, -1}, 1e-12);
  expectOrthonormalFrame(flip);
}

TEST(PhotoTurn, blendMatricesIsElementwiseWithClampedWeight) {
  const Matrix4 a = Matrix4::rotationZ(0.3) * Matrix4::translation({1, 2, 3});
  const Matrix4 b = Matrix4::scaling({2, 3, 4});
  const Matrix4 quarter = blendMatrices(a, b, 0.25);
  for (int i = 0; i < 16; ++i) EXPECT_DOUBLE_EQ(quarter.m[i], 0.75 * a.m[i] + 0.25 * b.m[i]);
  EXPECT_EQ(blendMatrices(a, b, -2.0), a);
  EXPECT_EQ(blendMatrices(a, b, 9.0), b);
}

namespace {

PlacementList evaluateClassic(ParameterSetData& params, const Matrix4& world, const Matrix4& local,
                              int roleMask, int* result = nullptr) {
  ClassicSimple node;
  params.worldMatrix = world;
  params.localMatrix = local;
  PatchRecorder stream;
  PlacementList placements;
  const int placed = node.evaluate(params, stream, roleMask, placements, 1.0);
  if (result) *result = placed;
  EXPECT_TRUE(stream.patches.empty());
  return placements;
}

}  // namespace

TEST(ClassicSimple, placesItsChildrenTurnedTowardTheLight) {
  ParameterSetData params;
  ClassicSimple().initParameters(params, 1.0);
  const std::vector<Matrix4> frames = sampleFrames();
  for (size_t i = 0; i + 1 < frames.size(); ++i) {
    const Matrix4 world = frames[i], local = frames[i + 1];
    int result = 0;
    const PlacementList placements = evaluateClassic(params, world, local, RoleOther, &result);
    EXPECT_EQ(result, RoleOther);
    ASSERT_EQ(placements.size(), 1u);
    EXPECT_EQ(placements[0].role, RoleOther);
    ASSERT_EQ(placements[0].placements.size(), 1u);
    const Placement& placement = placements[0].placements[0];
    EXPECT_FALSE(placement.wantsData);
    // The placement is the correction conjugated into the local frame; the correction turns the
    // node's frame seen from the world (W^-1 L) with its x axis onto the light.
    const Matrix4 correction = local * placement.matrix * local.inverse();
    expectNear(axisOf(correction * (world.inverse() * local), 0), {0, 0, 1}, 1e-9);
  }
}

TEST(ClassicSimple, zeroStrengthOrSingularWorldLeavesTheFrame) {
  ParameterSetData params;
  ClassicSimple().initParameters(params, 1.0);
  params.setDouble(IdPhotoStrength, 0.0);
  const Matrix4 local = sampleFrames()[5];
  expectNear(evaluateClassic(params, local, local, RoleOther)[0].placements[0].matrix, Matrix4(),
             1e-12);
  params.setDouble(IdPhotoStrength, 1.0);
  const Matrix4 singular = Matrix4::scaling({0, 0, 0});
  const PlacementList viaSingular = evaluateClassic(params, singular, local, RoleOther);
  const PlacementList viaIdentity = evaluateClassic(params, Matrix4(), local, RoleOther);
  EXPECT_EQ(viaSingular[0].placements[0].matrix, viaIdentity[0].placements[0].matrix);
}

TEST(ClassicSimple, placesNothingWithoutRole16) {
  ParameterSetData params;
  ClassicSimple().initParameters(params, 1.0);
  int result = -1;
  EXPECT_TRUE(evaluateClassic(params, Matrix4(), Matrix4(), RoleNodes | RoleEnd, &result).empty());
  EXPECT_EQ(result, 0);
}
