// Vector3: three doubles, the point and direction type of all geometry.
#pragma once

#include <cmath>

namespace mt {

struct Vector3 {
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;

  constexpr Vector3() = default;
  constexpr Vector3(double xValue, double yValue, double zValue)
      : x(xValue), y(yValue), z(zValue) {}

  constexpr Vector3 operator+(const Vector3& o) const { return {x + o.x, y + o.y, z + o.z}; }
  constexpr Vector3 operator-(const Vector3& o) const { return {x - o.x, y - o.y, z - o.z}; }
  constexpr Vector3 operator-() const { return {-x, -y, -z}; }
  constexpr Vector3 operator*(double s) const { return {x * s, y * s, z * s}; }
  constexpr Vector3 operator/(double s) const { return {x / s, y / s, z / s}; }
  Vector3& operator+=(const Vector3& o) { return *this = *this + o; }
  Vector3& operator-=(const Vector3& o) { return *this = *this - o; }
  Vector3& operator*=(double s) { return *this = *this * s; }
  constexpr bool operator==(const Vector3& o) const { return x == o.x && y == o.y && z == o.z; }
  constexpr bool operator!=(const Vector3& o) const { return !(*this == o); }

  constexpr double dot(const Vector3& o) const { return x * o.x + y * o.y + z * o.z; }
  constexpr Vector3 cross(const Vector3& o) const {
    return {y * o.z - z * o.y, z * o.x - x * o.z, x * o.y - y * o.x};
  }
  double length() const { return std::sqrt(dot(*this)); }
  // A zero vector stays zero rather than becoming NaN.
  Vector3 normalized() const {
    const double len = length();
    return len > 0.0 ? *this / len : Vector3();
  }
};

inline constexpr Vector3 operator*(double s, const Vector3& v) { return v * s; }

}  // namespace mt

namespace mv {
using mt::Vector3;
}  // namespace mv
