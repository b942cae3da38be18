#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "geometry/Triangulation.h"
#include "support/CapturingMessageHandler.h"
#include "support/MeshExpectations.h"

using mv::Vector3;

namespace {

using Outline = std::vector<Vector3>;
using Triangles = std::vector<uint32_t>;

Outline regularPolygon(int n, double radius) {
  Outline result;
  for (int k = 0; k < n; ++k) {
    const double angle = 2.0 * M_PI * k / n;
    result.emplace_back(radius * std::cos(angle), radius * std::sin(angle), 0.0);
  }
  return result;
}

Outline star(int spikes, double outer, double inner) {
  Outline result;
  for (int k = 0; k < 2 * spikes; ++k) {
    const double angle = M_PI * k / spikes, r = k % 2 == 0 ? outer : inner;
    result.emplace_back(r * std::cos(angle), r * std::sin(angle), 0.0);
  }
  return result;
}

// A rectangle with extra points along every side: corners of 180 degrees.
Outline rectangleWithCollinearPoints() {
  return {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0},
          {4, 1, 0}, {4, 2, 0}, {2, 2, 0}, {0, 2, 0}, {0, 1, 0}};
}

// A band wound twice around the origin: out along the outer edge, back along the inner one.
Outline spiral(int pointsPerArm) {
  Outline outer, inner;
  for (int k = 0; k < pointsPerArm; ++k) {
    const double t = 4.0 * M_PI * k / (pointsPerArm - 1), r = 1.0 + 0.5 * t;
    outer.emplace_back((r + 1.0) * std::cos(t), (r + 1.0) * std::sin(t), 0.0);
    inner.emplace_back(r * std::cos(t), r * std::sin(t), 0.0);
  }
  outer.insert(outer.end(), inner.rbegin(), inner.rend());
  return outer;
}

// A comb: many reflex corners in a row.
Outline comb(int teeth) {
  Outline result = {{0, 0, 0}, {2.0 * teeth, 0, 0}};
  for (int k = teeth - 1; k >= 0; --k) {
    result.emplace_back(2.0 * k + 2.0, 3.0, 0.0);
    result.emplace_back(2.0 * k + 1.0, 3.0, 0.0);
    result.emplace_back(2.0 * k + 1.0, 1.0, 0.0);
    result.emplace_back(2.0 * k, 1.0, 0.0);
  }
  result.back().y = 3.0;  // the first tooth starts at the left edge
  return result;
}

Outline reversed(Outline outline) { return {outline.rbegin(), outline.rend()}; }

bool insideOutline(const Outline& outline, const Vector3& p) {
  bool inside = false;
  for (size_t i = 0, j = outline.size() - 1; i < outline.size(); j = i++) {
    const Vector3 &a = outline[i], &b = outline[j];
    if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x) {
      inside = !inside;
    }
  }
  return inside;
}

// n - 2 triangles over distinct corners, each turning as the outline does and lying inside it,
// whose areas add up to the outline's.
void expectTriangulates(const Outline& outline, const Triangles& triangles) {
  const size_t n = outline.size();
  ASSERT_EQ(triangles.size(), 3 * (n - 2));
  const double area = outlineArea(outline);
  double sum = 0.0;
  for (size_t t = 0; t < triangles.size(); t += 3) {
    const Vector3 &a = outline[triangles[t]], &b = outline[triangles[t + 1]],
                  &c = outline[triangles[t + 2]];
    const double twice = doubleArea(a, b, c);
    EXPECT_GT(twice * area, 0.0) << "triangle " << t / 3 << " inverted or flat";
    EXPECT_TRUE(insideOutline(outline, (a + b + c) / 3.0)) << "triangle " << t / 3 << " outside";
    sum += 0.5 * twice;
  }
  EXPECT_NEAR(sum, area, 1e-9 * std::abs(area));
}

// Carries an outline of the x-y plane into another plane, keeping the indices.
Outline intoPlane(const Outline& outline, const std::function<Vector3(const Vector3&)>& map) {
  Outline result;
  for (const Vector3& p : outline) result.push_back(map(p));
  return result;
}

}  // namespace

