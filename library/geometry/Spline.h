// Spline: a path as segments of polylines, each point with a parameter t that grows along its
// segment. There is no curve model between the points: the spline answers where it goes and
// which way it points from the polyline alone, and gives moving frames along it.
//
// Points are numbered across the whole spline: segment 0 takes the first
// getSegmentPointCount(0) indices, segment 1 the next, and so on. A frame is a Matrix4 whose rows
// are the x axis, the y axis, the tangent (z axis) and the position.
//
// Bad segment or point indices never fault: they give a zero vector or false. A zero-length
// piece gives a zero direction, which the frame builders absorb through their fall-backs.
#pragma once

#include <cstdint>

#include "core/Matrix4.h"
#include "core/Vector3.h"

namespace mv {

class Spline {
 public:
  // One stored point: its parameter and its place.
  struct Point {
    double t = 0.0;
    Vector3 position;
  };

  virtual ~Spline() = default;
  // All bits set when the spline has points, otherwise 0.
  virtual int truthValue() const { return getPointCount() != 0 ? -1 : 0; }
  virtual bool operator!() const { return getPointCount() == 0; }

  virtual uint32_t getSegmentCount() const = 0;
  // 0 for a segment that does not exist.
  virtual uint32_t getSegmentPointCount(uint32_t segment) const = 0;
  // False for a segment that does not exist.
  virtual bool isSegmentClosed(uint32_t segment) const = 0;
  // The place at parameter t on a segment. What lies between points is the implementation's
  // business; an in-memory spline without that knowledge answers the zero vector.
  virtual void getPosition(double t, uint32_t segment, bool smooth, Vector3& position) const = 0;
  // Direction at t, not normalised. Sharp: the polyline piece that ends at the first point whose
  // t reaches the argument. Smooth: blends linearly between the pieces before and behind the
  // nearest point as t runs between the midpoints of their parameters. Zero for a bad segment,
  // a segment of fewer than two points, or t past the segment's last parameter.
  virtual void getTangent(double t, uint32_t segment, bool smooth, Vector3& tangent) const;
  // The frame at t carried on from reference, the frame of the previous step: its y axis is the
  // reference's y axis with the part along the tangent removed, so that frames do not twist.
  // When the tangent runs along that y axis, the reference's x axis (or else the world x axis)
  // stands in. reference and frame may be the same object, here and in getPointFrame.
  virtual void getFrame(double t, const Matrix4& reference, uint32_t segment, bool smooth,
                        Matrix4& frame) const;
  // A frame that needs no predecessor: the rotation taking the z axis to the tangent about an
  // axis in the x-y plane. It starts a chain of carried frames.
  virtual void getAngleFrame(double t, uint32_t segment, bool smooth, Matrix4& frame) const;

  virtual uint32_t getPointCount() const { return 0; }
  // Writes the point's parameter and position; false for an index out of range.
  virtual bool getPoint(uint32_t index, double& t, Vector3& point) const;
  // Tangent at a point, with t from the point. The ends of an open segment take their one piece
  // unnormalised; every other point the mean of its two normalised pieces, wrapping round a
  // closed segment. A spline of exactly one point answers t 0 and (0, 0, 1). False for a bad
  // index and for a point whose segment has fewer than two points.
  virtual bool getPointTangent(uint32_t index, double& t, Vector3& tangent) const;
  // getFrame at a point, its position the point itself; false when the point or tangent fails.
  virtual bool getPointFrame(uint32_t index, const Matrix4& reference, double& t,
                             Matrix4& frame) const;
  // getAngleFrame at a point; false when the point or tangent fails.
  virtual bool getPointAngleFrame(uint32_t index, double& t, Matrix4& frame) const;
  // The nearest place on any piece of any segment (closed segments include the piece from the
  // last point back to the first): writes its segment and its parameter, interpolated along the
  // piece. False when the spline has no piece at all.
  virtual bool findClosest(const Vector3& point, uint32_t& segment, double& t) const;
  // Whether the points alone make the shape, with no curve model between them. Every spline of
  // the library is such a polyline.
  virtual bool isPolyline() const = 0;

  // The write cycle: allocate, setPoint and setSegment for everything, then finish. A spline
  // that cannot be edited refuses every step with false.
  virtual bool allocate(uint32_t pointCount, uint32_t segmentCount);
  virtual bool finish();
  virtual bool setPoint(uint32_t index, double t, const Vector3& point);
  virtual bool setSegment(uint32_t index, uint32_t pointCount, bool closed);

  // Makes this spline a copy of source: points with their t, segment counts and closed flags.
  // Returns finish's answer, or false when allocate fails.
  bool copy(const Spline& source);
  // Replaces each point by (x, y, z, 1) times matrix and keeps its t. Always true.
  bool transform(const Matrix4& matrix);
  // One closed segment of max(n, 3) points on a circle in the x-y plane: point i of m has
  // t = i / m and position (radius sin 2 pi t, radius cos 2 pi t, 0), running from +y towards +x.
  // Returns finish's answer, or false when allocate fails.
  bool makeCircle(double radius, uint32_t n);

 protected:
  // First point index and count of segment; false when the segment does not exist or claims
  // points beyond getPointCount, so that every index inside the range can be read.
  bool segmentRange(uint32_t segment, uint32_t& first, uint32_t& count) const;
  // The segment holding point index, walking from the start; false when none holds it.
  bool findSegmentOfPoint(uint32_t index, uint32_t& segment, uint32_t& first,
                          uint32_t& count) const;
  // Point index through getPoint; a point that cannot be read comes back as t 0 at the origin.
  Point pointAt(uint32_t index) const;

 private:
  // First index in [begin, end) whose t is at or above t, the parameters ascending in that
  // range; false when there is none.
  bool findFirstAtOrAbove(double t, uint32_t begin, uint32_t end, uint32_t& index) const;
  Vector3 smoothTangent(double t, uint32_t first, uint32_t end, uint32_t index) const;
};

}  // namespace mv
