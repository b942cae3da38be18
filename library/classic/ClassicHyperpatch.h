// ClassicHyperpatch: a free-form lattice of 2 to 5 control points per axis that deforms the mesh
// of everything below it. The lattice is a cube round the mesh's bounding box, as large as its
// largest extent, so that a flat object is not stretched; control points at the even lattice
// leave the mesh as it is.
#pragma once

#include <vector>

#include "classic/ClassicSimple.h"
#include "core/Vector3.h"

namespace mv {

class ClassicHyperpatch : public ClassicSimple {
 public:
  // Points per axis of a lattice of count control points (8, 27, 64 or 125); 0 for any other.
  static int latticeSide(size_t count);
  // The even lattice of side n, a at x running fastest: the lattice that changes nothing.
  static std::vector<Vector3> restingLattice(int n);

  std::string& typeName(std::string& out) override;
  int modifierKinds() override;
  // False, with the mesh untouched, for an empty or flat box or a wrong number of points.
  bool finishMesh(ParameterSet& params, EditableMesh& mesh) override;

  std::vector<Vector3> points;  // control points in the unit cube, index a + b n + c n²
};

}  // namespace mv
