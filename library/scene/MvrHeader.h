// MvrHeader: what every classic create operation of a scene load receives about its object:
// visibility, life span, placement, switches, phototropic response and primitive.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "core/Matrix4.h"
#include "core/Vector3.h"

namespace mv {

struct MvrHeader {
  bool hidden = false;
  double existenceStart = 0.0;
  double existenceEnd = 1.0;
  std::string name;
  Matrix4 matrix;  // the object's transform
  std::vector<std::uint16_t> switchMasks;
  std::int16_t photoAxis = 1;  // 0 x, 1 y, 2 z
  std::int16_t photoMode = 0;
  double photoStrength = 0.0;
  std::string primitiveType = "Undefined";
  bool solid = false;
  int attractorMode = -1;
  double attractorCenter = 0.0;
  double attractorStrength = 0.0;
  Vector3 primitiveTranslation;
  Vector3 primitiveScale{1, 1, 1};
  Vector3 primitiveRotation;

  MvrHeader() = default;
  // The header of a link node, made from a bare name: not hidden, unit matrix, life span 0 to 1.
  explicit MvrHeader(std::string bareName) : name(std::move(bareName)) {}
};

}  // namespace mv
