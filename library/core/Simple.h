// Simple: the node protocol. Every generator, modifier, classic node and solid is a Simple.
// A node is stateless between calls: once per evaluation its caller asks assignRoles (what is
// each child for?) and then evaluate (write geometry to the stream, say where instances of which
// children go). The node never touches its children; the caller instances them.
#pragma once

#include <string>
#include <vector>

#include "core/Matrix4.h"
#include "core/PlacementGroup.h"

namespace mv {

class EditableMesh;
class Node;
class OGeomStream;
class ParameterSet;
class Spline;

// Bits of modifierKinds: which of the modifier operations a node implements.
enum ModifierKind : int {
  ModifierFinishMesh = 1,
  ModifierDeformSpline = 2,
  ModifierDeformPoints = 4,
};

class Simple {
 public:
  virtual ~Simple() = default;

  // Writes the node's defaults into a fresh set; size scales the defaults of length.
  virtual bool initParameters(ParameterSet& params, double size);
  virtual std::string& typeName(std::string& out);
  // True when evaluate writes geometry of its own, so that a role-1 child is consumed as input.
  virtual bool hasGeometry(ParameterSet& params);
  // Appends exactly childCount roles to roles, one per child in child order.
  virtual bool assignRoles(ParameterSet& params, std::vector<int>& roles, int childCount);
  // Writes geometry to stream and appends placement groups; returns the mask of roles placed.
  virtual int evaluate(ParameterSet& params, OGeomStream& stream, int roleMask,
                       PlacementList& placements, double lod);
  virtual int modifierKinds();
  virtual bool deformSpline(ParameterSet& params, Spline& spline, const Matrix4& toWorld);
  virtual bool deformPoints(ParameterSet& params, EditableMesh& mesh, PlacementList& placements,
                            Node& node);
  virtual bool finishMesh(ParameterSet& params, EditableMesh& mesh);
};

// The OR of all roles, as a caller computes the roleMask it hands to evaluate.
int roleMaskOf(const std::vector<int>& roles);

}  // namespace mv
