// CurveStorage: the stored layout of a curve. Writes level 3; reads levels 1, 2 and 3.
//
// Level 3, in order: int32 count of all points, per point (index order) int32 id, float64 x, y,
// in x, in y, out x, out y and int32 type; the expression text; float64 maximum; float64 minimum;
// int32 fixedLimits. Level 1 stores per point only x and y, level 2 id, x and y; both add an int32
// type for all points before fixedLimits.
//
// Reading never trusts the data: a point the curve refuses is dropped, a text that does not parse
// keeps the old expression, and reading stops quietly where the stream runs out, keeping what was
// read. A hostile count costs nothing beyond the data actually present.
#pragma once

#include <cstdint>

#include "curves/CurveParam.h"
#include "source/CurveStream.h"

class CurveStorage {
 public:
  static constexpr int32_t kLevel = 3;

  // False when the stream refused a value.
  static bool write(const mv::CurveParam& curve, CurveStream& stream);
  // True for levels 1 to 3 (whatever the data held); any other level reports
  // "Invalid Instance Data Version", reads nothing, keeps the curve and is true as well.
  static bool read(mv::CurveParam& curve, CurveStream& stream, int32_t level);

 private:
  static bool readPoints(mv::CurveParam& curve, CurveStream& stream, int32_t level);
  static bool readPoint(CurveStream& stream, int32_t level, mv::CurvePoint& point);
  static bool readTail(mv::CurveParam& curve, CurveStream& stream, int32_t level);
};
