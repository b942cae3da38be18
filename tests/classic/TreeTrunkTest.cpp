// The pieces of the classic trunk: knot layout, sample spreading, the walk to frames, tropism
// and the sweep of a profile along frames.
#include <gtest/gtest.h>

#include <cmath>

#include "classic/ClassicSweep.h"
#include "classic/ClassicTropism.h"
#include "classic/detail/TreeTrunk.h"
#include "curves/CurveParam.h"
#include "support/CapturingMessageHandler.h"
#include "support/GeometryExpectations.h"
#include "support/PatchRecorder.h"
#include "support/SplineBuilders.h"

using namespace mv;

namespace {

CurveParam constant(double value) { return CurveParam(0.0, 1.0, value, value, "id"); }
const CurveParam kFlat(0.0, 1.0, 0.0, 0.0, 0.0, PointSmooth);

TreeTrunk::Settings straightSettings(double length, double segments) {
  TreeTrunk::Settings settings;
  settings.length = length;
  settings.segments = segments;
  settings.deviate = &kFlat;
  settings.kruschtl = &kFlat;
  static const CurveParam screw = constant(1.0);
  settings.screw = &screw;
  return settings;
}

// A chain along x: each frame's z axis points along +x, step apart.
std::vector<TreeFrame> horizontalChain(int count, double step) {
  std::vector<TreeFrame> frames;
  for (int i = 0; i < count; ++i) {
    Matrix4 m = Matrix4::rotationY(M_PI / 2);
    m.setRow(3, {i * step, 0, 0});
    frames.push_back({i / (count - 1.0), m});
  }
  return frames;
}

}  // namespace

TEST(TreeTrunk, branchPositionsSplitTheIntegralEvenly) {
  const auto even = TreeTrunk::branchPositions(constant(1.0), 3.0, 6, 1.0);
  ASSERT_EQ(even.size(), 5u);
  for (int k = 0; k < 5; ++k) EXPECT_NEAR(even[k], k / 4.0, 1e-12);
  // Above version 3 the carried density divides the count: twice as many knots.
  EXPECT_EQ(TreeTrunk::branchPositions(constant(1.0), 3.0, 6, 0.5).size(), 9u);
  EXPECT_EQ(TreeTrunk::branchPositions(constant(1.0), 3.0, 3, 0.5).size(), 5u);
  // A rising density: the integral u^2 / 2 reaches k / n of its total at sqrt(k / n).
  const auto rising = TreeTrunk::branchPositions(CurveParam(0, 1, 0, 1, "id"), 4.0, 6, 1.0);
  ASSERT_EQ(rising.size(), 6u);
  for (int k = 1; k <= 5; ++k) EXPECT_NEAR(rising[k], std::sqrt(k / 5.0), 1e-9);
}

TEST(TreeTrunk, branchPositionsAreEmptyWithoutDensityOrCount) {
  EXPECT_TRUE(TreeTrunk::branchPositions(constant(0.0), 10.0, 6, 1.0).empty());
  EXPECT_TRUE(TreeTrunk::branchPositions(constant(1.0), -1.5, 6, 1.0).empty());
  EXPECT_TRUE(TreeTrunk::branchPositions(constant(1.0), std::nan(""), 6, 1.0).empty());
  CapturingMessageHandler messages;
  EXPECT_EQ(TreeTrunk::branchPositions(constant(1.0), 1e15, 6, 1.0).size(),
            static_cast<size_t>(TreeTrunk::kMaxKnots) + 1);
  EXPECT_EQ(messages.warnings.size(), 1u);
}

TEST(TreeTrunk, insertSamplesSpreadsExtraSamplesByIntervalLength) {
  const auto samples = TreeTrunk::insertSamples({0.0, 0.25, 1.0}, 4);
  const std::vector<double> us{0.0, 0.125, 0.25, 0.4375, 0.625, 0.8125, 1.0};
  const std::vector<bool> knots{true, false, true, false, false, false, true};
  ASSERT_EQ(samples.size(), us.size());
  for (size_t i = 0; i < us.size(); ++i) {
    EXPECT_NEAR(samples[i].u, us[i], 1e-12) << i;
    EXPECT_EQ(samples[i].knot, knots[i]) << i;
  }
  const auto plain = TreeTrunk::insertSamples({0.0, 0.4, 0.9}, 0);
  ASSERT_EQ(plain.size(), 3u);
  for (const TreeSample& sample : plain) EXPECT_TRUE(sample.knot);
  EXPECT_TRUE(TreeTrunk::insertSamples({}, 5).empty());
  ASSERT_EQ(TreeTrunk::insertSamples({0.3}, 5).size(), 1u);
}

