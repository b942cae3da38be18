// MvrClassicPlants: what a scene load writes into a classic tree, horn or leaf after the node's
// defaults: the header's photo response and attractor set, the component's numbers and curves,
// and its path.
#pragma once

#include "MvrHeader.h"
#include "MvrHornRecord.h"
#include "MvrTreeRecord.h"

namespace mv {

class ClassicHorn;
class ClassicLeaf;
class ClassicTree;
class ParameterSet;

class MvrClassicPlants {
 public:
  // The leaf's constant forward step factor; its own MoveScale is not read.
  static constexpr double kLeafMoveScale = 0.05;

  static void loadTree(ClassicTree& tree, ParameterSet& params, const MvrHeader& header,
                       const MvrTreeRecord& record);
  static void loadHorn(ClassicHorn& horn, ParameterSet& params, const MvrHeader& header,
                       const MvrHornRecord& record);
  static void loadLeaf(ClassicLeaf& leaf, ParameterSet& params, const MvrHeader& header,
                       const MvrHornRecord& record);

 private:
  static void loadPhoto(ParameterSet& params, const MvrHeader& header, double unit,
                        const CurveParam& displace);
  static void loadChain(ParameterSet& params, const MvrHornRecord& record);
};

}  // namespace mv
