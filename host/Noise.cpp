#include "host/Noise.h"

#include <array>
#include <cmath>

#include "host/Random.h"

namespace {

// A permutation of 0 to 255 shuffled by the host's generator with a fixed seed, doubled.
const std::array<int, 512>& permutation() {
  static const std::array<int, 512> table = [] {
    std::array<int, 512> p{};
    for (int i = 0; i < 256; ++i) p[i] = i;
    Random random;
    random.Init(1);
    for (int i = 255; i > 0; --i) {
      int j = static_cast<int>(random.Get01() * (i + 1));
      std::swap(p[i], p[j]);
    }
    for (int i = 0; i < 256; ++i) p[256 + i] = p[i];
    return p;
  }();
  return table;
}

Float fade(Float t) { return t * t * t * (t * (t * 6 - 15) + 10); }

Float lerp(Float t, Float a, Float b) { return a + t * (b - a); }

// The dot product of the offset with one of twelve edge directions of a cube.
Float gradient(int hash, Float x, Float y, Float z) {
  int h = hash & 15;
  Float u = h < 8 ? x : y;
  Float v = h < 4 ? y : (h == 12 || h == 14 ? x : z);
  return ((h & 1) ? -u : u) + ((h & 2) ? -v : v);
}

}  // namespace

Float Noise(const Vector& p) {
  const auto& perm = permutation();
  Float fx = std::floor(p.x), fy = std::floor(p.y), fz = std::floor(p.z);
  int X = static_cast<int>(static_cast<long long>(fx) & 255);
  int Y = static_cast<int>(static_cast<long long>(fy) & 255);
  int Z = static_cast<int>(static_cast<long long>(fz) & 255);
  Float x = p.x - fx, y = p.y - fy, z = p.z - fz;
  Float u = fade(x), v = fade(y), w = fade(z);
  int A = perm[X] + Y, AA = perm[A] + Z, AB = perm[A + 1] + Z;
  int B = perm[X + 1] + Y, BA = perm[B] + Z, BB = perm[B + 1] + Z;
  Float n = lerp(
      w,
      lerp(v, lerp(u, gradient(perm[AA], x, y, z), gradient(perm[BA], x - 1, y, z)),
           lerp(u, gradient(perm[AB], x, y - 1, z), gradient(perm[BB], x - 1, y - 1, z))),
      lerp(v, lerp(u, gradient(perm[AA + 1], x, y, z - 1), gradient(perm[BA + 1], x - 1, y, z - 1)),
           lerp(u, gradient(perm[AB + 1], x, y - 1, z - 1),
                gradient(perm[BB + 1], x - 1, y - 1, z - 1))));
  if (!std::isfinite(n)) return 0.5;
  return std::fmin(1.0, std::fmax(0.0, 0.5 + 0.5 * n));
}
