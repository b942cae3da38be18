#include "scene/MvrToMv4Loader.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "classic/ClassicRevo.h"
#include "classic/detail/CountLimit.h"
#include "core/BaseNode.h"
#include "core/MathConstants.h"
#include "core/ParameterSet.h"
#include "core/Placement.h"
#include "curves/ParameterSetData.h"
#include "geometry/MeshData.h"
#include "geometry/OPolygonStream.h"
#include "scene/MvrConversionCurves.h"

namespace mv {

namespace {

constexpr double kFlatFan = 1e-6;

// True when the heights of the profile turn back somewhere: no path can carry such a shape.
bool heightReverses(const std::vector<Vector3>& profile) {
  if (profile.size() < 2) return false;
  double last = profile[1].z - profile[0].z;
  for (size_t i = 2; i < profile.size(); ++i) {
    const double d = profile[i].z - profile[i - 1].z;
    if (std::fabs(d) <= kZeroTolerance) continue;
    if (std::fabs(last) > kZeroTolerance && (d > 0) != (last > 0)) return true;
    last = d;
  }
  return false;
}

// The radius of the profile over the relative arc length of its axis, limits widened by a tenth.
CurveParam revoThickness(const std::vector<Vector3>& profile) {
  double whole = 0.0;
  for (size_t i = 1; i < profile.size(); ++i) whole += std::fabs(profile[i].z - profile[i - 1].z);
  std::map<double, double> radii;
  double arc = 0.0, low = 0.0, high = 0.0;
  for (size_t i = 0; i < profile.size(); ++i) {
    if (i > 0) arc += std::fabs(profile[i].z - profile[i - 1].z);
    const double key = whole > 0.0 ? arc / whole : (i > 0 ? 1.0 : 0.0);
    radii[key] = profile[i].x;
    low = i == 0 ? profile[i].x : std::min(low, profile[i].x);
    high = i == 0 ? profile[i].x : std::max(high, profile[i].x);
  }
  CurveParam thickness = MvrConversionCurves::curveThrough(low * 1.1, high * 1.1, radii, true);
  thickness.setAllPointTypes(PointCorner);
  return thickness;
}

// The seed head's tilt: elements spread evenly in area between the polar angles f0 and f1.
CurveParam phiballTilt(double number, double f0, double f1) {
  const int count = limitedCount(std::ceil(number), MvrToMv4Loader::kMaxPathPoints, "Phiball tilt");
  std::map<double, double> tilt;
  for (int i = 0; i < count; ++i) {
    const double t = number > 1.0 ? std::clamp(i / (number - 1.0), 0.0, 1.0) : 0.0;
    tilt[t] = std::acos(std::clamp((1 - t) * std::cos(f0) + t * std::cos(f1), -1.0, 1.0));
  }
  return MvrConversionCurves::curveThrough(0.0, kPi, tilt, false);
}

}  // namespace

bool MvrToMv4Loader::load(ParameterSet& loadSettings, const std::string& path) {
  settings = &loadSettings;
  return MvrLoader::load(loadSettings, path);
}

bool MvrToMv4Loader::setting(int id) const { return settings && settings->getBool(id); }

double MvrToMv4Loader::unitSetting() const { return settings ? settings->getDouble(IdUnit) : 1.0; }

std::string MvrToMv4Loader::createClassicSimple(const MvrHeader& header) {
  return createNull(header);
}

std::string MvrToMv4Loader::createClassicPruning(const MvrHeader& header, int) {
  return createNull(header);
}

std::string MvrToMv4Loader::createClassicAttractor(const MvrHeader& header) {
  return createNull(header);
}

std::string MvrToMv4Loader::createClassicSimpleAttractor(const MvrHeader& header) {
  return createNull(header);
}

std::string MvrToMv4Loader::createClassicHyperpatch(const MvrHeader& header,
                                                    const std::vector<Vector3>& patchPoints) {
  return createDeformGrid(header, patchPoints);
}

std::string MvrToMv4Loader::createClassicRevo(const MvrHeader& header, const std::string& primitive,
                                              const std::vector<Vector3>& profile,
                                              const CurveParam& displace) {
  if (heightReverses(profile)) return bakeRevo(header, primitive, profile, displace);
  std::vector<Vector3> axis;
  axis.reserve(profile.size());
  for (const Vector3& point : profile) axis.push_back({0.0, 0.0, point.z});
  const std::string path =
      createPointSpline(header.name + "_Path", 0, Matrix4::identity(), 0, 0, 0, axis);
  if (path.empty()) return {};
  MvrBranchRecord branch;
  branch.profile = primitive;
  branch.path = path;
  branch.thickness = revoThickness(profile);
  return createBranch(header, branch);
}

// The classic revo evaluated once on its own, with the primitive's spline as its profile.
std::string MvrToMv4Loader::bakeRevo(const MvrHeader& header, const std::string& primitive,
                                     const std::vector<Vector3>& profile,
                                     const CurveParam& displace) {
  ClassicRevo revo;
  revo.points = profile;
  ParameterSetData params;
  params.setCurve(IdDisplace, displace);
  params.setInt(IdPhotoAxis, header.photoAxis);
  params.setInt(IdPhotoMode, header.photoMode);
  params.setDouble(IdPhotoStrength, header.photoStrength);
  const std::unique_ptr<BaseNode> profileNode = profileNodeOf(primitive);
  params.profileNode = profileNode.get();
  MeshData mesh;
  {
    OPolygonStream stream(&mesh, true);
    PlacementList placements;
    revo.evaluate(params, stream, 0, placements, 1.0);
    stream.flush();
  }
  mesh.finish();
  return createMesh(header.name, 0, header.matrix, mesh, true);
}

std::string MvrToMv4Loader::createClassicHydra(const MvrHeader& header, double, double number,
                                               const CurveParam& spin, const CurveParam& twist,
                                               const CurveParam& fan, const CurveParam& scale) {
  MvrHydraRecord hydra;
  hydra.number = std::floor(number);
  hydra.hydraSweep = fan;
  hydra.hydraTilt = twist;
  hydra.hydraMode = 1;
  hydra.hydraSpin = spin;
  hydra.scale = scale;
  return createHydra(header, hydra);
}

std::string MvrToMv4Loader::createClassicWreath(const MvrHeader& header, double number,
                                                double radius) {
  // A quarter turn about y, with the cosine the classic ring was computed with.
  constexpr double c = 6.123233995736766e-17;
  MvrHeader turned = header;
  turned.matrix = Matrix4::fromRows({c, 0, -1}, {0, 1, 0}, {1, 0, c}, {}) * header.matrix;
  MvrHydraRecord hydra;
  hydra.number = std::floor(number);
  hydra.radius = radius;
  hydra.hydraSweep = CurveParam(0.0, 2 * kPi, 0.0, 2 * kPi, "id");
  hydra.hydraTilt = CurveParam(0.0, kPi, kPi / 2, kPi / 2, "id");
  hydra.hydraMode = 0;
  hydra.hydraSpin = CurveParam(0.0, kPi, 0.0, 0.0, "id");
  hydra.scale = MvrConversionCurves::fullGrowth();
  return createHydra(turned, hydra);
}

std::string MvrToMv4Loader::createClassicPhiball(const MvrHeader& header, double unit,
                                                 double number, double radius, double influence,
                                                 const CurveParam& angle, const CurveParam& fan,
                                                 const CurveParam& scale, const CurveParam&) {
  const double f0 = fan.evaluate(0.0), f1 = fan.evaluate(1.0);
  MvrPhyllotaxisRecord phyllotaxis;
  phyllotaxis.tilt = phiballTilt(number, f0, f1);
  phyllotaxis.profile = phiballProfile(header.name, radius * unit, f0, f1);
  phyllotaxis.number = number;
  phyllotaxis.divergence = angle;
  phyllotaxis.scale = scale;
  phyllotaxis.spacingByScale = influence;
  return createPhyllotaxis(header, phyllotaxis);
}

// The meridian that the elements sit on: a straight radius for a flat head, otherwise an arc
// through the rim at distance r from the axis.
std::string MvrToMv4Loader::phiballProfile(const std::string& name, double r, double f0,
                                           double f1) {
  const double lo = std::min(f0, f1), hi = std::max(f0, f1);
  if (!(hi - lo > kFlatFan)) {
    return createPointSpline(name + "_Spline", 0, Matrix4::identity(), 0, 0, 0,
                             {{r, 0.0, 0.0}, {0.0, 0.0, 0.0}});
  }
  double arcRadius = r, offset = 0.0;
  const double e = hi < kPi / 2 ? hi : lo;
  // A rim on the axis itself (sin e of 0) has no circle through it: it keeps the plain radius.
  if ((hi < kPi / 2 || lo > kPi / 2) && std::fabs(std::sin(e)) > kZeroTolerance) {
    arcRadius = r / std::sin(e);
    offset = -(std::sin(kPi / 2 - e) * arcRadius);
  }
  return createArc(name + "_Arc", arcRadius, kPi / 2 - lo, kPi / 2 - hi, offset);
}

}  // namespace mv
