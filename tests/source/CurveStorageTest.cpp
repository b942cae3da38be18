#include "source/CurveStorage.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "source/CurveComparison.h"
#include "support/ByteCurveStream.h"
#include "support/CapturingMessageHandler.h"

using mv::CurveParam;
using mv::CurvePoint;

namespace {

// A curve with every kind of point, both limits and a fixed lower limit.
CurveParam sampleCurve() {
  CurveParam curve(-1.0, 2.0, 0.25, 0.75, "sin");
  curve.addPoint(0.3, 1.5, mv::PointSmooth);
  CurvePoint free = CurvePoint::at(0.6, -0.5, mv::PointFree, 7);
  free.inX = 0.55;
  free.inY = -0.25;
  free.outX = 0.7;
  free.outY = 0.125;
  EXPECT_TRUE(curve.setPoint(free, true));
  curve.setFixedLimits(1);
  return curve;
}

// Writes the values of a stored curve by hand, in the order given.
struct HandStream {
  ByteCurveStream stream;
  HandStream& i(int32_t value) {
    stream.writeInt32(value);
    return *this;
  }
  HandStream& f(double value) {
    stream.writeFloat64(value);
    return *this;
  }
  HandStream& s(const std::string& text) {
    stream.writeString(text);
    return *this;
  }
};

void expectSamePoints(const CurveParam& a, const CurveParam& b) {
  ASSERT_EQ(a.getPointCount(), b.getPointCount());
  for (int index = 0; index < a.getPointCount(); ++index) {
    const CurvePoint& p = *a.getPoint(index);
    const CurvePoint& q = *b.getPoint(index);
    EXPECT_EQ(p.id, q.id);
    EXPECT_EQ(p.type, q.type);
    EXPECT_DOUBLE_EQ(p.x, q.x);
    EXPECT_DOUBLE_EQ(p.y, q.y);
    EXPECT_DOUBLE_EQ(p.inX, q.inX);
    EXPECT_DOUBLE_EQ(p.inY, q.inY);
    EXPECT_DOUBLE_EQ(p.outX, q.outX);
    EXPECT_DOUBLE_EQ(p.outY, q.outY);
  }
}

}  // namespace

TEST(CurveStorage, writesLevelThreeWithMaximumBeforeMinimum) {
  CurveParam curve(-1.0, 2.0, 0.25, 0.75, "u");
  curve.setFixedLimits(2);
  ByteCurveStream written;
  ASSERT_TRUE(CurveStorage::write(curve, written));
  HandStream hand;
  hand.i(2).i(0).f(0).f(0.25).f(0).f(0.25).f(0).f(0.25).i(0);
  hand.i(1).f(1).f(0.75).f(1).f(0.75).f(1).f(0.75).i(0);
  hand.s("u").f(2.0).f(-1.0).i(2);
  EXPECT_EQ(written.bytes(), hand.stream.bytes());
}

TEST(CurveStorage, levelThreeRoundTripKeepsPointsLimitsAndExpressionText) {
  const CurveParam original = sampleCurve();
  ByteCurveStream stream;
  ASSERT_TRUE(CurveStorage::write(original, stream));
  CurveParam read;
  ASSERT_TRUE(CurveStorage::read(read, stream, 3));
  EXPECT_EQ(stream.position(), stream.bytes().size());
  expectSamePoints(original, read);
  EXPECT_EQ(read.minimum(), -1.0);
  EXPECT_EQ(read.maximum(), 2.0);
  EXPECT_EQ(read.fixedLimits(), 1);
  std::string before, after;
  original.getExpression(before);
  read.getExpression(after);
  EXPECT_EQ(before, after);
  // Equal in every field, but the read expression is a tree of its own.
  EXPECT_EQ(CurveComparison::compare(&original, &read), 1);
}

TEST(CurveStorage, levelOneAddsSmoothPointsAndSetsAllTypes) {
  HandStream hand;
  hand.i(4).f(0.0).f(0.5).f(0.25).f(1.0).f(0.75).f(0.0).f(1.0).f(0.5);
  hand.s("x*2").f(3.0).f(-3.0).i(mv::PointCorner).i(3);
  CurveParam curve;
  ASSERT_TRUE(CurveStorage::read(curve, hand.stream, 1));
  ASSERT_EQ(curve.getPointCount(), 4);
  const int ids[] = {0, 3, 4, 1};
  const double ys[] = {0.5, 1.0, 0.0, 0.5};
  for (int index = 0; index < 4; ++index) {
    EXPECT_EQ(curve.getPoint(index)->id, ids[index]);
    EXPECT_EQ(curve.getPoint(index)->y, ys[index]);
    EXPECT_EQ(curve.getPoint(index)->type, mv::PointCorner);
  }
  EXPECT_EQ(curve.evaluate(0.25), 2.0);
  EXPECT_EQ(curve.maximum(), 3.0);
  EXPECT_EQ(curve.minimum(), -3.0);
  EXPECT_EQ(curve.fixedLimits(), 3);
}

