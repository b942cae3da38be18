// CurvatureSplineData: the curvature spline as a host spline object. The host reads it like any
// spline; GetContour walks the turtle and hands the host a spline through the steps' positions.
#pragma once

#include "geometry/CurvatureSpline.h"
#include "source/MorvoObjectData.h"

class CurvatureSplineData : public MorvoObjectData, public mv::CurvatureSpline {
 public:
  // Whether the spline handed to the host is cubic (otherwise linear).
  static constexpr Int32 kCubic = 1210;

  Bool Init(GeListNode* node) override;
  Bool GetDEnabling(GeListNode* node, const DescID& id, const GeData& value, DESCFLAGS_ENABLE flags,
                    const BaseContainer* itemdesc) override;
  SplineObject* GetContour(BaseObject* op, BaseDocument* doc, Float lod,
                           BaseThread* thread) override;
  static NodeData* Alloc() { return new CurvatureSplineData; }
};
