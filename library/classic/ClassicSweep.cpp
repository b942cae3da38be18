#include "classic/ClassicSweep.h"

#include <algorithm>

#include "classic/GridPatch.h"
#include "classic/PhotoTurn.h"
#include "classic/detail/ClassicUnit.h"
#include "core/BaseNode.h"
#include "core/MathConstants.h"
#include "core/ParameterSet.h"
#include "curves/CurveParam.h"
#include "geometry/OGeomStream.h"
#include "geometry/Spline.h"
#include "geometry/SplineData.h"

namespace mv {

namespace {

// Index of the last ring: the first frame from 1 whose x reaches the growth, or the last frame.
int lastRing(const std::vector<TreeFrame>& frames, double growth) {
  for (size_t i = 1; i < frames.size(); ++i) {
    if (frames[i].x >= growth) return static_cast<int>(i);
  }
  return static_cast<int>(frames.size()) - 1;
}

// The matrix of ring i: the frame, blended back to the growth where it lies beyond, scaled by
// the shape and closed to a point at the tip when asked.
Matrix4 ringMatrix(const std::vector<TreeFrame>& frames, int i, int last, const CurveParam& shape,
                   double growth, double thickness, bool closeTip) {
  const TreeFrame& frame = frames[i];
  const double s = std::clamp(shape.evaluate(frame.x / growth), 0.0, 1.0) * thickness;
  Matrix4 m = frame.matrix;
  if (i > 0 && frame.x > growth) {
    const TreeFrame& before = frames[i - 1];
    m = blendMatrices(before.matrix, m, (growth - before.x) / (frame.x - before.x));
  }
  m.scale({s, s, s});
  if (closeTip && i == last) {
    for (int row = 0; row < 3; ++row) m.setRow(row, {});
  }
  return m;
}

// Point k of a profile segment of columns 0 to nU; a closed segment repeats its first point.
Vector3 profilePoint(const Spline& profile, uint32_t first, uint32_t count, int k,
                     const CurveParam& displace) {
  double t = 0.0;
  Vector3 point;
  profile.getPoint(first + static_cast<uint32_t>(k) % count, t, point);
  const double factor = displace.evaluate(t) + 1.0;
  return {point.x * factor, point.y * factor, 0.0};
}

void writeTexture(OGeomStream& stream, int columns, int rows) {
  stream.param(ParamTexture) << '[';
  for (int r = 0; r <= rows; ++r) {
    for (int k = 0; k <= columns; ++k) {
      stream << static_cast<double>(k) / columns << static_cast<double>(r);
    }
  }
  stream << ']';
}

}  // namespace

void writeSweep(OGeomStream& stream, const std::vector<TreeFrame>& frames, const CurveParam& shape,
                const Spline& profile, double growth, double thickness, bool closeTip,
                const CurveParam& displace) {
  growth = std::clamp(growth, 0.0, 1.0);
  if (growth <= kZeroTolerance || frames.size() < 2) return;
  const int last = lastRing(frames, growth);
  uint32_t first = 0;
  for (uint32_t segment = 0; segment < profile.getSegmentCount(); ++segment) {
    const uint32_t count = profile.getSegmentPointCount(segment);
    const int columns = static_cast<int>(count) - (profile.isSegmentClosed(segment) ? 0 : 1);
    Matrix4 ring;
    // Rows are visited in order, so the shape is read once per ring before its points.
    const bool written = GridPatch::write(stream, columns, last, [&](int k, int row) {
      if (k == 0) ring = ringMatrix(frames, row, last, shape, growth, thickness, closeTip);
      return ring.transformPoint(profilePoint(profile, first, count, k, displace));
    });
    if (written) writeTexture(stream, columns, last);
    first += count;
  }
}

void writeProfileSweep(ParameterSet& params, OGeomStream& stream,
                       const std::vector<TreeFrame>& frames, const CurveParam& shape, double unit,
                       double growth, double thickness, bool closeTip, const CurveParam& displace) {
  BaseNode* node = params.getNode(IdProfileNode);
  const Spline* spline = node ? node->spline() : nullptr;
  if (!spline) return;
  SplineData profile;
  if (!profile.copy(*spline)) return;
  Matrix4 local;
  node->localMatrix(local);
  profile.transform(inUnit(local.inverse(), unit));
  writeSweep(stream, frames, shape, profile, growth, thickness, closeTip, displace);
}

}  // namespace mv