TEST(CurveStorage, levelTwoKeepsIdsWithControlsOnThePoints) {
  HandStream hand;
  hand.i(3).i(0).f(0.0).f(0.0).i(9).f(0.5).f(1.0).i(1).f(1.0).f(0.0);
  hand.s("id").f(1.0).f(0.0).i(mv::PointFree).i(0);
  CurveParam curve;
  ASSERT_TRUE(CurveStorage::read(curve, hand.stream, 2));
  ASSERT_EQ(curve.getPointCount(), 3);
  const CurvePoint& middle = *curve.getPoint(1);
  EXPECT_EQ(middle.id, 9);
  EXPECT_EQ(middle.type, mv::PointFree);
  // Stored as a smooth point first, so its controls are those of a smooth point.
  EXPECT_DOUBLE_EQ(middle.inX, 0.5 - 0.5 / 3);
  EXPECT_DOUBLE_EQ(middle.outY, 1.0);
  EXPECT_EQ(curve.getPoint(2)->type, mv::PointFree);
}

TEST(CurveStorage, unknownLevelReportsAndKeepsTheCurve) {
  CapturingMessageHandler messages;
  const CurveParam original = sampleCurve();
  CurveParam curve = original;
  ByteCurveStream stream;
  CurveStorage::write(sampleCurve(), stream);
  for (int32_t level : {0, 4, -1}) {
    EXPECT_TRUE(CurveStorage::read(curve, stream, level));
  }
  EXPECT_EQ(stream.position(), 0u);
  EXPECT_EQ(CurveComparison::compare(&original, &curve), 0);
  EXPECT_EQ(messages.errors, std::vector<std::string>(3, "Invalid Instance Data Version"));
}

TEST(CurveStorage, refusedPointsAndBadTextsAreDroppedQuietly) {
  CapturingMessageHandler messages;
  HandStream hand;
  const double nan = std::numeric_limits<double>::quiet_NaN();
  hand.i(4);
  hand.i(0).f(0).f(0).f(0).f(0).f(0).f(0).i(0);
  hand.i(5).f(1.5).f(0).f(1.5).f(0).f(1.5).f(0).i(0);  // outside 0 to 1
  hand.i(6).f(nan).f(0).f(nan).f(0).f(nan).f(0).i(0);  // not a number
  hand.i(1).f(1).f(2).f(1).f(2).f(1).f(2).i(0);
  hand.s("sin(").f(4.0).f(-4.0).i(0);
  CurveParam curve(0.0, 1.0, 0.0, 0.0, "u");
  ASSERT_TRUE(CurveStorage::read(curve, hand.stream, 3));
  EXPECT_EQ(curve.getPointCount(), 2);
  EXPECT_EQ(curve.getPoint(1)->y, 2.0);
  std::string text;
  curve.getExpression(text);
  EXPECT_EQ(text, "u");
  EXPECT_EQ(curve.maximum(), 4.0);
  EXPECT_TRUE(messages.errors.empty());
}

TEST(CurveStorage, truncatedStreamsKeepWhatWasRead) {
  ByteCurveStream full;
  CurveStorage::write(sampleCurve(), full);
  for (size_t size = 0; size < full.bytes().size(); ++size) {
    ByteCurveStream cut(std::vector<uint8_t>(full.bytes().begin(), full.bytes().begin() + size));
    CurveParam curve;
    EXPECT_TRUE(CurveStorage::read(curve, cut, 3));
    EXPECT_GE(curve.getPointCount(), 2);
    EXPECT_LE(curve.getPointCount(), 4);
  }
}

TEST(CurveStorage, hostileCountReadsOnlyThePointsPresent) {
  HandStream hand;
  hand.i(std::numeric_limits<int32_t>::max()).i(2).f(0.5).f(1.0).f(0.5).f(1.0).f(0.5).f(1.0).i(0);
  CurveParam curve;
  EXPECT_TRUE(CurveStorage::read(curve, hand.stream, 3));
  EXPECT_EQ(curve.getPointCount(), 3);
}
