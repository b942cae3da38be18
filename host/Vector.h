// Vector: a point or direction of the host, three doubles.
#pragma once

#include <cmath>

#include "host/HostTypes.h"

struct Vector {
  Float x = 0.0, y = 0.0, z = 0.0;

  constexpr Vector() = default;
  constexpr Vector(Float x, Float y, Float z) : x(x), y(y), z(z) {}
  constexpr explicit Vector(Float all) : x(all), y(all), z(all) {}

  constexpr Vector operator+(const Vector& o) const { return {x + o.x, y + o.y, z + o.z}; }
  constexpr Vector operator-(const Vector& o) const { return {x - o.x, y - o.y, z - o.z}; }
  constexpr Vector operator-() const { return {-x, -y, -z}; }
  constexpr Vector operator*(Float s) const { return {x * s, y * s, z * s}; }
  constexpr Vector operator/(Float s) const { return {x / s, y / s, z / s}; }
  Vector& operator+=(const Vector& o) { return *this = *this + o; }
  Vector& operator-=(const Vector& o) { return *this = *this - o; }
  Vector& operator*=(Float s) { return *this = *this * s; }
  constexpr bool operator==(const Vector& o) const { return x == o.x && y == o.y && z == o.z; }
  constexpr bool operator!=(const Vector& o) const { return !(*this == o); }

  Float GetSquaredLength() const { return x * x + y * y + z * z; }
  Float GetLength() const { return std::sqrt(GetSquaredLength()); }
  // A zero vector stays zero.
  Vector GetNormalized() const {
    Float length = GetLength();
    return length > 0.0 ? *this / length : Vector();
  }
};

inline constexpr Vector operator*(Float s, const Vector& v) { return v * s; }
inline constexpr Float Dot(const Vector& a, const Vector& b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline constexpr Vector Cross(const Vector& a, const Vector& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
// Component-wise product.
inline constexpr Vector Scale(const Vector& a, const Vector& b) {
  return {a.x * b.x, a.y * b.y, a.z * b.z};
}
