// MvrTypeData: the fields of the type blocks of a scene object ("Tree", "Horn", "Leaf", ...). One
// record serves every type; which fields a type uses is decided when the scene is loaded. Knots
// are (position 0 to 1, value, unused) unless the field says they are points in space.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "core/Vector3.h"
#include "scene/MvrLimitedTriple.h"
#include "scene/MvrRange.h"
#include "scene/MvrTriple.h"

namespace mv {

// Limits and angles that the format stores in single precision.
constexpr double kMvrPi = 3.14159f;
constexpr double kMvrHalfPi = 1.57f;

struct MvrTypeData {
  MvrTriple segments{20, 1, 100};
  bool top = true;
  MvrRange scaleRange{1, 1, "id", 0, 5};  // "Scale" in a Horn, PhiBall or Hydra
  MvrLimitedTriple scaleRows{{1, 1, 1}, {0, 0, 0}, {10, 10, 10}};  // "Scale" elsewhere
  MvrRange shape{0, kMvrHalfPi, "cos", -kMvrPi, kMvrPi};
  MvrRange dense{0, 0, "cos", -kMvrPi, kMvrPi};
  MvrRange steps{1, 1, "id", 1, 200};
  MvrRange flap{0, 0, "id", -7, 7};
  MvrRange screw{0, 0, "id", -50, 50};
  MvrRange rotX{0, 0, "id", -1, 1};
  MvrRange rotY{0, 0, "id", -1, 1};
  MvrRange rotZ{0, 0, "id", -1, 1};
  MvrRange trX{0, 0, "id", -20, 20};
  MvrRange trY{0, 0, "id", -20, 20};
  MvrRange trZ{0, 0, "cos", -kMvrPi, kMvrPi};
  bool smooth = false;
  int characteristic = 5;
  bool applyShape = false;  // use shapeKnots rather than the range shape
  double moveScale = 20;
  MvrTriple length{1, 0.001f, 20};
  bool spline = false;  // follow the path of knots
  int pairs = 0;
  MvrTriple branchNum{10, 1, 100};
  MvrTriple kruschtlKnots{2, 0, 10};
  MvrTriple iniScale{1, 0, 1};
  int version = 6;  // object version: how a Tree lies
  MvrTriple number{10, 1, 500};
  MvrTriple radius{0.5, 0, 10};
  MvrTriple influence{1, 0, 1};
  MvrRange fan{0, kMvrPi, "id", 0, kMvrPi};
  MvrRange trans{0, 0, "id", -10, 10};
  MvrRange angle{1, 1, "phi", -10, 10};
  MvrRange twist{0, 0, "id", -kMvrPi, kMvrPi};
  MvrRange spin{0, 0, "id", -kMvrPi, kMvrPi};
  MvrTriple translation;  // the first number is a Wreath's radius
  int basis = 0;
  bool deformPoints = false;
  bool separator = false;
  int method = 1;  // prune method
  int operation = 1;

  std::vector<Vector3> knots;  // points in space: the object's path
  std::vector<Vector3> shapeKnots{{0, 0.9, 0}, {0.5, 0.6, 0}, {1, 0, 0}};
  std::set<std::string> branches;  // blocks "Ribs" and "Branches"
  std::vector<Vector3> branchiness;
  std::vector<Vector3> scaleKnots{{0, 0.5, 0}, {0.5, 0.5, 0}, {1, 0, 0}};
  std::vector<Vector3> deviate{{0, 0, 0}, {0.5, 0, 0}, {1, 0, 0}};
  std::vector<Vector3> geomScale;
  std::vector<Vector3> angleKnots{{0, 0.4, 0}, {0.5, 0.4, 0}, {1, 0.6, 0}};
  std::vector<Vector3> screwKnots;
  std::vector<Vector3> phototropism;
  std::vector<Vector3> gravitropism;
  std::vector<Vector3> kruschtl;
  std::vector<Vector3> denseKnots{{0, 0, 0}, {0.5, 0.5, 0}, {1, 0.2, 0}};
  std::vector<Vector3> patchPoints;  // points in space
};

}  // namespace mv
