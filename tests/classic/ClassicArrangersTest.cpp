// The classic arrangers: hydra, wreath and phiball positions against their closed forms, the
// carried values, and counts that are zero, fractional or absurd.
#include <gtest/gtest.h>

#include <cmath>

#include "classic/ClassicHydra.h"
#include "classic/ClassicPhiball.h"
#include "classic/ClassicWreath.h"
#include "core/ChildRole.h"
#include "curves/CurveParam.h"
#include "curves/ParameterSetData.h"
#include "support/CapturingMessageHandler.h"
#include "support/GeometryExpectations.h"
#include "support/PatchRecorder.h"

using namespace mv;

namespace {

constexpr double kPi = 3.14159265358979323846;

template <class Node>
struct ArrangerFixture {
  explicit ArrangerFixture(double size = 2.0) { node.initParameters(params, size); }
  int evaluate(int mask = RoleNodes | RoleOther) {
    placements.clear();
    return node.evaluate(params, stream, mask, placements, 1.0);
  }
  const std::vector<Placement>& elements() const {
    static const std::vector<Placement> none;
    for (const PlacementGroup& g : placements) {
      if (g.role == RoleNodes) return g.placements;
    }
    return none;
  }
  Vector3 at(size_t i) const { return elements()[i].matrix.transformPoint({0, 0, 0}); }

  Node node;
  ParameterSetData params;
  PatchRecorder stream;
  PlacementList placements;
};

CurveParam line(double minimum, double maximum, double first, double last) {
  return CurveParam(minimum, maximum, first, last, "id");
}

}  // namespace

TEST(ClassicWreath, standsOnACircleFromPlusYTowardPlusX) {
  ArrangerFixture<ClassicWreath> f;
  f.params.setDouble(IdWreathNumber, 4.0);
  f.params.setDouble(IdWreathRadius, 3.0);
  EXPECT_EQ(f.evaluate(), RoleNodes | RoleOther);
  ASSERT_EQ(f.elements().size(), 4u);
  const Vector3 expected[] = {{0, 3, 0}, {3, 0, 0}, {0, -3, 0}, {-3, 0, 0}};
  for (size_t i = 0; i < 4; ++i) {
    expectNear(f.at(i), expected[i], 1e-12);
    expectNear(f.elements()[i].matrix.row(1), expected[i] / 3.0, 1e-12);  // y points outward
    EXPECT_DOUBLE_EQ(f.elements()[i].position, i / 4.0);
    EXPECT_EQ(f.elements()[i].count, 4);
  }
}

TEST(ClassicWreath, fractionalNumberSpacesByNumberAndWidensTheLastGap) {
  ArrangerFixture<ClassicWreath> f;
  f.params.setDouble(IdWreathNumber, 3.5);
  f.params.setDouble(IdWreathRadius, 1.0);
  f.evaluate();
  ASSERT_EQ(f.elements().size(), 3u);
  for (size_t i = 0; i < 3; ++i) {
    const double a = 2 * kPi * i / 3.5;
    expectNear(f.at(i), {std::sin(a), std::cos(a), 0}, 1e-12);
    EXPECT_DOUBLE_EQ(f.elements()[i].position, i / 3.5);
  }
}

TEST(ClassicWreath, zeroOrAbsurdCountsPlaceNoElementsButStillAnswerTheOthers) {
  ArrangerFixture<ClassicWreath> f;
  for (double number : {0.0, -5.0, std::nan("")}) {
    f.params.setDouble(IdWreathNumber, number);
    EXPECT_EQ(f.evaluate(), RoleOther);
    EXPECT_TRUE(f.elements().empty());
  }
  CapturingMessageHandler messages;
  f.params.setDouble(IdWreathNumber, 1e300);
  EXPECT_EQ(f.evaluate(), RoleNodes | RoleOther);
  EXPECT_EQ(f.elements().size(), static_cast<size_t>(ClassicWreath::kMaxElements));
  EXPECT_EQ(messages.warnings.size(), 1u);
}

TEST(ClassicHydra, fansAFullCircleWithoutClosingIt) {
  ArrangerFixture<ClassicHydra> f;
  f.params.setDouble(IdHydraNumber, 4.0);
  f.params.setCurve(IdHydraScale, line(0.0, 2.0, 1.0, 2.0));
  f.params.carriedGrowth = 0.25;
  f.evaluate();
  ASSERT_EQ(f.elements().size(), 4u);
  for (size_t i = 0; i < 4; ++i) {
    const Placement& p = f.elements()[i];
    const double fan = -kPi + 2 * kPi * i / 4.0;
    const double s = 1.0 + i / 3.0;
    // The z axis tilts about x by -fan; the scale reaches its last value at the last element.
    expectNear(p.matrix.transformVector({0, 0, 1}), Vector3(0, std::sin(fan), std::cos(fan)) * s,
               1e-12);
    expectNear(p.matrix.transformVector({1, 0, 0}), {s, 0, 0}, 1e-12);
    EXPECT_TRUE(p.wantsData);
    EXPECT_DOUBLE_EQ(p.carriedGrowth, 0.25);
  }
}

