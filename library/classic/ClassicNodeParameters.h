// ClassicNodeParameters: the parameter ids of the classic node kinds (tree, phiball, horn, leaf,
// hydra, wreath, prune) as the scene loader fills them. The ids that every classic node shares
// are in ClassicSimple.h, those of the primitives and the attractor values in SolidParameters.h.
#pragma once

namespace mv {

enum ClassicNodeParameterId : int {
  IdTreeSegments = 20200,
  IdTreeLength = 20201,
  IdTreeIniScale = 20202,
  IdTreeTop = 20203,
  IdTreeBranchNum = 20204,
  IdTreeShape = 20205,
  IdTreeDeviate = 20206,
  IdTreeKruschtlKnots = 20207,
  IdTreeKruschtl = 20208,
  IdTreeBranchiness = 20209,
  IdTreeScrew = 20210,
  IdTreeAngle = 20211,
  IdTreeDense = 20212,
  IdTreeScale = 20213,
  IdTreeGeomScale = 20214,
  IdTreePairs = 20215,
  IdTreePhototropism = 20216,
  IdTreeGravitropism = 20217,
  IdTreeVersion = 20220,
  IdTreeSeparator = 20221,

  IdPhiballNumber = 20300,
  IdPhiballRadius = 20301,
  IdPhiballInfluence = 20302,
  IdPhiballAngle = 20303,
  IdPhiballFan = 20304,
  IdPhiballScale = 20305,
  IdPhiballTrans = 20306,

  IdHornSegments = 20400,
  IdHornMoveScale = 20401,
  IdHornLength = 20402,
  IdHornTop = 20403,
  IdHornSmooth = 20404,
  IdHornShape = 20405,
  IdHornRotX = 20406,
  IdHornRotY = 20407,
  IdHornRotZ = 20408,
  IdHornTrX = 20409,
  IdHornTrY = 20410,
  IdHornDense = 20411,
  IdHornScrew = 20412,
  IdHornFlap = 20413,
  IdHornScale = 20414,
  IdHornSteps = 20415,
  IdHornSeparator = 20421,
  IdLeafPhototropism = 20510,
  IdLeafGravitropism = 20511,

  IdHydraNumber = 20600,
  IdHydraSpin = 20601,
  IdHydraTwist = 20602,
  IdHydraFan = 20603,
  IdHydraScale = 20604,

  IdWreathNumber = 20700,
  IdWreathRadius = 20701,

  IdPruneMethod = 20800,
};

}  // namespace mv
