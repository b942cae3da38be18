// C4dLine: a host line object seen as a library spline. Points are read through a matrix (the
// identity unless given) with y and z swapped into the library's axes; the parameter of each
// point comes from the line's Tline data. Writing moves points in place, which is how a spline
// modifier bends a line.
#pragma once

#include <cstdint>

#include "geometry/Spline.h"
#include "host/LineObject.h"
#include "host/Matrix.h"

class C4dLine : public mv::Spline {
 public:
  C4dLine() = default;
  C4dLine(LineObject* lineObject, const Matrix& matrix);

  void setLine(LineObject* lineObject, const Matrix& matrix);
  LineObject* getLineObject() const { return lineObject; }

  int truthValue() const override { return lineObject != nullptr ? -1 : 0; }
  bool operator!() const override { return lineObject == nullptr; }
  uint32_t getSegmentCount() const override;
  uint32_t getSegmentPointCount(uint32_t segment) const override;
  bool isSegmentClosed(uint32_t segment) const override;
  void getPosition(double t, uint32_t segment, bool smooth, mv::Vector3& position) const override;
  uint32_t getPointCount() const override;
  bool getPoint(uint32_t index, double& t, mv::Vector3& point) const override;
  bool isPolyline() const override { return true; }
  bool allocate(uint32_t pointCount, uint32_t segmentCount) override;
  bool finish() override;
  bool setPoint(uint32_t index, double t, const mv::Vector3& point) override;
  bool setSegment(uint32_t index, uint32_t pointCount, bool closed) override;

 private:
  // The point in library axes, through the matrix.
  mv::Vector3 libraryPoint(uint32_t index) const;
  double parameterOf(uint32_t index) const;

  Matrix matrix;
  LineObject* lineObject = nullptr;
};
