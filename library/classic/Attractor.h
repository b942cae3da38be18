// Attractor: a point deformer of the classic scene graph. After the subtree below it has been
// written to a local mesh, it pushes the mesh's points away from (or, with a negative strength,
// toward) the fields of its children: each child node is an AttractorPrim whose local matrix
// places the field and whose parameters give its strength and centre. The push is the strength
// times 100 at the centre and falls off along a raised cosine to nothing at 50 units of the
// child's space. Children act in child order, each on the result of the one before.
//
// It lives with the scene graph rather than the growth nodes because it walks the children of
// its Node, which the growth layer below does not know. Its children pass through unchanged.
#pragma once

#include "core/Simple.h"

namespace mv {

class Attractor : public virtual Simple {
 public:
  // Beyond this distance in the child's space a field has no effect.
  static constexpr double kFalloffRadius = 50.0;
  // A strength of 1 moves a point at the centre by this much.
  static constexpr double kStrengthScale = 100.0;

  std::string& typeName(std::string& out) override;
  int modifierKinds() override;
  // Moves every point of mesh once per child of node with a non-zero attractorStrength (the
  // child's attractorCenter is stored for the host and not used here); debug
  // messages trace the point count and each acting child. params and placements are not read.
  // A point exactly at a field's centre stays where it is. Always true.
  bool deformPoints(ParameterSet& params, EditableMesh& mesh, PlacementList& placements,
                    Node& node) override;
};

}  // namespace mv
