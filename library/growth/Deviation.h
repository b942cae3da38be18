// Deviation: a spline deformer that makes a stem change direction at each of its nodes, so that
// the path zigzags or spirals from node to node. The nodes are those of the Branch that owns the
// path: the deformer reads that Branch's node count, distribution and screw through read-through
// ids and works out the same node positions. At every node the rest of the path kinks by the
// deviation angle, in a plane that the screw turns from node to node; each point keeps its place
// relative to the last node before it. Without an owning Branch it does nothing, silently.
#pragma once

#include "core/Simple.h"

namespace mv {

class Deviation : public virtual Simple {
 public:
  enum ParameterId : int {
    deviationAngle = 7001,         // curve: kink angle at a node
    ownerNodeNumber = 8301,        // double: nodeNumber of the owning Branch
    ownerNodeDistribution = 8306,  // curve: nodeDistribution of the owning Branch
    ownerNodeScrew = 8309,         // curve: nodeScrew of the owning Branch
  };

  // More nodes than this leave the path unchanged, with an error: a wild count must not hang.
  static constexpr double kMaxNodes = 1e6;

  // Default: deviationAngle pi / 4 over the range 0 to pi.
  bool initParameters(ParameterSet& params, double size) override;
  std::string& typeName(std::string& out) override;
  int modifierKinds() override;
  // Kinks every segment of spline in place at the owner's node positions; always true. Without
  // the owner's values, with no nodes, or for a segment whose frames cannot be built (fewer than
  // two points), the points stay as they are. toWorld is not read.
  bool deformSpline(ParameterSet& params, Spline& spline, const Matrix4& toWorld) override;
};

}  // namespace mv