TEST(ClassicHydra, twistAndSpinTurnAboutZ) {
  ArrangerFixture<ClassicHydra> f;
  f.params.setDouble(IdHydraNumber, 1.0);
  f.params.setCurve(IdHydraFan, line(-kPi, kPi, 0.0, 0.0));
  f.params.setCurve(IdHydraTwist, line(-kPi, kPi, 0.3, 0.3));
  f.params.setCurve(IdHydraSpin, line(-kPi, kPi, 0.2, 0.2));
  f.evaluate();
  ASSERT_EQ(f.elements().size(), 1u);
  expectNear(f.elements()[0].matrix.transformVector({1, 0, 0}),
             Matrix4::rotationZ(-0.5).transformVector({1, 0, 0}), 1e-12);
}

TEST(ClassicHydra, fractionalNumberAddsNoElement) {
  ArrangerFixture<ClassicHydra> f;
  f.params.setDouble(IdHydraNumber, 2.5);
  f.evaluate();
  ASSERT_EQ(f.elements().size(), 2u);
  EXPECT_DOUBLE_EQ(f.elements()[1].position, 0.4);
  EXPECT_EQ(f.elements()[1].count, 2);
}

TEST(ClassicHydra, missingCurveOrRoleWritesNothing) {
  ArrangerFixture<ClassicHydra> f;
  EXPECT_EQ(f.evaluate(RoleOther), RoleOther);
  EXPECT_TRUE(f.elements().empty());
  f.params.curves.erase(IdHydraSpin);
  EXPECT_EQ(f.evaluate(), 0);
  EXPECT_TRUE(f.placements.empty());
}

TEST(ClassicPhiball, evenRowsOfAHalfBallHaveEqualArea) {
  ArrangerFixture<ClassicPhiball> f(1.0);
  f.params.setDouble(IdPhiballNumber, 3.0);
  f.params.setDouble(IdPhiballInfluence, 0.0);
  f.params.setDouble(IdPhiballRadius, 2.0);
  f.params.setCurve(IdPhiballFan, line(-kPi, kPi, 0.0, kPi));
  EXPECT_EQ(f.evaluate(0), RoleNodes);  // written whatever the mask says
  ASSERT_EQ(f.elements().size(), 3u);
  const double golden = 3.8832221;
  const double thetas[] = {kPi, kPi / 2, 0.0};
  for (size_t i = 0; i < 3; ++i) {
    const double phi = golden * i, theta = thetas[i];
    expectNear(
        f.at(i),
        Vector3(std::sin(theta) * std::sin(phi), std::sin(theta) * std::cos(phi), std::cos(theta)) *
            2.0,
        1e-9);
    expectNear(f.elements()[i].matrix.row(2), f.at(i) / 2.0, 1e-9);  // z points outward
  }
}

TEST(ClassicPhiball, manyEvenRowsCutEqualAreasAndTurnByTheGoldenAngle) {
  ArrangerFixture<ClassicPhiball> f(1.0);
  const int n = 40;
  f.params.setDouble(IdPhiballNumber, n);
  f.params.setDouble(IdPhiballInfluence, 0.0);
  f.params.setDouble(IdPhiballRadius, 1.0);
  f.params.setCurve(IdPhiballFan, line(-kPi, kPi, 0.0, kPi));
  f.evaluate();
  ASSERT_EQ(f.elements().size(), static_cast<size_t>(n));
  for (int i = 0; i + 1 < n; ++i) {
    // The cap above a row on a unit sphere has area 2 pi (1 - cos theta): equal steps of z.
    EXPECT_NEAR(f.at(i + 1).z - f.at(i).z, 2.0 / (n - 1), 1e-9);
    const double turn = std::atan2(f.at(i).x, f.at(i).y) - std::atan2(f.at(i + 1).x, f.at(i + 1).y);
    if (i > 0 && i + 2 < n) {  // the poles have no azimuth
      EXPECT_NEAR(std::remainder(-turn - 3.8832221, 2 * kPi), 0.0, 1e-9);
    }
  }
}

