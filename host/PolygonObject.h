// PolygonObject: points and polygons (Opolygon). Resizing keeps what fits and resizes the UVW
// tags with the polygons; new points and polygons are zero.
#pragma once

#include "host/CPolygon.h"
#include "host/PointObject.h"

class PolygonObject : public PointObject {
 public:
  PolygonObject() : PointObject(Opolygon) {}
  // Null for a negative or too large count.
  static PolygonObject* Alloc(Int32 pointCount, Int32 polygonCount);

  Int32 GetPolygonCount() const { return static_cast<Int32>(polygons_.size()); }
  const CPolygon* GetPolygonR() const { return polygons_.data(); }
  CPolygon* GetPolygonW() { return polygons_.data(); }
  // False, with nothing changed, for a negative or too large count.
  Bool ResizeObject(Int32 pointCount, Int32 polygonCount);

 protected:
  BaseObject* cloneObject() const override;

 private:
  std::vector<CPolygon> polygons_;
};
