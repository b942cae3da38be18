#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <sstream>

#include "scene/Chunk.h"
#include "scene/MvrValue.h"
#include "support/GeometryExpectations.h"

using mv::MvrValue;

namespace {

// A block read from text; kept alive until the next call.
const mv::Chunk& blockOf(const std::string& text) {
  static std::unique_ptr<mv::Chunk> chunk;
  chunk = std::make_unique<mv::Chunk>();
  std::istringstream stream(text);
  chunk->read(stream);
  return *chunk;
}

}  // namespace

TEST(MvrValueNumbers, readTheLongestDecimalPrefixLeniently) {
  const std::pair<const char*, double> rows[] = {
      {"12", 12},
      {"  -3.5e2xyz", -350},
      {"+.5", 0.5},
      {"1.", 1},
      {"7e", 7},
      {"7e+", 7},
      {"2E-1,", 0.2},
      {"abc", 0},
      {"", 0},
      {".", 0},
      {"-", 0},
      {"0x10", 0},
      {"inf", 0},
      {"nan", 0},
      {"\t4 5", 4},
      {"1e400", HUGE_VAL},
      {"-1e400", -HUGE_VAL},
      {"1e-400", 0},
  };
  for (const auto& [text, expected] : rows) EXPECT_EQ(MvrValue::real(text), expected) << text;
}

TEST(MvrValueNumbers, integersStopAtTheFirstNonDigitAndSaturate) {
  EXPECT_EQ(MvrValue::integer(" 12.7"), 12);
  EXPECT_EQ(MvrValue::integer("-40x"), -40);
  EXPECT_EQ(MvrValue::integer("+3"), 3);
  EXPECT_EQ(MvrValue::integer("x3"), 0);
  EXPECT_EQ(MvrValue::integer("2000000000"), 2000000000);
  EXPECT_EQ(MvrValue::integer("99999999999999999999999"), INT_MAX);
  EXPECT_EQ(MvrValue::integer("-99999999999999999999999"), INT_MIN);
  EXPECT_EQ(MvrValue::wholeNumber(6.9), 6);
  EXPECT_EQ(MvrValue::wholeNumber(-6.9), -6);
  EXPECT_EQ(MvrValue::wholeNumber(1e300), INT_MAX);
  EXPECT_EQ(MvrValue::wholeNumber(-HUGE_VAL), INT_MIN);
  EXPECT_EQ(MvrValue::wholeNumber(std::nan("")), 0);
  EXPECT_EQ(MvrValue::single(1e300), HUGE_VALF);
  EXPECT_EQ(MvrValue::single(0.5), 0.5f);
}

TEST(MvrValueForms, keywordBooleanTextAndBareWord) {
  std::string rest;
  EXPECT_EQ(MvrValue::keyword("Name \"Tree\"", rest), "Name");
  EXPECT_EQ(rest, "\"Tree\"");
  EXPECT_EQ(MvrValue::keyword("Hide", rest), "Hide");
  EXPECT_EQ(rest, "");
  EXPECT_EQ(MvrValue::keyword("  Indented", rest), "");
  EXPECT_TRUE(MvrValue::boolean(" TRUE "));
  EXPECT_FALSE(MvrValue::boolean("true"));
  EXPECT_FALSE(MvrValue::boolean("TRUE!"));
  EXPECT_EQ(MvrValue::text("\"a b\" tail"), "a b");
  EXPECT_EQ(MvrValue::text("unquoted"), "");
}

TEST(MvrValueForms, triples) {
  const mv::MvrTriple t = MvrValue::triple("{5,0.001,20}");
  EXPECT_EQ(t.value, 5);
  EXPECT_EQ(t.lower, 0.001);
  EXPECT_EQ(t.upper, 20);
  const mv::MvrTriple partial = MvrValue::triple("{5}");
  EXPECT_EQ(partial.value, 5);
  EXPECT_EQ(partial.upper, 0);
  const mv::MvrTriple noBraces = MvrValue::triple("1,2,3");
  EXPECT_EQ(noBraces.value, 0);
  EXPECT_EQ(noBraces.lower, 0);
  EXPECT_EQ(noBraces.upper, 0);
  expectNear(MvrValue::plainTriple("255, 128 ,0"), {255, 128, 0}, 0);
  expectNear(MvrValue::plainTriple("1"), {1, 0, 0}, 0);
}

