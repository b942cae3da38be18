// SplineData: the in-memory spline of the library, as a scene file or a copy fills it. It stores
// points and segments and nothing between them: getPosition answers the zero vector, so frames
// from getFrame and getAngleFrame have a zero position row. PolylineSpline adds positions.
#pragma once

#include <cstdint>
#include <vector>

#include "geometry/Spline.h"

namespace mv {

class SplineData : public Spline {
 public:
  struct Segment {
    uint32_t pointCount = 0;
    bool closed = false;
  };

  // allocate refuses more points or segments than this: paths have some hundred points, and a
  // wild count from a damaged file must not exhaust memory.
  static constexpr uint32_t kMaxCount = 1u << 24;

  std::vector<Point> points;
  std::vector<Segment> segments;

  uint32_t getSegmentCount() const override;
  uint32_t getSegmentPointCount(uint32_t segment) const override;
  bool isSegmentClosed(uint32_t segment) const override;
  void getPosition(double t, uint32_t segment, bool smooth, Vector3& position) const override;
  uint32_t getPointCount() const override;
  bool getPoint(uint32_t index, double& t, Vector3& point) const override;
  bool isPolyline() const override { return true; }

  // Resizes both lists, keeping earlier points, and resets every segment to 0 points, open.
  // False, with an error message and nothing changed, above kMaxCount or when memory runs out.
  bool allocate(uint32_t pointCount, uint32_t segmentCount) override;
  bool finish() override;
  bool setPoint(uint32_t index, double t, const Vector3& point) override;
  bool setSegment(uint32_t index, uint32_t pointCount, bool closed) override;
};

}  // namespace mv
