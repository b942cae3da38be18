#include "classic/ClassicHyperpatch.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/MathConstants.h"
#include "geometry/EditableMesh.h"

namespace mv {

namespace {

constexpr int kMaxSide = 5;

// The Bernstein polynomials of degree n - 1 at t.
std::array<double, kMaxSide> bernstein(int n, double t) {
  static constexpr double kBinomial[kMaxSide][kMaxSide] = {
      {1}, {1, 1}, {1, 2, 1}, {1, 3, 3, 1}, {1, 4, 6, 4, 1}};
  std::array<double, kMaxSide> b{};
  for (int k = 0; k < n; ++k) {
    b[k] = kBinomial[n - 1][k] * std::pow(t, k) * std::pow(1.0 - t, n - 1 - k);
  }
  return b;
}

}  // namespace

int ClassicHyperpatch::latticeSide(size_t count) {
  for (int n = 2; n <= kMaxSide; ++n) {
    if (count == static_cast<size_t>(n * n * n)) return n;
  }
  return 0;
}

std::vector<Vector3> ClassicHyperpatch::restingLattice(int n) {
  std::vector<Vector3> lattice;
  for (int c = 0; c < n; ++c) {
    for (int b = 0; b < n; ++b) {
      for (int a = 0; a < n; ++a) lattice.push_back(Vector3(a, b, c) * (1.0 / (n - 1)));
    }
  }
  return lattice;
}

std::string& ClassicHyperpatch::typeName(std::string& out) { return out = "ClassicHyperpatch"; }

int ClassicHyperpatch::modifierKinds() { return ModifierFinishMesh; }

bool ClassicHyperpatch::finishMesh(ParameterSet&, EditableMesh& mesh) {
  Vector3 min, max;
  if (!mesh.getBoundingBox(min, max)) return false;
  const Vector3 extent = max - min;
  const double size = std::max({extent.x, extent.y, extent.z, 0.0});
  if (std::abs(size) < kZeroTolerance) return false;
  const int n = latticeSide(points.size());
  if (n == 0) return false;
  const Vector3 center = (min + max) * 0.5;
  const Vector3 half(0.5, 0.5, 0.5);
  for (uint32_t i = 0; i < mesh.getPointCount(); ++i) {
    Vector3 p;
    mesh.getPoint(i, p);
    const Vector3 t = (p - center) * (1.0 / size) + half;
    const auto bx = bernstein(n, t.x), by = bernstein(n, t.y), bz = bernstein(n, t.z);
    Vector3 q;
    for (int c = 0; c < n; ++c) {
      for (int b = 0; b < n; ++b) {
        for (int a = 0; a < n; ++a) q = q + points[a + b * n + c * n * n] * (bx[a] * by[b] * bz[c]);
      }
    }
    mesh.setPoint(i, (q - half) * size + center);
  }
  return true;
}

}  // namespace mv