TEST(ClassicPhiball, aBandAboveTheEquatorIsWidestAtItsLowerEdgeAndSitsOnTheShift) {
  ArrangerFixture<ClassicPhiball> f(1.0);
  f.params.setDouble(IdPhiballNumber, 2.0);
  f.params.setDouble(IdPhiballInfluence, 0.0);
  f.params.setDouble(IdPhiballRadius, 1.0);
  f.params.setCurve(IdPhiballFan, line(-kPi, kPi, kPi / 6, kPi / 3));
  f.params.setCurve(IdPhiballTrans, line(0.0, 1.0, 0.5, 0.5));
  f.evaluate();
  ASSERT_EQ(f.elements().size(), 2u);
  // The widest ring (theta pi/3) is exactly the radius wide and stands at the shift.
  const Vector3 widest = f.at(0);
  EXPECT_NEAR(std::hypot(widest.x, widest.y), 1.0, 1e-9);
  EXPECT_NEAR(widest.z, 0.5, 1e-9);
}

TEST(ClassicPhiball, aBandOfNoSpanIsOneRing) {
  ArrangerFixture<ClassicPhiball> f(1.0);
  f.params.setDouble(IdPhiballNumber, 5.0);
  f.params.setDouble(IdPhiballInfluence, 0.0);
  f.params.setCurve(IdPhiballFan, line(-kPi, kPi, kPi / 4, kPi / 4));
  f.evaluate();
  ASSERT_EQ(f.elements().size(), 5u);
  for (size_t i = 1; i < 5; ++i) EXPECT_NEAR(f.at(i).z, f.at(0).z, 1e-9);
}

TEST(ClassicPhiball, influenceGivesElementsOfScaleZeroNoRoom) {
  ArrangerFixture<ClassicPhiball> f(1.0);
  f.params.setDouble(IdPhiballNumber, 6.0);
  f.params.setDouble(IdPhiballRadius, 1.0);
  f.params.setCurve(IdPhiballFan, line(-kPi, kPi, 0.0, kPi));
  // scale falls from 1 to 0: the last element is not placed, and the rows narrow with it.
  f.params.setCurve(IdPhiballScale, line(0.0, 2.0, 1.0, 0.0));
  f.evaluate();
  const auto& elements = f.elements();
  ASSERT_EQ(elements.size(), 5u);
  double total = 0.0;  // shares v^2 / peak, taken at i / 6 over five elements; peak 1
  for (int i = 0; i < 5; ++i) total += std::pow(1.0 - i / 6.0, 2);
  double left = total;
  for (size_t i = 0; i < 5; ++i) {
    const double v = 1.0 - i / 5.0;
    EXPECT_DOUBLE_EQ(elements[i].position, i / 5.0);
    // On a unit ball from theta pi to 0 the height is 1 - 2 left / total.
    EXPECT_NEAR(f.at(i).z, 1.0 - 2.0 * left / total, 1e-9);
    left -= v * v;
  }
}

TEST(ClassicPhiball, constantScaleWithInfluenceMatchesEvenRowsEndToEnd) {
  ArrangerFixture<ClassicPhiball> even(1.0), weighted(1.0);
  for (auto* f : {&even.params, &weighted.params}) {
    f->setDouble(IdPhiballNumber, 7.0);
    f->setCurve(IdPhiballFan, line(-kPi, kPi, 0.0, kPi));
  }
  even.params.setDouble(IdPhiballInfluence, 0.0);
  even.evaluate();
  weighted.evaluate();
  ASSERT_EQ(weighted.elements().size(), 7u);
  for (size_t i = 0; i < 7; ++i) expectNear(weighted.at(i), even.at(i), 1e-9);
}

TEST(ClassicPhiball, badCountsAndCurvesFallBackQuietly) {
  ArrangerFixture<ClassicPhiball> f(1.0);
  f.params.setDouble(IdPhiballNumber, 0.5);
  EXPECT_EQ(f.evaluate(), 0);
  f.params.setDouble(IdPhiballNumber, 1.0);
  EXPECT_EQ(f.evaluate(), RoleNodes | RoleOther);
  EXPECT_EQ(f.elements().size(), 1u);
  f.params.setDouble(IdPhiballNumber, 2.5);  // the extra element of a fractional number
  f.params.setDouble(IdPhiballInfluence, 0.0);
  f.evaluate();
  EXPECT_EQ(f.elements().size(), 3u);
  for (size_t i = 0; i < 3; ++i) EXPECT_TRUE(std::isfinite(f.at(i).z));
  f.params.setDouble(IdPhiballInfluence, 1.0);
  f.params.setCurve(IdPhiballScale, line(0.0, 2.0, 0.0, 0.0));  // no shares: even rows
  f.evaluate();
  EXPECT_EQ(f.elements().size(), 3u);
  f.params.curves.erase(IdPhiballAngle);
  EXPECT_EQ(f.evaluate(), 0);
}
