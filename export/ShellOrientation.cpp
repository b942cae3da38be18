#include "export/ShellOrientation.h"

#include <algorithm>
#include <cstring>
#include <numeric>

#include "export/RecordWeld.h"

namespace mv {

namespace {

// The distinct positions of a polygon in corner order, equal neighbours merged: a quad with two
// corners on a cone's tip is the triangle it looks like. Returns how many there are.
int positionCycle(const MeshPolygon& polygon, const std::vector<uint32_t>& positionOf,
                  uint32_t cycle[4]) {
  const uint32_t corners[4] = {polygon.a, polygon.b, polygon.c, polygon.d};
  int count = 0;
  for (int k = 0; k < (polygon.isTriangle() ? 3 : 4); ++k) {
    const uint32_t position = positionOf[corners[k]];
    if (count == 0 || cycle[count - 1] != position) cycle[count++] = position;
  }
  while (count > 1 && cycle[count - 1] == cycle[0]) --count;
  return count;
}

// Points equal in single precision, as files store them, share one position number; -0 and +0
// are equal.
std::vector<uint32_t> positionNumbers(const MeshData& mesh) {
  RecordWeld positions(3, mesh.points.size());
  std::vector<uint32_t> numbers(mesh.points.size());
  for (size_t i = 0; i < mesh.points.size(); ++i) {
    const float value[3] = {float(mesh.points[i].x) + 0.0f, float(mesh.points[i].y) + 0.0f,
                            float(mesh.points[i].z) + 0.0f};
    uint32_t words[3];
    std::memcpy(words, value, sizeof words);
    numbers[i] = positions.indexOf(words);
  }
  return numbers;
}

class DisjointSets {
 public:
  explicit DisjointSets(size_t count) : parent_(count) {
    std::iota(parent_.begin(), parent_.end(), 0u);
  }
  uint32_t find(uint32_t x) {
    while (parent_[x] != x) x = parent_[x] = parent_[parent_[x]];
    return x;
  }
  void join(uint32_t x, uint32_t y) {
    x = find(x);
    y = find(y);
    if (x != y) parent_[std::max(x, y)] = std::min(x, y);
  }

 private:
  std::vector<uint32_t> parent_;
};

// Edges by their lower position: the higher ends of every polygon edge that starts there.
struct EdgesByLowerEnd {
  std::vector<uint32_t> start, higher;
};

template <typename Visit>
void forEachEdge(const MeshData& mesh, const std::vector<uint32_t>& positionOf, Visit&& visit) {
  uint32_t cycle[4];
  for (const MeshPolygon& polygon : mesh.polygons) {
    const int count = positionCycle(polygon, positionOf, cycle);
    if (count < 3) continue;  // no area: no edges to close a shell with
    for (int k = 0; k < count; ++k) {
      const uint32_t p = cycle[k], q = cycle[(k + 1) % count];
      visit(std::min(p, q), std::max(p, q));
    }
  }
}

EdgesByLowerEnd edgesByLowerEnd(const MeshData& mesh, const std::vector<uint32_t>& positionOf,
                                size_t positions) {
  EdgesByLowerEnd edges;
  edges.start.assign(positions + 1, 0);
  forEachEdge(mesh, positionOf, [&](uint32_t low, uint32_t) { ++edges.start[low + 1]; });
  for (size_t k = 1; k < edges.start.size(); ++k) edges.start[k] += edges.start[k - 1];
  edges.higher.resize(edges.start.back());
  std::vector<uint32_t> filled(edges.start.begin(), edges.start.end() - 1);
  forEachEdge(mesh, positionOf,
              [&](uint32_t low, uint32_t high) { edges.higher[filled[low]++] = high; });
  return edges;
}

// Marks the shell of every position at which some edge is not shared by exactly two polygons.
std::vector<bool> openShells(EdgesByLowerEnd edges, DisjointSets& shells) {
  std::vector<bool> open(edges.start.size() - 1, false);
  for (uint32_t p = 0; p + 1 < edges.start.size(); ++p) {
    const auto first = edges.higher.begin() + edges.start[p];
    const auto last = edges.higher.begin() + edges.start[p + 1];
    std::sort(first, last);
    for (auto run = first; run != last;) {
      const auto end = std::find_if(run, last, [&](uint32_t q) { return q != *run; });
      if (end - run != 2) open[shells.find(p)] = true;
      run = end;
    }
  }
  return open;
}

double signedVolume(const MeshData& mesh, const MeshPolygon& polygon, const Vector3& origin) {
  const Vector3 a = mesh.points[polygon.a] - origin, b = mesh.points[polygon.b] - origin,
                c = mesh.points[polygon.c] - origin, d = mesh.points[polygon.d] - origin;
  const double fan = a.dot(b.cross(c)) + (polygon.isTriangle() ? 0.0 : a.dot(c.cross(d)));
  return fan / 6.0;
}

}  // namespace

ShellOrientation::ShellOrientation(const MeshData& mesh) : flags_(mesh.polygons.size(), 0) {
  const std::vector<uint32_t> positionOf = positionNumbers(mesh);
  const size_t positions =
      positionOf.empty() ? 0 : *std::max_element(positionOf.begin(), positionOf.end()) + 1;
  DisjointSets shells(positions);
  for (const MeshPolygon& polygon : mesh.polygons) {
    shells.join(positionOf[polygon.a], positionOf[polygon.b]);
    shells.join(positionOf[polygon.a], positionOf[polygon.c]);
    shells.join(positionOf[polygon.a], positionOf[polygon.d]);
  }
  const std::vector<bool> open = openShells(edgesByLowerEnd(mesh, positionOf, positions), shells);
  // Volumes about a point of each shell, so that a small shell far from the origin keeps its
  // digits.
  std::vector<double> volume(positions, 0.0);
  std::vector<uint32_t> originPoint(positions, 0);
  for (uint32_t i = 0; i < positionOf.size(); ++i) originPoint[positionOf[i]] = i;
  for (const MeshPolygon& polygon : mesh.polygons) {
    const uint32_t shell = shells.find(positionOf[polygon.a]);
    volume[shell] += signedVolume(mesh, polygon, mesh.points[originPoint[shell]]);
  }
  for (size_t i = 0; i < mesh.polygons.size(); ++i) {
    const uint32_t shell = shells.find(positionOf[mesh.polygons[i].a]);
    if (open[shell]) {
      flags_[i] = kOpen;
    } else if (volume[shell] < 0.0) {
      flags_[i] = kReversed;
    }
  }
}

}  // namespace mv
