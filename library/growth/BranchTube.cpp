// The geometry step of Branch: every profile segment swept along every group of rings.
#include <cmath>
#include <string>
#include <vector>

#include "core/ChildRole.h"
#include "core/MathConstants.h"
#include "curves/CurveParam.h"
#include "geometry/OGeomStream.h"
#include "geometry/Spline.h"
#include "growth/Branch.h"

namespace mv {
namespace {

// The points of one profile segment and whether it closes.
struct ProfileSegment {
  std::vector<Vector3> points;
  bool closed = false;
};

struct CapRequest {
  bool start = false;
  bool end = false;
  CurveParam* thickness = nullptr;  // a tube that tapers to nothing gets no cap
};

ProfileSegment readProfileSegment(const Spline& profile, uint32_t segment, uint32_t first) {
  ProfileSegment result;
  result.closed = profile.isSegmentClosed(segment);
  const uint32_t count = profile.getSegmentPointCount(segment);
  for (uint32_t k = 0; k < count; ++k) {
    double t = 0.0;
    Vector3 point;
    if (!profile.getPoint(first + k, t, point)) break;
    result.points.push_back(point);
  }
  return result;
}

// Count, order 2, the knots 0, 0 to n, n, and the range 0 to n of one direction of a patch.
void writeKnots(OGeomStream& stream, int n) {
  stream << (n + 1) << 2 << '[' << 0;
  for (int i = 0; i <= n; ++i) stream << i;
  stream << n << ']' << 0 << n;
}

// One patch: a row per ring, a column per profile point; a closed group repeats its first ring
// and a closed profile its first point, so that the stream can weld the seams.
void writePatch(OGeomStream& stream, const ProfileSegment& profile, const PlacementGroup& group,
                int nU, int nV) {
  const size_t rings = group.placements.size();
  const size_t points = profile.points.size();
  stream << CmdPatch;
  writeKnots(stream, nU);
  writeKnots(stream, nV);
  stream.param(ParamPoints) << '[';
  for (int j = 0; j <= nV; ++j) {
    const Matrix4& ring = group.placements[j % rings].matrix;
    for (int k = 0; k <= nU; ++k) stream << ring.transformPoint(profile.points[k % points]);
  }
  stream << ']';
  stream.param(ParamTexture) << '[';
  for (int j = 0; j <= nV; ++j) {
    const double v = group.placements[j % rings].position;
    for (int k = 0; k <= nU; ++k) stream << static_cast<double>(k) / nU << v;
  }
  stream << ']';
}

// Texture coordinate of p in the profile's bounding box; 0 across a flat side.
double boxCoordinate(double value, double minimum, double maximum) {
  return maximum > minimum ? (value - minimum) / (maximum - minimum) : 0.0;
}

// One cap: the outline of the profile carried by ring, in its own selection.
void writeCap(OGeomStream& stream, const std::vector<Vector3>& outline, const Matrix4& ring,
              const std::string& selection) {
  Vector3 low = outline.front(), high = outline.front();
  for (const Vector3& p : outline) {
    low = {std::fmin(low.x, p.x), std::fmin(low.y, p.y), 0.0};
    high = {std::fmax(high.x, p.x), std::fmax(high.y, p.y), 0.0};
  }
  stream << CmdGroupBegin << CmdAttribute;
  stream.param(ParamSelection) << selection;
  stream << CmdPolygon << 1 << '[' << static_cast<int>(outline.size()) << ']';
  stream.param(ParamPoints) << '[';
  for (const Vector3& p : outline) stream << ring.transformPoint(p);
  stream << ']';
  stream.param(ParamTexture) << '[';
  for (const Vector3& p : outline) {
    stream << boxCoordinate(p.x, low.x, high.x) << boxCoordinate(p.y, low.y, high.y);
  }
  stream << ']' << CmdGroupEnd;
}

// Caps at the first ring ("C1") and, with the outline reversed, at the last ("C2"). A group of
// a single ring has no end frame of its own: both caps stand there, back to back.
void writeCaps(OGeomStream& stream, const ProfileSegment& profile, const PlacementGroup& group,
               const CapRequest& caps) {
  std::vector<Vector3> outline = profile.points;
  if (outline.size() < 3 || !caps.thickness) return;
  const Placement& first = group.placements.front();
  const Placement& last = group.placements.back();
  if (caps.start && std::fabs(caps.thickness->evaluate(0.0)) > kZeroTolerance) {
    writeCap(stream, outline, first.matrix, "C1");
  }
  if (caps.end && std::fabs(caps.thickness->evaluate(last.position)) > kZeroTolerance) {
    outline.assign(profile.points.rbegin(), profile.points.rend());
    writeCap(stream, outline, last.matrix, "C2");
  }
}

void sweepSegment(OGeomStream& stream, const ProfileSegment& profile, const PlacementGroup& group,
                  const CapRequest& caps) {
  if (profile.points.empty() || group.placements.empty()) return;
  const int nU = static_cast<int>(profile.points.size()) - (profile.closed ? 0 : 1);
  const int nV = static_cast<int>(group.placements.size()) - (group.closed ? 0 : 1);
  // A single profile point or a single ring spans no face.
  if (nU >= 1 && nV >= 1) writePatch(stream, profile, group, nU, nV);
  if ((caps.start || caps.end) && profile.closed && !group.closed) {
    writeCaps(stream, profile, group, caps);
  }
}

}  // namespace

bool Branch::writeTube(ParameterSet& params, OGeomStream& stream, PlacementList& placements) {
  Spline* profile = params.getSpline(profileSpline);
  if (!profile) return false;
  const CapRequest caps{params.getBool(capStart), params.getBool(capEnd),
                        params.getCurve(thickness)};
  for (const PlacementGroup& group : placements) {
    if (group.role != RoleProfile) continue;
    uint32_t offset = 0;
    for (uint32_t segment = 0; segment < profile->getSegmentCount(); ++segment) {
      sweepSegment(stream, readProfileSegment(*profile, segment, offset), group, caps);
      offset += profile->getSegmentPointCount(segment);
    }
  }
  return true;
}

}  // namespace mv
