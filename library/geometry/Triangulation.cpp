#include "geometry/Triangulation.h"

#include <algorithm>
#include <cstdio>
#include <new>
#include <string>

#include "core/MessageSink.h"

namespace mv {

namespace {

struct Point2 {
  double x, y;
};

// An edge of the flipping stage. left: the triangle that runs low to high; right: high to low.
struct Edge {
  int low, high;
  int left, right;
  int suspect;  // -1 while the edge must be looked at, 0 once it has been
};

// The edge table of the flipping stage. Process-wide, which is what makes that stage
// non-reentrant; emptied whenever the stage ends.
std::vector<Edge> edgeTable;
size_t edgeCount = 0;
size_t edgeCapacity = 0;

constexpr double kEarLimit = 1e-10;
// A flip must win by more than rounding: the measure of one triangle, computed from another
// corner, differs in the last bits, and on cocircular points (all measures equal) flips driven
// by that noise would cycle for ever.
constexpr double kFlipMargin = 1e-9;

Point2 project(const Vector3& p, int axis) {
  if (axis == 1) return {p.x, p.z};
  if (axis == 2) return {p.x, p.y};
  return {p.y, p.z};
}

std::vector<Point2> projectAll(const std::vector<Vector3>& points, int axis) {
  std::vector<Point2> result;
  result.reserve(points.size());
  for (const Vector3& p : points) result.push_back(project(p, axis));
  return result;
}

double signedArea(const std::vector<Point2>& p) {
  double sum = 0.0;
  size_t previous = p.size() - 1;
  for (size_t current = 0; current < p.size(); previous = current++) {
    sum += p[previous].x * p[current].y - p[previous].y * p[current].x;
  }
  return 0.5 * sum;
}

// (b - a) x (p - a): positive when p lies left of the line from a to b.
double cross(const Point2& a, const Point2& b, const Point2& p) {
  return (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x);
}

// Whether the corner u, v, w of the remaining outline V can be cut off: convex by more than the
// limit, and no other remaining point inside or on the triangle.
bool isEar(const std::vector<Point2>& p, const std::vector<uint32_t>& V, size_t nv, size_t u,
           size_t v, size_t w) {
  const Point2 &A = p[V[u]], &B = p[V[v]], &C = p[V[w]];
  if (cross(A, B, C) < kEarLimit) return false;
  for (size_t k = 0; k < nv; ++k) {
    if (k == u || k == v || k == w) continue;
    const Point2& P = p[V[k]];
    if (cross(B, C, P) >= 0.0 && cross(C, A, P) >= 0.0 && cross(A, B, P) >= 0.0) return false;
  }
  return true;
}

// Ear clipping over V, a counter-clockwise order of the points. After a cut the walk goes on at
// the same position; 2 * nv attempts without an ear mean the outline is bad.
bool clipEars(const std::vector<Point2>& p, std::vector<uint32_t>& V,
              std::vector<uint32_t>& triangles) {
  size_t nv = V.size();
  long count = 2 * static_cast<long>(nv);
  size_t v = nv - 1;
  while (nv >= 3) {
    if (--count < 0) {
      messageSink.error("Triangulation: Probable Bad Polygon! " +
                        std::to_string(triangles.size() / 3));
      return false;
    }
    const size_t u = v < nv ? v : 0;
    v = u + 1 < nv ? u + 1 : 0;
    const size_t w = v + 1 < nv ? v + 1 : 0;
    if (!isEar(p, V, nv, u, v, w)) continue;
    triangles.insert(triangles.end(), {V[u], V[v], V[w]});
    V.erase(V.begin() + static_cast<long>(v));
    --nv;
    count = 2 * static_cast<long>(nv);
  }
  return true;
}

void releaseEdges() {
  std::vector<Edge>().swap(edgeTable);
  edgeCount = 0;
  edgeCapacity = 0;
}

void allocateEdges(size_t capacity) {
  try {
    edgeTable.assign(capacity, Edge{});
    edgeCapacity = capacity;
  } catch (const std::bad_alloc&) {
    std::fputs("AllocateEdges: no room!\n", stderr);
    releaseEdges();
  }
  edgeCount = 0;
}

int findEdge(int p, int q) {
  const int low = std::min(p, q), high = std::max(p, q);
  for (size_t i = 0; i < edgeCount; ++i) {
    if (edgeTable[i].low == low && edgeTable[i].high == high) return static_cast<int>(i);
  }
  return -1;
}

// Enters the side of triangle t on the edge p, q and marks the edge suspect.
void addEdge(int p, int q, int t) {
  int index = findEdge(p, q);
  if (index < 0) {
    if (edgeCount >= edgeCapacity) {
      std::fputs("Too many Edges!\n", stderr);
      return;
    }
    edgeTable[edgeCount] = {std::min(p, q), std::max(p, q), -1, -1, -1};
    index = static_cast<int>(edgeCount++);
  }
  Edge& edge = edgeTable[static_cast<size_t>(index)];
  (p < q ? edge.left : edge.right) = t;
  edge.suspect = -1;
}

void addTriangleEdges(int a, int b, int c, int t) {
  addEdge(a, b, t);
  addEdge(b, c, t);
  addEdge(c, a, t);
}

void deleteEdge(int p, int q) {
  const int index = findEdge(p, q);
  if (index < 0) {
    std::fputs("DeleteEdge: WARNING - attempt to Delete unknown edge\n", stderr);
    return;
  }
  edgeTable[static_cast<size_t>(index)] = edgeTable[--edgeCount];
}

// Four times the squared circumradius of P, Q, S; -1 when they do not turn counter-clockwise.
double measure(const Point2& P, const Point2& Q, const Point2& S) {
  const double turn = (Q.x - P.x) * (S.y - Q.y) - (Q.y - P.y) * (S.x - Q.x);
  if (turn <= 0.0) return -1.0;
  const auto squared = [](const Point2& a, const Point2& b) {
    return (b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y);
  };
  const double area = std::max(kEarLimit, turn);
  return squared(P, Q) * squared(Q, S) * squared(S, P) / (area * area);
}

// The first corner of triangle t that is neither a nor b, or -1.
int oppositeCorner(const std::vector<uint32_t>& triangles, int t, int a, int b) {
  for (int k = 0; k < 3; ++k) {
    const int corner = static_cast<int>(triangles[static_cast<size_t>(3 * t + k)]);
    if (corner != a && corner != b) return corner;
  }
  return -1;
}

// The next edge still to be looked at with triangles on both sides, marked done; -1 when none.
int nextSuspectEdge() {
  for (size_t i = 0; i < edgeCount; ++i) {
    Edge& edge = edgeTable[i];
    if (edge.suspect == 0) continue;
    edge.suspect = 0;
    if (edge.left >= 0 && edge.right >= 0) return static_cast<int>(i);
  }
  return -1;
}

// Looks at the inner edge a-b between L (a, b, c) and R (b, a, d); flips it to c-d when the
// better triangle of the new pair beats the better one of the old pair. False when the two
// triangles do not form a quad as they should.
bool considerFlip(const std::vector<Point2>& p, std::vector<uint32_t>& triangles,
                  const Edge& edge) {
  const int a = edge.low, b = edge.high, L = edge.left, R = edge.right;
  const int c = oppositeCorner(triangles, L, a, b), d = oppositeCorner(triangles, R, a, b);
  if (c < 0 || d < 0) {
    std::fputs("ERROR: can't find quad\n", stderr);
    return false;
  }
  const Point2 &A = p[a], &B = p[b], &C = p[c], &D = p[d];
  const double m1 = measure(D, B, A), m2 = measure(B, C, A);
  const double m3 = measure(B, C, D), m4 = measure(C, A, D);
  if (m1 < 0.0 || m2 < 0.0) {
    std::fputs("ERROR: original triangles backwards!\n", stderr);
    return false;
  }
  if (m3 < 0.0 || m4 < 0.0 || std::min(m3, m4) >= std::min(m1, m2) * (1.0 - kFlipMargin)) {
    return true;
  }
  deleteEdge(a, b);
  const auto setTriangle = [&triangles](int t, int x, int y, int z) {
    const size_t at = static_cast<size_t>(3 * t);
    triangles[at] = static_cast<uint32_t>(x);
    triangles[at + 1] = static_cast<uint32_t>(y);
    triangles[at + 2] = static_cast<uint32_t>(z);
  };
  setTriangle(L, d, b, c);
  setTriangle(R, d, c, a);
  addTriangleEdges(d, b, c, L);
  addTriangleEdges(c, a, d, R);
  const int diagonal = findEdge(c, d);
  if (diagonal < 0) {
    std::fputs("DeleteEdge: WARNING - attempt to MarkSuspect unknown edge\n", stderr);
  } else {
    edgeTable[static_cast<size_t>(diagonal)].suspect = 0;
  }
  return true;
}

}  // namespace

int projectionAxis(const std::vector<Vector3>& points) {
  if (points.empty()) return 0;
  Vector3 low = points[0], high = points[0];
  for (const Vector3& p : points) {
    low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
    high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
  }
  const Vector3 extent = high - low;
  if (extent.x > extent.y && extent.z > extent.y) return 1;
  if (extent.x > extent.z && extent.y > extent.z) return 2;
  return 0;
}

bool triangulate(const std::vector<Vector3>& points, std::vector<uint32_t>& triangles,
                 bool improve) {
  triangles.clear();
  const size_t n = points.size();
  if (n < 3) return false;
  const int axis = projectionAxis(points);
  std::vector<Point2> projected;
  std::vector<uint32_t> V;
  try {
    projected = projectAll(points, axis);
    V.resize(n);
    triangles.reserve(3 * (n - 2));
  } catch (const std::bad_alloc&) {
    messageSink.error("Triangulation: Memory Allocation Error!");
    return false;
  }
  const bool forward = signedArea(projected) > 0.0;
  for (size_t i = 0; i < n; ++i) V[i] = static_cast<uint32_t>(forward ? i : n - 1 - i);
  if (!clipEars(projected, V, triangles)) return false;
  if (improve) improveTriangles(points, triangles, axis);
  if (!forward) {
    for (size_t t = 0; t < triangles.size(); t += 3) std::swap(triangles[t], triangles[t + 2]);
  }
  return true;
}

bool improveTriangles(const std::vector<Vector3>& points, std::vector<uint32_t>& triangles,
                      int axis) {
  const size_t n = points.size();
  if (std::any_of(triangles.begin(), triangles.end(), [n](uint32_t index) { return index >= n; })) {
    return false;  // not a triangulation of these points
  }
  const std::vector<Point2> p = projectAll(points, axis);
  allocateEdges(points.size() >= 1 ? 2 * points.size() - 2 : 0);
  const int triangleCount = static_cast<int>(triangles.size() / 3);
  for (int t = 0; t < triangleCount; ++t) {
    const size_t at = static_cast<size_t>(3 * t);
    addTriangleEdges(static_cast<int>(triangles[at]), static_cast<int>(triangles[at + 1]),
                     static_cast<int>(triangles[at + 2]), t);
  }
  // Each flip improves the triangulation, so flips cannot cycle; the budget only guards against
  // rounding on slivers, where the measures themselves are unreliable.
  size_t budget = points.size() * points.size() + 64;
  bool ok = true;
  for (int index = nextSuspectEdge(); index >= 0; index = nextSuspectEdge()) {
    const Edge edge = edgeTable[static_cast<size_t>(index)];
    if (budget-- == 0 || !considerFlip(p, triangles, edge)) {
      ok = false;
      break;
    }
  }
  releaseEdges();
  return ok;
}

}  // namespace mv
