#include <gtest/gtest.h>

#include <cmath>

#include "geometry/PolylineSpline.h"
#include "support/GeometryExpectations.h"
#include "support/SplineBuilders.h"

using mv::Matrix4;
using mv::PolylineSpline;
using mv::SplineData;
using mv::Vector3;

namespace {

// A two-point spline whose tangent is direction everywhere.
PolylineSpline straight(const Vector3& direction, const Vector3& start = {}) {
  PolylineSpline spline;
  appendSegment(spline, {start, start + direction});
  return spline;
}

Matrix4 carried(const Vector3& direction, const Matrix4& reference = Matrix4()) {
  Matrix4 frame;
  straight(direction).getFrame(0.0, reference, 0, true, frame);
  return frame;
}

Matrix4 angled(const Vector3& direction) {
  Matrix4 frame;
  straight(direction).getAngleFrame(0.0, 0, true, frame);
  return frame;
}

Matrix4 rows(const Vector3& x, const Vector3& y, const Vector3& z, const Vector3& p = {}) {
  return Matrix4::fromRows(x, y, z, p);
}

// The frames of a whole segment by points: an angle frame first, then each carried from the last.
std::vector<Matrix4> pointFrames(const mv::Spline& spline) {
  std::vector<Matrix4> frames(1);
  double t = 0;
  EXPECT_TRUE(spline.getPointAngleFrame(0, t, frames[0]));
  for (uint32_t i = 1; i < spline.getPointCount(); ++i) {
    Matrix4 frame;
    EXPECT_TRUE(spline.getPointFrame(i, frames.back(), t, frame));
    frames.push_back(frame);
  }
  return frames;
}

}  // namespace

TEST(SplineCarriedFrame, removesTheTangentPartFromTheReferenceYAxis) {
  expectNear(carried({3, 0, 0}), rows({0, 0, -1}, {0, 1, 0}, {1, 0, 0}));
  const double a = std::sqrt(0.5);
  expectNear(carried({0, 2, 2}), rows({1, 0, 0}, {0, a, -a}, {0, a, a}));
  const Matrix4 turned = Matrix4::rotationZ(0.3);  // a reference turned about the tangent
  expectNear(carried({0, 0, 5}, turned), turned);
}

TEST(SplineCarriedFrame, fallsBackToTheReferenceXAxisThenToTheWorldXAxis) {
  expectNear(carried({0, 4, 0}), rows({1, 0, 0}, {0, 0, -1}, {0, 1, 0}));
  const Matrix4 noXAxis = rows({0, 0, 0}, {0, 0, 1}, {0, 0, 0});
  expectNear(carried({0, 0, 2}, noXAxis), rows({1, 0, 0}, {0, 1, 0}, {0, 0, 1}));
}

TEST(SplineCarriedFrame, takesItsPositionFromGetPosition) {
  Matrix4 frame;
  straight({4, 0, 0}, {1, 1, 1}).getFrame(0.25, Matrix4(), 0, false, frame);
  expectNear(frame, rows({0, 0, -1}, {0, 1, 0}, {1, 0, 0}, {2, 1, 1}));
  SplineData withoutPositions;
  appendSegment(withoutPositions, {{1, 1, 1}, {5, 1, 1}});
  withoutPositions.getFrame(0.25, Matrix4(), 0, false, frame);
  expectNear(frame, rows({0, 0, -1}, {0, 1, 0}, {1, 0, 0}, {0, 0, 0}));
}

TEST(SplineCarriedFrame, pointFrameTakesThePointAndRefusesBadIndices) {
  const PolylineSpline spline = straight({0, 0, 2}, {1, 2, 3});
  Matrix4 frame = Matrix4::translation({7, 7, 7});
  double t = -1;
  ASSERT_TRUE(spline.getPointFrame(1, Matrix4(), t, frame));
  EXPECT_EQ(t, 1.0);
  expectNear(frame, Matrix4::translation({1, 2, 5}));
  const Matrix4 before = frame;
  EXPECT_FALSE(spline.getPointFrame(2, Matrix4(), t, frame));
  EXPECT_FALSE(spline.getPointAngleFrame(2, t, frame));
  EXPECT_EQ(frame, before);
}

