#include "console/NearestName.h"

#include <algorithm>

// One row of the distance table at a time.
std::size_t editDistance(const std::string& a, const std::string& b) {
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t above = row[j];
      row[j] = std::min({above + 1, row[j - 1] + 1, diagonal + (a[i - 1] == b[j - 1] ? 0 : 1)});
      diagonal = above;
    }
  }
  return row[b.size()];
}

std::string nearestName(const std::string& word, const std::vector<std::string>& names) {
  std::string nearest;
  std::size_t best = 0;
  for (const std::string& name : names) {
    const std::size_t distance = editDistance(word, name);
    if (nearest.empty() || distance < best) {
      nearest = name;
      best = distance;
    }
  }
  return nearest;
}