TEST(TreeTrunk, alignToZTurnsZOntoTheVector) {
  for (const Vector3& v : {Vector3{1, 2, 3}, Vector3{-4, 0.5, -1}, Vector3{2, 0, 0},
                           Vector3{0, 0, -3}, Vector3{0, -1e-9, 5}}) {
    const Matrix4 r = TreeTrunk::alignToZ(v);
    expectFrameAlong(r, v, 1e-12);
  }
  expectNear(TreeTrunk::alignToZ({0, 0, 1e-9}), Matrix4());
}

TEST(TreeTrunk, straightTrunkFramesStandAtTheirShareOfTheLength) {
  const TreeTrunk trunk(straightSettings(3.0, 10.0), {0.0, 0.25, 0.5, 0.75, 1.0});
  const auto frames = trunk.buildFrames();
  ASSERT_EQ(frames.size(), trunk.samples().size());
  EXPECT_EQ(frames.size(), 10u);
  EXPECT_DOUBLE_EQ(trunk.length(), 3.0);
  for (const TreeFrame& frame : frames) {
    Matrix4 expected;
    expected.setRow(3, {0, 0, frame.x * 3.0});
    expectNear(frame.matrix, expected, 1e-9);
  }
  EXPECT_EQ(frames.back().x, 1.0);
  EXPECT_FALSE(trunk.samples().back().knot);
}

TEST(TreeTrunk, deviatedTrunkKinksAtKnotsAndKeepsItsArcLength) {
  TreeTrunk::Settings settings = straightSettings(2.0, 12.0);
  const CurveParam deviate = constant(0.5);
  settings.deviate = &deviate;
  const TreeTrunk trunk(settings, {0.0, 0.5, 1.0});
  const auto frames = trunk.buildFrames();
  // Two kinks of 30 degrees: the trunk leaves the z axis but its parameters are arc lengths.
  EXPECT_GT(std::hypot(frames.back().matrix.at(3, 0), frames.back().matrix.at(3, 1)), 0.1);
  double walked = 0.0;
  for (size_t i = 1; i < frames.size(); ++i) {
    walked += (frames[i].matrix.position() - frames[i - 1].matrix.position()).length();
    expectOrthonormalFrame(frames[i].matrix);
  }
  EXPECT_NEAR(walked, trunk.length(), 1e-6);
  EXPECT_NEAR(trunk.length(), 2.0, 1e-9);  // the kinks bend but do not stretch
  for (size_t i = 1; i < frames.size(); ++i) EXPECT_GT(frames[i].x, frames[i - 1].x);
}

TEST(ClassicTropism, bendsAHorizontalChainTowardItsDirection) {
  const double step = 0.2;
  auto up = horizontalChain(6, step);
  applyTropism(constant(1.0), constant(0.0), up, Matrix4(), 1.0, 1.0);
  auto down = horizontalChain(6, step);
  applyTropism(constant(0.0), constant(1.0), down, Matrix4(), 1.0, 1.0);
  // The first step turns the z axis by atan(step) toward +z, and gravity mirrors it.
  expectNear(up[1].matrix.row(2), Vector3{1, 0, step}.normalized(), 1e-12);
  expectNear(down[1].matrix.row(2), Vector3{1, 0, -step}.normalized(), 1e-12);
  for (size_t i = 1; i < up.size(); ++i) {
    expectOrthonormalFrame(up[i].matrix);
    // Frames keep their distances and their own place relative to the one before.
    EXPECT_NEAR((up[i].matrix.position() - up[i - 1].matrix.position()).length(), step, 1e-12);
    EXPECT_GT(up[i].matrix.row(2).z, up[i - 1].matrix.row(2).z);
    const Vector3 p = up[i].matrix.position(), q = down[i].matrix.position();
    expectNear(q, {p.x, p.y, -p.z}, 1e-12);
  }
  // A stronger multiplier bends sooner.
  auto strong = horizontalChain(6, step);
  applyTropism(constant(1.0), constant(0.0), strong, Matrix4(), 1.0, 5.0);
  expectNear(strong[1].matrix.row(2), Vector3{1, 0, 5 * step}.normalized(), 1e-12);
}

