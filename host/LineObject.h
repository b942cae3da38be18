// LineObject: the polyline a spline is drawn as (Oline): points, a line tag (Tline) with each
// point's parameter along its segment, and a segment tag (Tsegment).
#pragma once

#include "host/PointObject.h"
#include "host/Segment.h"

class LineTag;
class SegmentTag;

class LineObject : public PointObject {
 public:
  LineObject() : PointObject(Oline) {}
  // With its line and segment tags; null for a bad count.
  static LineObject* Alloc(Int32 pointCount, Int32 segmentCount);
  Bool ResizeObject(Int32 pointCount, Int32 segmentCount);

  Int32 GetSegmentCount() const;
  const Segment* GetSegmentR() const;
  // The parameter of each point along its segment, or null without a line tag.
  const Float* GetLineR() const;
  LineTag* GetLineTag() const;
  SegmentTag* GetSegmentTag() const;

 protected:
  BaseObject* cloneObject() const override;
};
