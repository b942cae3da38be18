// ClassicHorn: the classic stalk. Instead of a trunk it walks a chain of small turns and steps,
// each read from curves over the horn's length, or follows a path of the scene file. Along the
// chain it sweeps the profile, places the standard element every few frames, the top element at
// the end and every further child once.
//
// Children: the first is the profile, the second the standard element, the third the top
// element; every further child is placed once.
#pragma once

#include <vector>

#include "classic/ClassicNodeParameters.h"
#include "classic/ClassicSimple.h"
#include "classic/ClassicSpline.h"
#include "classic/TreeFrame.h"

namespace mv {

class CurveParam;

class ClassicHorn : public ClassicSimple {
 public:
  // Frames beyond this count only come from broken files.
  static constexpr int kMaxSegments = 100000;

  // The curves of the chain; none may be null.
  struct ChainCurves {
    const CurveParam* rotX;
    const CurveParam* rotY;
    const CurveParam* rotZ;
    const CurveParam* trX;
    const CurveParam* trY;
    const CurveParam* dense;
  };

  // floor(segments) + 1 frames at u = i / floor(segments); the curves read at the frame before
  // turn and move the chain on by length / segments, in radians and units per unit of length.
  static std::vector<TreeFrame> buildHornFrames(const ChainCurves& curves, double segments,
                                                double length, double moveScale);

  bool initParameters(ParameterSet& params, double size) override;
  std::string& typeName(std::string& out) override;
  bool hasGeometry(ParameterSet& params) override;
  bool assignRoles(ParameterSet& params, std::vector<int>& roles, int childCount) override;
  // Returns the mask of the roles placed; 0, before any geometry, for a missing curve.
  int evaluate(ParameterSet& params, OGeomStream& stream, int roleMask, PlacementList& placements,
               double lod) override;

  ClassicSpline path;  // no keys: the chain of turns and steps

 protected:
  // The last frame as the top element, carrying the node's own values.
  static PlacementGroup topPlacement(ParameterSet& params, const std::vector<TreeFrame>& frames);
  // One placement of role 16 at matrix.
  static PlacementGroup otherPlacement(const Matrix4& matrix);
};

}  // namespace mv
