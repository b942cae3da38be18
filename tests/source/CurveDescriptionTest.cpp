#include "source/CurveDescription.h"

#include <gtest/gtest.h>

#include "source/CurveUnit.h"

using mv::CurveParam;
using mv::CurvePoint;

namespace {

std::vector<int32_t> numbers(const std::vector<CurveDescriptionEntry>& entries) {
  std::vector<int32_t> result;
  for (const CurveDescriptionEntry& entry : entries) result.push_back(entry.number);
  return result;
}

const CurveDescriptionEntry& find(const std::vector<CurveDescriptionEntry>& entries,
                                  int32_t number) {
  for (const CurveDescriptionEntry& entry : entries) {
    if (entry.number == number) return entry;
  }
  ADD_FAILURE() << "no entry " << number;
  return entries.front();
}

}  // namespace

TEST(CurveDescription, endPointsShowNoXAndOnlyTheirInnerControls) {
  CurveParam curve;
  curve.setPointType(0, mv::PointFree);
  curve.setPointType(1, mv::PointFree);
  const auto entries = CurveDescription::entries(curve, UnitNone);
  const std::vector<int32_t> expected = {1002, 1001, 1000, 1201, 1202, 1205,
                                         1206, 1211, 1212, 1213, 1214};
  EXPECT_EQ(numbers(entries), expected);
}

TEST(CurveDescription, pointsComeByAscendingIdWithTheFieldsTheirTypeAllows) {
  CurveParam curve;
  curve.addPoint(0.8, 0.5, mv::PointSmooth);  // id 3
  curve.setPoint(CurvePoint::at(0.3, 0.5, mv::PointMirrored, 4), true);
  const auto entries = CurveDescription::entries(curve, UnitNone);
  const std::vector<int32_t> expected = {1002, 1001, 1000, 1201, 1202, 1211, 1212, 1230, 1231,
                                         1232, 1240, 1241, 1242, 1243, 1244, 1245, 1246};
  EXPECT_EQ(numbers(entries), expected);
  EXPECT_EQ(find(entries, 1240).name, "[3] X");
  EXPECT_EQ(find(entries, 1241).name, "[3] Y");
  EXPECT_EQ(find(entries, 1245).name, "[3] Out X");
  EXPECT_EQ(find(entries, 1201).name, "Start Y");
  EXPECT_EQ(find(entries, 1212).name, "End Type");
}

TEST(CurveDescription, fieldsCarryKindBoundsStepsUnitAndChoices) {
  CurveParam curve;
  curve.setPoint(CurvePoint::at(0.5, 0.5, mv::PointFree, 2), true);
  const int32_t degrees = fourCharCode("fdgr");
  const auto entries = CurveDescription::entries(curve, UnitDegree);
  const CurveDescriptionEntry& maximum = find(entries, 1002);
  EXPECT_EQ(maximum.kind, CurveDescriptionEntry::KindReal);
  EXPECT_EQ(maximum.integers.at(12), degrees);
  EXPECT_EQ(maximum.integers.at(10), 0);
  EXPECT_EQ(find(entries, 1000).kind, CurveDescriptionEntry::KindText);
  const CurveDescriptionEntry& x = find(entries, 1220);
  EXPECT_EQ(x.reals, (std::map<int32_t, double>{{5, 0.0}, {6, 1.0}, {9, 0.05}}));
  EXPECT_EQ(x.flags, (std::map<int32_t, bool>{{7, true}, {8, true}}));
  EXPECT_TRUE(x.integers.empty());
  const CurveDescriptionEntry& type = find(entries, 1222);
  EXPECT_EQ(type.kind, CurveDescriptionEntry::KindInteger);
  ASSERT_EQ(type.choices.size(), 4u);
  EXPECT_EQ(type.choices[2], (std::pair<int32_t, std::string>{2, "Mirrored"}));
  // Y fields take the unit; X fields of control points do not.
  for (int32_t number : {1221, 1224, 1226})
    EXPECT_EQ(find(entries, number).integers.at(12), degrees);
  for (int32_t number : {1223, 1225}) EXPECT_EQ(find(entries, number).integers.count(12), 0u);
}

TEST(CurveUnit, codesAndValueTexts) {
  const struct {
    int32_t unit;
    const char* code;
    double y;
    const char* text;
  } rows[] = {
      {UnitPercent, "fpct", 0.5, "50 %"},
      {UnitDegree, "fdgr", 3.14159265358979323846 / 2, "90\xC2\xB0"},
      {UnitMeter, "fmet", 2.25, "2.25 m"},
      {UnitNone, "frea", -0.125, "-0.125"},
      {17, "frea", 1.0 / 3, "0.333"},
  };
  for (const auto& row : rows) {
    const char(&code)[5] = *reinterpret_cast<const char(*)[5]>(row.code);
    EXPECT_EQ(curveUnitCode(row.unit), fourCharCode(code)) << row.unit;
    EXPECT_EQ(curveValueText(row.unit, row.y), row.text) << row.unit;
  }
  EXPECT_EQ(fourCharCode("frea"), 0x66726561);
}
