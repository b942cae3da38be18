// SplineObject: control points with handles, in segments (Ospline). Its settings: type 1000
// (0 linear, 1 cubic; other types are drawn as cubic), intermediate points 1001 (0 none,
// 1 natural, 2 uniform, 3 adaptive, 4 subdivided), closed 1002, number 1003, angle 1004.
//
// How the host draws it as a line: a linear span is a straight line, a cubic span the
// Catmull-Rom curve through the points (end tangents along the first and last chord, a closed
// segment wraps). Natural, uniform and subdivided put `number` points inside each span at
// equal parameter steps; adaptive puts none inside a linear span and, inside a cubic span,
// enough that consecutive chords turn by at most `angle` (at most 64). A spline without
// segments is one segment of all points, closed by 1002; a segment is closed when its own flag
// or 1002 says so.
#pragma once

#include "host/PointObject.h"
#include "host/Segment.h"
#include "host/Tangent.h"

class BaseThread;
class LineObject;

class SplineObject : public PointObject {
 public:
  SplineObject() : PointObject(Ospline) {}
  // A spline of that type with zero points; null for a bad count.
  static SplineObject* Alloc(Int32 pointCount, Int32 type);
  Bool ResizeObject(Int32 pointCount, Int32 segmentCount);

  Int32 GetSegmentCount() const { return static_cast<Int32>(segments_.size()); }
  const Segment* GetSegmentR() const { return segments_.data(); }
  Segment* GetSegmentW() { return segments_.data(); }
  const Tangent* GetTangentR() const { return tangents_.data(); }
  Tangent* GetTangentW() { return tangents_.data(); }
  Int32 GetInterpolationType() const;
  Bool IsClosed() const;

  SplineObject* GetRealSpline() override { return this; }
  // The spline drawn as a line object, the caller's.
  LineObject* GetLineObject(BaseDocument* doc, Float lod, BaseThread* thread) const;

 protected:
  BaseObject* cloneObject() const override;

 private:
  std::vector<Segment> segments_;
  std::vector<Tangent> tangents_;
};
