#include "host/SweepObject.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "host/BaseObject.h"
#include "host/LineObject.h"
#include "host/MeshBuilder.h"
#include "host/PolygonObject.h"

namespace {

struct Polyline {
  std::vector<Vector> points;
  bool closed = false;
};

// The segments of a line object, each point taken through `m`.
std::vector<Polyline> segmentsOf(const LineObject* line, const Matrix& m) {
  std::vector<Polyline> segments;
  Int32 first = 0;
  for (Int32 s = 0; s < line->GetSegmentCount(); ++s) {
    const Segment& segment = line->GetSegmentR()[s];
    Polyline polyline{{}, segment.closed};
    for (Int32 i = first; i < first + segment.cnt && i < line->GetPointCount(); ++i) {
      polyline.points.push_back(m * line->GetPointR()[i]);
    }
    first += segment.cnt;
    if (!polyline.points.empty()) segments.push_back(polyline);
  }
  return segments;
}

Vector lerp(const Vector& a, const Vector& b, Float t) { return a + (b - a) * t; }

// The part of an open path between two fractions of its length.
Polyline cutPath(const Polyline& path, Float start, Float end) {
  std::vector<Float> at(path.points.size(), 0.0);
  for (size_t i = 1; i < at.size(); ++i) {
    at[i] = at[i - 1] + (path.points[i] - path.points[i - 1]).GetLength();
  }
  Float length = at.back(), from = start * length, to = end * length;
  auto pointAt = [&](Float s) {
    size_t i = std::upper_bound(at.begin(), at.end(), s) - at.begin();
    if (i == 0) return path.points.front();
    if (i >= at.size()) return path.points.back();
    Float span = at[i] - at[i - 1];
    return lerp(path.points[i - 1], path.points[i], span > 0 ? (s - at[i - 1]) / span : 0.0);
  };
  Polyline cut{{pointAt(from)}, false};
  for (size_t i = 0; i < at.size(); ++i) {
    if (at[i] > from && at[i] < to) cut.points.push_back(path.points[i]);
  }
  cut.points.push_back(pointAt(to));
  return cut;
}

struct Frame {
  Vector position, normal, binormal, tangent;
};

std::vector<Frame> transportFrames(const Polyline& path) {
  size_t n = path.points.size();
  std::vector<Frame> frames(n);
  for (size_t i = 0; i < n; ++i) {
    size_t a = path.closed ? (i + n - 1) % n : (i > 0 ? i - 1 : 0);
    size_t b = path.closed ? (i + 1) % n : std::min(i + 1, n - 1);
    frames[i].position = path.points[i];
    frames[i].tangent = (path.points[b] - path.points[a]).GetNormalized();
  }
  Vector t0 = frames[0].tangent;
  Vector helper = std::fabs(t0.y) < 0.9 ? Vector(0, 1, 0) : Vector(1, 0, 0);
  Vector normal = Cross(helper, t0).GetNormalized();
  for (Frame& frame : frames) {
    Vector projected = normal - frame.tangent * Dot(normal, frame.tangent);
    if (projected.GetLength() > 1e-12) normal = projected.GetNormalized();
    frame.normal = normal;
    frame.binormal = Cross(frame.tangent, normal);
  }
  return frames;
}

Vector place(const Frame& f, const Vector& q) {
  return f.position + f.normal * q.x + f.binormal * q.y;
}

void addTube(MeshBuilder& mesh, const std::vector<Frame>& frames, bool pathClosed,
             const Polyline& profile) {
  size_t rings = frames.size(), around = profile.points.size();
  size_t spans = pathClosed ? rings : rings - 1, sides = profile.closed ? around : around - 1;
  for (size_t i = 0; i < spans; ++i) {
    const Frame &f0 = frames[i], &f1 = frames[(i + 1) % rings];
    for (size_t j = 0; j < sides; ++j) {
      const Vector &q0 = profile.points[j], &q1 = profile.points[(j + 1) % around];
      Float u0 = Float(j) / sides, u1 = Float(j + 1) / sides;
      Float v0 = Float(i) / spans, v1 = Float(i + 1) / spans;
      mesh.addQuad(place(f0, q0), place(f0, q1), place(f1, q1), place(f1, q0),
                   {{u0, v0, 0}, {u1, v0, 0}, {u1, v1, 0}, {u0, v1, 0}});
    }
  }
}

void addCap(MeshBuilder& mesh, const Frame& frame, const Polyline& profile, bool atEnd) {
  Vector centre;
  for (const Vector& q : profile.points) centre += q;
  centre = centre / static_cast<Float>(profile.points.size());
  size_t n = profile.points.size();
  for (size_t j = 0; j < n; ++j) {
    Vector a = place(frame, profile.points[j]), b = place(frame, profile.points[(j + 1) % n]);
    Vector c = place(frame, centre);
    UVWStruct uv{{0.5, 0.5, 0}, {0.5, 0.5, 0}, {0.5, 0.5, 0}, {0.5, 0.5, 0}};
    if (atEnd) {
      mesh.addQuad(c, a, b, b, uv);
    } else {
      mesh.addQuad(c, b, a, a, uv);
    }
  }
}

}  // namespace

Bool SweepObject::Init(GeListNode* node) {
  BaseContainer& bc = *static_cast<BaseObject*>(node)->GetDataInstance();
  bc.SetReal(1001, 0.0);
  bc.SetReal(1002, 1.0);
  bc.SetBool(1003, true);
  bc.SetBool(1004, true);
  return true;
}

BaseObject* SweepObject::GetVirtualObjects(BaseObject* op, HierarchyHelp* hh) {
  BaseObject* profileObject = op->GetDown();
  BaseObject* pathObject = profileObject ? profileObject->GetNext() : nullptr;
  if (!pathObject) return nullptr;
  Bool dirty = op->CheckCache(hh) || op->IsDirty(DIRTYFLAGS_DATA);
  Matrix mp, mq;
  LineObject* profileLine = op->GetVirtualLineObject(profileObject, hh, profileObject->GetMl(),
                                                     false, false, &mp, &dirty);
  LineObject* pathLine =
      op->GetVirtualLineObject(pathObject, hh, pathObject->GetMl(), false, false, &mq, &dirty);
  if (!dirty) return op->GetCache(hh);
  if (!profileLine || !pathLine) return nullptr;
  std::vector<Polyline> profiles = segmentsOf(profileLine, mp);
  std::vector<Polyline> paths = segmentsOf(pathLine, mq);
  if (profiles.empty() || paths.empty() || paths[0].points.size() < 2) return nullptr;
  const BaseContainer& bc = *op->GetDataInstance();
  Float start = std::clamp(bc.GetReal(1001), 0.0, 1.0),
        end = std::clamp(bc.GetReal(1002), 0.0, 1.0);
  Polyline path = paths[0].closed ? paths[0] : cutPath(paths[0], start, std::max(start, end));
  std::vector<Frame> frames = transportFrames(path);
  MeshBuilder mesh;
  for (const Polyline& profile : profiles) {
    if (profile.points.size() < 2) continue;
    addTube(mesh, frames, path.closed, profile);
    if (!profile.closed || path.closed) continue;
    if (bc.GetBool(1003)) addCap(mesh, frames.front(), profile, false);
    if (bc.GetBool(1004)) addCap(mesh, frames.back(), profile, true);
  }
  PolygonObject* result = mesh.build();
  if (result) result->SetName(op->GetName());
  return result;
}
