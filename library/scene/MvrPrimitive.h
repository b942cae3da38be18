// MvrPrimitive: the geometric primitive of a scene object and the material fields that come with
// it (block "Primitive" of a "Struct").
#pragma once

#include <string>
#include <vector>

#include "core/Vector3.h"
#include "scene/MvrColor.h"
#include "scene/MvrRange.h"
#include "scene/MvrTransform.h"
#include "scene/MvrTriple.h"

namespace mv {

struct MvrPrimitive {
  // "Undefined", "Attractor", "Tube", "Area", "Square", "Triangle1", "Triangle2", "Circle", "Box",
  // "Sphere", "Cylinder" or "Cone".
  std::string type = "Undefined";
  double points = 3;  // corners of a Tube cross-section
  bool separator = false;
  bool deformable = true;
  double resolution = 1;
  MvrRange displace{0, 0, "rnd", -0.5, 0.5};
  MvrTriple torusMinor{0.2f, 0, 1};
  std::string color;
  std::string texture;
  std::string textureFile = "Default";  // "None": no file
  int textureHandler = 2;               // 1: the texture fields are in force
  MvrTriple textureScaleS{1, 0.01f, 10};
  MvrTriple textureScaleT{1, 0.01f, 10};
  MvrTriple textureShiftS{0, -10, 10};
  MvrTriple textureShiftT{0, -10, 10};
  MvrTriple textureSpeed{1, 0, 1};
  MvrTriple alpha{1, 0, 1};
  double attractorCenter = 0.1f;
  MvrTriple attractorStrength{1, -5, 5};
  int attractorMode = -1;
  bool useGfxColor = false;  // the GFXColor colours are in force
  bool flat = false;         // an open surface
  bool applyProfil3D = false;
  bool applyProfil = false;

  MvrTransform transform;              // the primitive's own placement
  std::vector<Vector3> profil;         // block "Profil"
  MvrColor ambient{0.1f, 0.1f, 0.1f};  // block "GFXColor"
  MvrColor diffuse{0.5f, 0.5f, 0.5f};
  MvrColor specular;
  MvrColor emission;
  double gfxAlpha = 1;  // stored only: a material's opacity comes from alpha
};

}  // namespace mv