TEST(ClassicTropism, leavesAChainAlongTheLightAlone) {
  std::vector<TreeFrame> frames;
  for (int i = 0; i < 4; ++i) frames.push_back({i / 3.0, Matrix4::translation({0, 0, i * 1.0})});
  const auto before = frames;
  applyTropism(constant(1.0), constant(0.0), frames, Matrix4(), 1.0, 1.0);
  for (size_t i = 0; i < frames.size(); ++i) expectNear(frames[i].matrix, before[i].matrix, 1e-12);
}

TEST(ClassicSweep, writesOneRingPerFrameScaledByTheShape) {
  std::vector<TreeFrame> frames;
  for (int i = 0; i < 5; ++i) frames.push_back({i / 4.0, Matrix4::translation({0, 0, i * 1.0})});
  SplineData circle;
  circle.makeCircle(2.0, 6);
  PatchRecorder stream;
  writeSweep(stream, frames, CurveParam(0, 1, 1, 0, "id"), circle, 1.0, 0.5, false, constant(0.0));
  ASSERT_EQ(stream.patches.size(), 1u);
  const auto& patch = stream.patches[0];
  EXPECT_EQ(patch.countU, 7);  // six points and the seam again
  EXPECT_EQ(patch.countV, 5);
  for (int v = 0; v < 5; ++v) {
    const double radius = 2.0 * (1.0 - v / 4.0) * 0.5;
    for (int u = 0; u < 7; ++u) {
      const Vector3 p = patch.at(u, v);
      EXPECT_NEAR(std::hypot(p.x, p.y), radius, 1e-12);
      EXPECT_NEAR(p.z, v, 1e-12);
    }
    expectNear(patch.at(6, v), patch.at(0, v), 1e-12);
  }
}

TEST(ClassicSweep, growthCutsTheTubeThroughABlendedRing) {
  std::vector<TreeFrame> frames;
  for (int i = 0; i < 5; ++i) frames.push_back({i / 4.0, Matrix4::translation({0, 0, i * 1.0})});
  SplineData line;
  appendSegment(line, {{-1, 0, 0}, {1, 0, 0}});
  PatchRecorder stream;
  writeSweep(stream, frames, constant(1.0), line, 0.6, 1.0, true, constant(0.5));
  ASSERT_EQ(stream.patches.size(), 1u);
  const auto& patch = stream.patches[0];
  EXPECT_EQ(patch.countU, 2);
  EXPECT_EQ(patch.countV, 4);                       // rows at 0, 0.25, 0.5 and the blend at 0.6
  expectNear(patch.at(0, 0), {-1.5, 0, 0}, 1e-12);  // displaced by half
  expectNear(patch.at(1, 2), {1.5, 0, 2}, 1e-12);
  // The closed tip: the last ring is a point at the blended frame.
  expectNear(patch.at(0, 3), {0, 0, 2.4}, 1e-12);
  expectNear(patch.at(1, 3), {0, 0, 2.4}, 1e-12);
}

TEST(ClassicSweep, writesNothingWithoutGrowthOrFrames) {
  SplineData circle;
  circle.makeCircle(1.0, 4);
  PatchRecorder stream;
  const std::vector<TreeFrame> one{{0.0, Matrix4()}};
  writeSweep(stream, one, constant(1.0), circle, 1.0, 1.0, false, constant(0.0));
  std::vector<TreeFrame> two{{0.0, Matrix4()}, {1.0, Matrix4::translation({0, 0, 1})}};
  writeSweep(stream, two, constant(1.0), circle, 0.0, 1.0, false, constant(0.0));
  EXPECT_TRUE(stream.patches.empty());
}
