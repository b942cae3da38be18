#include "classic/ClassicSpline.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace mv {

namespace {

// A vector whose components are all negligible is used as it is, not divided by its length.
Vector3 unitOrSelf(const Vector3& v, double length) {
  const bool tiny = std::fabs(v.x) <= 1e-10 && std::fabs(v.y) <= 1e-10 && std::fabs(v.z) <= 1e-10;
  return tiny ? v : v / length;
}

// Tangent at one end of a span: along the chord alone, or averaged with the neighbouring span.
Vector3 endTangent(const Vector3& chordUnit, double chordLength, const Vector3* neighbourSpan,
                   double tension) {
  if (!neighbourSpan) return chordUnit * (chordLength / tension);
  const double neighbourLength = neighbourSpan->length();
  const double weight = (chordLength + neighbourLength) / (4.0 * tension);
  return (chordUnit + unitOrSelf(*neighbourSpan, neighbourLength)) * weight;
}

}  // namespace

double ClassicSpline::length() const {
  double sum = 0.0;
  for (auto it = keys.begin(); it != keys.end() && std::next(it) != keys.end(); ++it) {
    sum += (std::next(it)->second - it->second).length();
  }
  return sum;
}

Vector3 ClassicSpline::pointAt(double t) const {
  if (keys.empty()) return {};
  if (keys.size() == 1) return keys.begin()->second;
  t = std::clamp(t, 0.0, 1.0);
  // The pair around t: first is the last key below t, but never the last key itself. A search,
  // not a walk: trunks of many knots ask for a point at every sample.
  auto first = keys.lower_bound(t);
  if (first != keys.begin()) --first;
  if (std::next(first) == keys.end()) --first;
  const auto second = std::next(first);
  const Vector3 p1 = first->second, p2 = second->second;
  const Vector3 chord = p2 - p1;
  const double len = chord.length();
  const Vector3 u = unitOrSelf(chord, len);
  Vector3 before, after;
  const bool hasBefore = first != keys.begin();
  const bool hasAfter = std::next(second) != keys.end();
  if (hasBefore) before = p1 - std::prev(first)->second;
  if (hasAfter) after = std::next(second)->second - p2;
  const Vector3 m1 = endTangent(u, len, hasBefore ? &before : nullptr, tension);
  const Vector3 m2 = endTangent(u, len, hasAfter ? &after : nullptr, tension);
  const double s = (t - first->first) / (second->first - first->first);
  return (((p1 * 2 + m1 - p2 * 2 + m2) * s + (p1 * -3 - m1 * 2 + p2 * 3 - m2)) * s + m1) * s + p1;
}

}  // namespace mv
