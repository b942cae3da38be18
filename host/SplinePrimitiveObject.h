// SplinePrimitiveObject: the class data of the host's spline primitives, spline plug-ins whose
// contour is a linear spline with its points on the shape, so that the line drawn from it is
// exact. The object's intermediate points (1001; 1003 number, 1004 angle) decide how many:
// none gives the corners only (4 for a circle), natural, uniform and subdivided put `number`
// points between corners, adaptive enough that the line turns by at most `angle` at a point.
// Parameters and Init's defaults:
//  circle 5181  2012 radius 200; 2010 ring (false) with 2011 inner radius 100 as a second,
//               inner segment
//  n-side 5179  2130 radius 200; 2131 sides 6 (3 at least); 2132 rounding (not drawn)
//  arc 5182     2000 type 0; 2001 radius 200; 2005 start angle 0; 2006 end angle 90 degrees;
//               open, from start to end counter-clockwise
// Plane 2300: 0 xy, 1 zy, 2 xz.
#pragma once

#include "host/ObjectData.h"

class SplinePrimitiveObject : public ObjectData {
 public:
  static NodeData* Alloc() { return new SplinePrimitiveObject(); }
  Bool Init(GeListNode* node) override;
  SplineObject* GetContour(BaseObject* op, BaseDocument* doc, Float lod,
                           BaseThread* thread) override;
};
