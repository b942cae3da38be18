#include "host/Noise.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "host/Random.h"

namespace {

constexpr UInt32 kLatticeSeed = 4711;

// A permutation of 0 to 255, twice over so that sums of two entries need no wrap.
std::array<int, 512> makePermutation() {
  std::array<int, 512> table{};
  for (int k = 0; k < 256; ++k) table[size_t(k)] = k;
  Random random;
  random.Init(kLatticeSeed);
  for (int k = 255; k > 0; --k) {
    std::swap(table[size_t(k)], table[size_t(random.Get01() * (k + 1))]);
  }
  for (int k = 0; k < 256; ++k) table[size_t(k + 256)] = table[size_t(k)];
  return table;
}

const std::array<int, 512>& permutation() {
  static const std::array<int, 512> table = makePermutation();
  return table;
}

Float fade(Float t) { return t * t * t * (t * (t * 6 - 15) + 10); }
Float lerp(Float t, Float a, Float b) { return a + t * (b - a); }

// The dot product of (x, y, z) with one of twelve edge directions of a cube, chosen by hash.
Float gradient(int hash, Float x, Float y, Float z) {
  const int h = hash & 15;
  const Float u = h < 8 ? x : y;
  const Float v = h < 4 ? y : (h == 12 || h == 14 ? x : z);
  return ((h & 1) ? -u : u) + ((h & 2) ? -v : v);
}

// The lattice cell index of a coordinate, wrapped to the table, and the offset inside the cell.
int cell(Float value, Float& offset) {
  const Float floor = std::floor(value);
  offset = value - floor;
  return int(std::fmod(floor, 256.0) + 256.0) & 255;
}

}  // namespace

Float Noise(const Vector& p) {
  if (!std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(p.z)) return 0.5;
  const std::array<int, 512>& perm = permutation();
  Float x, y, z;
  const int X = cell(p.x, x), Y = cell(p.y, y), Z = cell(p.z, z);
  const Float u = fade(x), v = fade(y), w = fade(z);
  const int A = perm[size_t(X)] + Y, AA = perm[size_t(A)] + Z, AB = perm[size_t(A + 1)] + Z;
  const int B = perm[size_t(X + 1)] + Y, BA = perm[size_t(B)] + Z, BB = perm[size_t(B + 1)] + Z;
  const auto g = [&](int index, Float dx, Float dy, Float dz) {
    return gradient(perm[size_t(index)], dx, dy, dz);
  };
  const Float n = lerp(w,
                       lerp(v, lerp(u, g(AA, x, y, z), g(BA, x - 1, y, z)),
                            lerp(u, g(AB, x, y - 1, z), g(BB, x - 1, y - 1, z))),
                       lerp(v, lerp(u, g(AA + 1, x, y, z - 1), g(BA + 1, x - 1, y, z - 1)),
                            lerp(u, g(AB + 1, x, y - 1, z - 1), g(BB + 1, x - 1, y - 1, z - 1))));
  return std::clamp(0.5 + 0.5 * n, 0.0, 1.0);
}
