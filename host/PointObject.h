// PointObject: an object made of points (the deformer grid is one; polygon, spline and line
// objects build on it).
#pragma once

#include <vector>

#include "host/BaseObject.h"

class PointObject : public BaseObject {
 public:
  explicit PointObject(Int32 type) : BaseObject(type) {}
  Int32 GetPointCount() const { return static_cast<Int32>(points_.size()); }
  const Vector* GetPointR() const { return points_.data(); }
  Vector* GetPointW() { return points_.data(); }
  // New points are zero; false (nothing changed) for a negative or too large count.
  Bool ResizePoints(Int32 count);

 protected:
  BaseObject* cloneObject() const override;
  void copyPointsTo(PointObject* target) const { target->points_ = points_; }

 private:
  std::vector<Vector> points_;
};
