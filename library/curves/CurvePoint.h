// CurvePoint: one point of a drawn curve with its two control points, and the point types.
#pragma once

#include <cstdint>

namespace mv {

enum CurvePointType : int32_t {
  PointCorner = 0,    // both control points on the point
  PointSmooth = 1,    // control points computed from the neighbours
  PointMirrored = 2,  // set by the user, mirrored through the point; never the first or last
  PointFree = 3,      // set by the user, independent
};

struct CurvePoint {
  double x = 0.0;                 // position, 0 to 1
  double y = 0.0;                 // value
  double inX = 0.0, inY = 0.0;    // control point toward the previous point
  double outX = 0.0, outY = 0.0;  // control point toward the next point
  int32_t type = PointCorner;
  int32_t id = 0;  // 0 the first point, 1 the last point, 2 and above inner points

  // A point with both control points on it.
  static CurvePoint at(double x, double y, int32_t type, int32_t id) {
    CurvePoint point;
    point.x = x;
    point.y = y;
    point.collapseControls();
    point.type = type;
    point.id = id;
    return point;
  }

  // Puts both control points on the point itself.
  void collapseControls() {
    inX = outX = x;
    inY = outY = y;
  }
  // Moves the point with its control points.
  void shiftX(double dx) {
    x += dx;
    inX += dx;
    outX += dx;
  }
  void shiftY(double dy) {
    y += dy;
    inY += dy;
    outY += dy;
  }
};

}  // namespace mv