TEST(Triangulation, triangleIsOneEarCutAtTheLastCorner) {
  Triangles triangles;
  testing::internal::CaptureStderr();
  ASSERT_TRUE(mv::triangulate({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, triangles, true));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(triangles, (Triangles{2, 0, 1}));
}

TEST(Triangulation, squareKeepsItsFirstDiagonalOnATie) {
  Triangles triangles;
  testing::internal::CaptureStderr();
  ASSERT_TRUE(mv::triangulate({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}, triangles, true));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(triangles, (Triangles{3, 0, 1, 1, 2, 3}));
}

TEST(Triangulation, improvementFlipsALongDiagonalToTheShortOne) {
  const Outline rhombus = {{-2, 0, 0}, {0, -1, 0}, {2, 0, 0}, {0, 1, 0}};
  Triangles triangles = {0, 1, 2, 0, 2, 3};
  EXPECT_TRUE(mv::improveTriangles(rhombus, triangles, 2));
  EXPECT_EQ(triangles, (Triangles{1, 3, 0, 1, 2, 3}));

  Triangles shortDiagonal = {1, 2, 3, 3, 0, 1};
  EXPECT_TRUE(mv::improveTriangles(rhombus, shortDiagonal, 2));
  EXPECT_EQ(shortDiagonal, (Triangles{1, 2, 3, 3, 0, 1}));
}

TEST(Triangulation, improvementRejectsBackwardTriangles) {
  const Outline square = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
  Triangles clockwise = {0, 2, 1, 0, 3, 2};
  testing::internal::CaptureStderr();
  EXPECT_FALSE(mv::improveTriangles(square, clockwise, 2));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "ERROR: original triangles backwards!\n");
  EXPECT_EQ(clockwise, (Triangles{0, 2, 1, 0, 3, 2}));

  Triangles pastTheEnd = {0, 1, 4};
  EXPECT_FALSE(mv::improveTriangles(square, pastTheEnd, 2));
}

TEST(Triangulation, projectionAxisFollowsTheFlattestExtent) {
  EXPECT_EQ(mv::projectionAxis({{0, 0, 0}, {2, 1, 3}}), 1);  // thin in y: (x, z)
  EXPECT_EQ(mv::projectionAxis({{0, 0, 0}, {2, 3, 1}}), 2);  // thin in z: (x, y)
  EXPECT_EQ(mv::projectionAxis({{0, 0, 0}, {1, 2, 3}}), 0);  // thin in x: (y, z)
  EXPECT_EQ(mv::projectionAxis({{0, 0, 0}, {1, 1, 1}}), 0);  // all equal
  EXPECT_EQ(mv::projectionAxis({{0, 0, 0}, {2, 1, 1}}), 0);  // ties fall through
}

TEST(Triangulation, coversEveryKindOfSimpleOutlineWithItsOwnTurn) {
  const std::vector<std::pair<std::string, Outline>> outlines = {
      {"convex", regularPolygon(12, 3.0)},
      {"concave", star(5, 2.0, 0.7)},
      {"collinear", rectangleWithCollinearPoints()},
      {"spiral", spiral(40)},
      {"comb", comb(6)},
      {"cocircular, all measures tie", regularPolygon(300, 1e3)},
  };
  for (const auto& [name, outline] : outlines) {
    for (bool improve : {false, true}) {
      for (const Outline& turned : {outline, reversed(outline)}) {
        SCOPED_TRACE(name + (improve ? " improved" : "") +
                     (outlineArea(turned) < 0 ? " clockwise" : ""));
        Triangles triangles;
        testing::internal::CaptureStderr();
        ASSERT_TRUE(mv::triangulate(turned, triangles, improve));
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
        expectTriangulates(turned, triangles);
      }
    }
  }
}

TEST(Triangulation, worksInEachAxisPlane) {
  const Outline outline = star(6, 2.0, 1.0);
  const std::vector<std::function<Vector3(const Vector3&)>> planes = {
      [](const Vector3& p) { return Vector3(p.x, p.y, 0.5); },       // x-y
      [](const Vector3& p) { return Vector3(p.x, -0.25, p.y); },     // x-z
      [](const Vector3& p) { return Vector3(7.0, p.x, p.y); },       // y-z
      [](const Vector3& p) { return Vector3(p.x, p.y, 0.1 * p.x); }  // tilted, still x-y
  };
  for (size_t k = 0; k < planes.size(); ++k) {
    SCOPED_TRACE("plane " + std::to_string(k));
    Triangles triangles;
    ASSERT_TRUE(mv::triangulate(intoPlane(outline, planes[k]), triangles, true));
    expectTriangulates(outline, triangles);  // judged in the source plane, same indices
  }
}

TEST(Triangulation, rejectsOutlinesWithoutArea) {
  CapturingMessageHandler capture;
  Triangles triangles;
  EXPECT_FALSE(mv::triangulate({{0, 0, 0}, {1, 1, 0}, {2, 2, 0}}, triangles, true));
  ASSERT_EQ(capture.errors.size(), 1u);
  EXPECT_EQ(capture.errors[0], "Triangulation: Probable Bad Polygon! 0");

  EXPECT_FALSE(mv::triangulate({{0, 0, 0}, {1, 0, 0}}, triangles, true));
  EXPECT_FALSE(mv::triangulate({}, triangles, true));
  EXPECT_EQ(capture.errors.size(), 1u);
  EXPECT_TRUE(triangles.empty());
}

TEST(Triangulation, reportsHowFarItGotOnABadOutline) {
  CapturingMessageHandler capture;
  Triangles triangles;
  // A square whose last corner doubles back onto the first edge.
  EXPECT_FALSE(mv::triangulate({{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0}, {1, 0, 0}, {0, 0, 0}},
                               triangles, true));
  ASSERT_EQ(capture.errors.size(), 1u);
  EXPECT_EQ(capture.errors[0].rfind("Triangulation: Probable Bad Polygon! ", 0), 0u);
}
