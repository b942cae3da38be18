#include "geometry/SplineData.h"

#include <exception>
#include <string>

#include "core/MessageSink.h"

namespace mv {

uint32_t SplineData::getSegmentCount() const { return static_cast<uint32_t>(segments.size()); }

uint32_t SplineData::getSegmentPointCount(uint32_t segment) const {
  return segment < segments.size() ? segments[segment].pointCount : 0;
}

bool SplineData::isSegmentClosed(uint32_t segment) const {
  return segment < segments.size() && segments[segment].closed;
}

void SplineData::getPosition(double, uint32_t, bool, Vector3& position) const {
  position = Vector3();
}

uint32_t SplineData::getPointCount() const { return static_cast<uint32_t>(points.size()); }

bool SplineData::getPoint(uint32_t index, double& t, Vector3& point) const {
  if (index >= points.size()) return false;
  t = points[index].t;
  point = points[index].position;
  return true;
}

namespace {

bool refuseAllocation(const char* why, uint32_t pointCount, uint32_t segmentCount) {
  messageSink.error(std::string("Spline: ") + why + " " + std::to_string(pointCount) +
                    " points and " + std::to_string(segmentCount) + " segments");
  return false;
}

}  // namespace

bool SplineData::allocate(uint32_t pointCount, uint32_t segmentCount) {
  if (pointCount > kMaxCount || segmentCount > kMaxCount) {
    return refuseAllocation("refusing to allocate", pointCount, segmentCount);
  }
  try {
    // The fresh segment list comes first: a failing resize of the points then changes nothing.
    std::vector<Segment> freshSegments(segmentCount);
    points.resize(pointCount);
    segments.swap(freshSegments);
  } catch (const std::exception&) {  // bad_alloc
    return refuseAllocation("out of memory for", pointCount, segmentCount);
  }
  return true;
}

bool SplineData::finish() { return true; }

bool SplineData::setPoint(uint32_t index, double t, const Vector3& point) {
  if (index >= points.size()) return false;
  points[index] = {t, point};
  return true;
}

bool SplineData::setSegment(uint32_t index, uint32_t pointCount, bool closed) {
  if (index >= segments.size()) return false;
  segments[index] = {pointCount, closed};
  return true;
}

}  // namespace mv
