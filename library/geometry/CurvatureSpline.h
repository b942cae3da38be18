// CurvatureSpline: a path grown rather than drawn. A walker takes a number of steps; at each step
// six curves say how far it turns about its own x, y and z axes and how far it moves along them.
// The result is one open segment whose points are the walker's positions; the frames of the walk
// are stored, so that children can stand on them (placeChildren) and getPointAngleFrame answers
// them as they are. The spline cannot be edited from outside: the write cycle refuses.
#pragma once

#include <cstdint>
#include <vector>

#include "core/Simple.h"
#include "geometry/Spline.h"
#include "geometry/SplineFrame.h"

namespace mv {

class CurvatureSpline : public Spline, public virtual Simple {
 public:
  enum ParameterId : int {
    curvSteps = 1102,       // double: number of steps, may be fractional
    curvFractional = 1105,  // bool: keep a fractional last step
    curvScaleZ = 1201,      // double: extra factor on the z movement
    curvLength = 1202,      // double: whole length of the walk
    curv_rota_x = 1203,     // curve: turn about x
    curv_rota_z = 1204,     // curve: turn about z
    curv_rota_y = 1205,     // curve: turn about y
    curv_tran_x = 1206,     // curve: move along x
    curv_tran_z = 1207,     // curve: move along z
    curv_tran_y = 1208,     // curve: move along y
  };

  // More steps than this are refused: a path has some hundred points, and a wild step count
  // must not exhaust memory.
  static constexpr double kMaxSteps = 1e5;

  // Defaults: 20 steps, fractional, scale 1, length 1; rotation curves -pi to pi at 0, movement
  // curves x and y -5 to 5 at 0, z -5 size to 10 size at 5 size.
  bool initParameters(ParameterSet& params, double size) override;
  std::string& typeName(std::string& out) override;

  uint32_t getSegmentCount() const override { return 1; }
  uint32_t getSegmentPointCount(uint32_t segment) const override;
  bool isSegmentClosed(uint32_t) const override { return false; }
  // The position row and the z axis of getAngleFrame.
  void getPosition(double t, uint32_t segment, bool smooth, Vector3& position) const override;
  void getTangent(double t, uint32_t segment, bool smooth, Vector3& tangent) const override;
  // The stored frame at t, or the element-wise blend of the two frames around t (not made
  // orthonormal again); the first frame before the first t, the last past the last; the
  // identity with no frames.
  void getAngleFrame(double t, uint32_t segment, bool smooth, Matrix4& frame) const override;
  uint32_t getPointCount() const override;
  bool getPoint(uint32_t index, double& t, Vector3& point) const override;
  // The stored frame as it stands.
  bool getPointAngleFrame(uint32_t index, double& t, Matrix4& frame) const override;
  bool isPolyline() const override { return true; }

  // Places role 1 at every frame (wantsData set, index i, count the frame count, position t);
  // returns 1, or 0 when role 1 is not asked for or the frames cannot be computed.
  virtual int placeChildren(ParameterSet& params, int roleMask, PlacementList& placements,
                            double lod);
  // The stored frames are those of the walk, not rebuilt from tangents: always true.
  virtual bool storesFrames() const { return true; }
  // Walks the steps and replaces the stored frames. A missing curve reports "Parameter Retrieval
  // failed!" with the curve group and returns false with the frames left as they were; so does a
  // step count that is not a number or above kMaxSteps. The first frame is the identity at t 0.
  virtual bool computeFrames(ParameterSet& params, double lod);

  const std::vector<SplineFrame>& frames() const { return frames_; }

 private:
  std::vector<SplineFrame> frames_;
};

}  // namespace mv
