// The words of the geometry stream: commands, value-list kinds and the protocol states through
// which a primitive's tokens are read.
#pragma once

namespace mv {

enum GeomCommand : int {
  CmdGroupBeginLegacy = 0,  // behaves as CmdGroupBegin
  CmdGroupEndLegacy = 1,    // behaves as CmdGroupEnd
  CmdGroupBegin = 2,
  CmdGroupEnd = 3,
  CmdTransformBegin = 4,
  CmdTransformEnd = 5,
  CmdTransform = 6,
  CmdMaterialIndex = 7,
  CmdAttribute = 8,
  CmdPolygon = 9,
  CmdPolygonMesh = 10,
  CmdPatch = 16,
};

enum GeomParamKind : int {
  ParamNone = 0,
  ParamPoints = 1,
  ParamTexture = 2,
  ParamSelection = 4,
};

enum GeomState : int {
  StateUCount = 0,
  StateUOrder = 1,
  StateUKnots = 2,
  StateUMin = 3,
  StateUMax = 4,
  StateVCount = 5,
  StateVOrder = 6,
  StateVKnots = 7,
  StateVMin = 8,
  StateVMax = 9,
  StateListCount = 10,
  StateListValues = 11,
  StateMaterial = 12,
  StateParamList = 14,
  StateParamValues = 15,
  StateMatrix = 16,
};

}  // namespace mv
