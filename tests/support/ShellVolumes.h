// shellVolumes: a triangle soup split into shells (triangles that share a position, compared
// exactly), each with its signed volume and whether it is closed (every edge joins exactly two
// triangles). Linear in the soup's size, so that tests can judge the large files they write.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <numeric>
#include <vector>

#include "core/Vector3.h"

struct Shell {
  bool closed = true;
  double volume = 0.0;  // positive when a closed shell faces outward
  size_t triangles = 0;
};

inline std::vector<Shell> shellVolumes(const std::vector<mv::Vector3>& positions,
                                       const std::vector<std::array<uint32_t, 3>>& triangles) {
  std::map<std::array<double, 3>, uint32_t> numbers;
  std::vector<uint32_t> id(positions.size());
  for (size_t i = 0; i < positions.size(); ++i) {
    const std::array<double, 3> key = {positions[i].x, positions[i].y, positions[i].z};
    id[i] = numbers.emplace(key, uint32_t(numbers.size())).first->second;
  }
  std::vector<uint32_t> parent(numbers.size());
  std::iota(parent.begin(), parent.end(), 0u);
  const auto find = [&parent](uint32_t x) {
    while (parent[x] != x) x = parent[x] = parent[parent[x]];
    return x;
  };
  std::map<std::pair<uint32_t, uint32_t>, int> edges;
  for (const auto& t : triangles) {
    for (int k = 0; k < 3; ++k) {
      const uint32_t p = id[t[k]], q = id[t[(k + 1) % 3]];
      parent[find(p)] = find(q);
      if (p != q) ++edges[{std::min(p, q), std::max(p, q)}];
    }
  }
  std::map<uint32_t, Shell> shells;
  for (const auto& t : triangles) {
    Shell& shell = shells[find(id[t[0]])];
    shell.volume += positions[t[0]].dot(positions[t[1]].cross(positions[t[2]])) / 6.0;
    ++shell.triangles;
  }
  for (const auto& [edge, count] : edges) {
    if (count != 2) shells[find(edge.first)].closed = false;
  }
  std::vector<Shell> result;
  for (const auto& entry : shells) result.push_back(entry.second);
  return result;
}