TEST(SplineAngleFrame, turnsTheZAxisOntoTheTangent) {
  expectNear(angled({0, 0, 3}), Matrix4());
  expectNear(angled({0, 0, -3}), rows({-1, 0, 0}, {0, 1, 0}, {0, 0, -1}));
  expectNear(angled({2, 0, 0}), rows({0, 0, -1}, {0, 1, 0}, {1, 0, 0}));
  expectNear(angled({0, 2, 0}), rows({1, 0, 0}, {0, 0, -1}, {0, 1, 0}));
}

TEST(SplineAngleFrame, rotatesAboutAnAxisInTheXYPlane) {
  for (double azimuth = -3.0; azimuth < 3.2; azimuth += 0.7) {
    for (double polar = 0.1; polar < 3.1; polar += 0.5) {
      const Vector3 tangent{std::sin(polar) * std::cos(azimuth),
                            std::sin(polar) * std::sin(azimuth), std::cos(polar)};
      const Matrix4 frame = angled(tangent * 2.5);
      expectFrameAlong(frame, tangent);
      const Vector3 axis{-tangent.y, tangent.x, 0};  // perpendicular to z and to the tangent
      expectNear(frame.transformVector(axis), axis, 1e-12);
    }
  }
}

TEST(SplineAngleFrame, carriesThePositionOfGetPosition) {
  Matrix4 frame;
  straight({0, 0, 2}, {1, 2, 3}).getAngleFrame(0.5, 0, false, frame);
  expectNear(frame, Matrix4::translation({1, 2, 4}));
  SplineData withoutPositions;
  appendSegment(withoutPositions, {{1, 2, 3}, {1, 2, 5}});
  withoutPositions.getAngleFrame(0.5, 0, false, frame);
  expectNear(frame, Matrix4());
}

TEST(SplineFrames, doNotTwistAlongAStraightLine) {
  PolylineSpline spline;
  const Vector3 direction{1, 2, 3};
  appendSegment(spline, linePoints(12, {1, 0, 0}, Vector3(1, 0, 0) + direction * 4));
  const std::vector<Matrix4> frames = pointFrames(spline);
  for (size_t i = 0; i < frames.size(); ++i) {
    expectFrameAlong(frames[i], direction);
    expectNear(frames[i].row(0), frames[0].row(0));
    expectNear(frames[i].position(), spline.points[i].position);
  }
  Matrix4 reference = frames[0];
  for (double t = 0.05; t <= 1.0; t += 0.1) {
    Matrix4 frame;
    spline.getFrame(t, reference, 0, true, frame);
    expectNear(frame.row(1), frames[0].row(1));
    expectNear(frame.position(), Vector3(1, 0, 0) + direction * (4 * t));
    reference = frame;
  }
}

TEST(SplineFrames, keepOneAxisNormalToTheCircle) {
  SplineData circle;
  ASSERT_TRUE(circle.makeCircle(2.0, 64));
  const std::vector<Matrix4> frames = pointFrames(circle);
  ASSERT_EQ(frames.size(), 64u);
  for (size_t i = 0; i < frames.size(); ++i) {
    const Vector3 chord =
        circle.points[(i + 1) % 64].position - circle.points[(i + 63) % 64].position;
    expectFrameAlong(frames[i], chord);
    expectNear(frames[i].row(0), {0, 0, -1}, 1e-12);  // the axis out of the plane stays put
  }
}

TEST(SplineFrames, followAHelixWithoutTurningAboutTheTangent) {
  PolylineSpline helix;
  appendSegment(helix, helixPoints(101, 1.5, 0.8, 3.0));
  const std::vector<Matrix4> frames = pointFrames(helix);
  for (size_t i = 1; i + 1 < frames.size(); ++i) {
    const Vector3 chord = helix.points[i + 1].position - helix.points[i - 1].position;
    expectFrameAlong(frames[i], chord);
    // No spin about the tangent: the old y axis lies in the plane of the new y axis and tangent.
    EXPECT_NEAR(frames[i].row(0).dot(frames[i - 1].row(1)), 0.0, 1e-12);
    // ...and the y axis turns no further than the tangent does.
    EXPECT_GE(frames[i].row(1).dot(frames[i - 1].row(1)),
              frames[i].row(2).dot(frames[i - 1].row(2)) - 1e-12);
  }
  Matrix4 frame;
  helix.getFrame(0.4049, frames[40], 0, false, frame);  // inside the piece from point 40 to 41
  const Vector3 p40 = helix.points[40].position, p41 = helix.points[41].position;
  expectFrameAlong(frame, p41 - p40);
  expectNear(frame.position(), p40 + (p41 - p40) * 0.49, 1e-12);
}
