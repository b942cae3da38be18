// CurveDescription: the entries that the host's attribute panel lists for a curve parameter:
// maximum, minimum, expression, then for each point by ascending id its x (inner points only),
// y, type and the control points that its type makes editable.
#pragma once

#include <cstdint>
#include <vector>

#include "curves/CurveParam.h"
#include "source/CurveDescriptionEntry.h"

class CurveDescription {
 public:
  // Creator of every entry and the root under which they stand.
  static constexpr int32_t kCreator = 1010405;
  static constexpr int32_t kRoot = 1000491;

  // unit is the parameter's "UNIT" value.
  static std::vector<CurveDescriptionEntry> entries(const mv::CurveParam& curve, int32_t unit);

 private:
  static void addPointEntries(const mv::CurvePoint& point, int32_t unitCode,
                              std::vector<CurveDescriptionEntry>& entries);
};