TEST(MvrValueForms, limitedTripleTakesOneBraceGroupPerAxis) {
  const mv::MvrLimitedTriple t = MvrValue::limitedTriple("{1,2,3} {4,5,6} {7,8,9}");
  expectNear(t.value, {1, 4, 7}, 0);
  expectNear(t.lower, {2, 5, 8}, 0);
  expectNear(t.upper, {3, 6, 9}, 0);
  const mv::MvrLimitedTriple one = MvrValue::limitedTriple("{1,2,3}");
  expectNear(one.value, {1, 0, 0}, 0);
  expectNear(one.upper, {3, 0, 0}, 0);
}

TEST(MvrValueForms, rangeStopsAtTheFirstEmptyPiece) {
  mv::MvrRange full;
  MvrValue::range("2,3,\"sin\",-1,4", full);
  EXPECT_EQ(full.start, 2);
  EXPECT_EQ(full.end, 3);
  EXPECT_EQ(full.function, "sin");
  EXPECT_EQ(full.min, -1);
  EXPECT_EQ(full.max, 4);

  mv::MvrRange partial(9, 9, "cos", 8, 8);
  MvrValue::range("1,2", partial);
  EXPECT_EQ(partial.start, 1);
  EXPECT_EQ(partial.end, 2);
  EXPECT_EQ(partial.function, "cos");
  EXPECT_EQ(partial.min, 8);

  mv::MvrRange gap(9, 9, "cos", 8, 8);
  MvrValue::range("1,,\"id\",0,1", gap);
  EXPECT_EQ(gap.start, 1);
  EXPECT_EQ(gap.end, 9);
  EXPECT_EQ(gap.function, "cos");

  mv::MvrRange unquoted;
  MvrValue::range("0,1,id,5", unquoted);
  EXPECT_EQ(unquoted.function, "");
  EXPECT_EQ(unquoted.min, 5);
}

TEST(MvrValueLists, knotsFollowTheSizeLineAsFarAsLinesExist) {
  const auto knots = MvrValue::knots(blockOf("Size 3\n0,0.9,0\n0.5,0.6,0\n"));
  ASSERT_EQ(knots.size(), 2u);
  expectNear(knots[1], {0.5, 0.6, 0}, 0);
  EXPECT_EQ(MvrValue::knots(blockOf("Size 1\n1,2,3\n4,5,6\n")).size(), 1u);
  EXPECT_TRUE(MvrValue::knots(blockOf("")).empty());
  EXPECT_TRUE(MvrValue::knots(blockOf("Count 2\n1,2,3\n")).empty());
  EXPECT_TRUE(MvrValue::knots(blockOf("Size 0\n1,2,3\n")).empty());
  EXPECT_TRUE(MvrValue::knots(blockOf("Size -4\n1,2,3\n")).empty());
  const auto huge = MvrValue::knots(blockOf("Size 2000000000\n1,2,3\n"));
  ASSERT_EQ(huge.size(), 1u);
  EXPECT_LE(huge.capacity(), 1u);
}

TEST(MvrValueLists, namesFormASortedSetWithoutRepeats) {
  const auto names = MvrValue::names(blockOf("\"Leaf\"\n  \"Branch\"  \n\"Leaf\"\n\"B b\"\n"));
  EXPECT_EQ(names, (std::set<std::string>{"B b", "Branch", "Leaf"}));
}

TEST(MvrValueLists, masksAreLowSixteenBitsOfHexPieces) {
  const auto masks = MvrValue::masks(blockOf("0xFF,0xff,255\n0x1ffff,,0xfffe\n0xg,0x\n0xAbC9q\n"));
  const std::vector<std::uint16_t> expected{255, 255, 0, 0xffff, 0, 0xfffe, 0, 0, 0xabc9};
  EXPECT_EQ(masks, expected);
  EXPECT_EQ(MvrValue::masks(blockOf("0x123456789abcdef0123\n")),
            std::vector<std::uint16_t>{0x0123});
}
