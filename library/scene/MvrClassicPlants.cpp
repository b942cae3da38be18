#include "MvrClassicPlants.h"

#include "ClassicLeaf.h"
#include "ClassicTree.h"
#include "MvrLoader.h"
#include "ParameterSet.h"

namespace mv {

void MvrClassicPlants::loadTree(ClassicTree& tree, ParameterSet& params, const MvrHeader& header,
                                const MvrTreeRecord& record) {
  loadPhoto(params, header, record.unit, record.displace);
  params.setDouble(IdTreeSegments, record.segments);
  params.setDouble(IdTreeLength, record.length);
  params.setDouble(IdIniScale, record.iniScale);
  params.setBool(IdTreeTop, record.top);
  params.setDouble(IdBranchNum, record.branchNum);
  params.setCurve(IdTreeShape, record.shape);
  params.setCurve(IdDeviate, record.deviate);
  params.setDouble(IdKruschtlKnots, record.kruschtlKnots);
  params.setCurve(IdKruschtl, record.kruschtl);
  params.setCurve(IdBranchiness, record.branchiness);
  params.setCurve(IdTreeScrew, record.screw);
  params.setCurve(IdAngle, record.angle);
  params.setCurve(IdTreeDense, record.dense);
  params.setCurve(IdTreeScale, record.scale);
  params.setCurve(IdGeomScale, record.geomScale);
  params.setInt(IdPairs, record.pairs);
  params.setCurve(IdTreePhototropism, record.phototropism);
  params.setCurve(IdTreeGravitropism, record.gravitropism);
  params.setInt(IdVersion, record.version);
  params.setBool(IdTreeSeparator, record.separator);
  tree.path.keys = record.path;
}

void MvrClassicPlants::loadHorn(ClassicHorn& horn, ParameterSet& params, const MvrHeader& header,
                                const MvrHornRecord& record) {
  loadPhoto(params, header, record.unit, record.displace);
  loadChain(params, record);
  params.setDouble(IdMoveScale, record.moveScale);
  params.setBool(IdHornTop, record.top);
  params.setCurve(IdSteps, record.steps);
  params.setBool(IdHornSeparator, record.separator);
  params.setDouble(MvrLoader::IdAttractorA, header.attractorCenter);
  params.setDouble(MvrLoader::IdAttractorB, header.attractorStrength);
  params.setInt(MvrLoader::IdAttractorMode, header.attractorMode);
  horn.path.keys = record.path;
}

void MvrClassicPlants::loadLeaf(ClassicLeaf& leaf, ParameterSet& params, const MvrHeader& header,
                                const MvrHornRecord& record) {
  loadPhoto(params, header, record.unit, record.displace);
  loadChain(params, record);
  params.setDouble(IdMoveScale, kLeafMoveScale);
  params.setBool(IdHornTop, false);
  params.setCurve(IdLeafPhototropism, record.phototropism);
  params.setCurve(IdLeafGravitropism, record.gravitropism);
  leaf.path.keys = record.path;
}

// The photo response of the header (its mode is never taken over), the unit and the
// displacement, which every classic plant shares.
void MvrClassicPlants::loadPhoto(ParameterSet& params, const MvrHeader& header, double unit,
                                 const CurveParam& displace) {
  params.setInt(IdPhotoAxis, header.photoAxis);
  params.setInt(IdPhotoMode, 0);
  params.setDouble(IdPhotoStrength, header.photoStrength);
  params.setCurve(IdDisplace, displace);
  params.setDouble(IdUnit, unit);
}

// The chain of turns and steps that horn and leaf share.
void MvrClassicPlants::loadChain(ParameterSet& params, const MvrHornRecord& record) {
  params.setDouble(IdHornSegments, record.segments);
  params.setDouble(IdHornLength, record.length);
  params.setBool(IdSmooth, record.smooth);
  params.setCurve(IdHornShape, record.shape);
  params.setCurve(IdRotX, record.rotX);
  params.setCurve(IdRotY, record.rotY);
  params.setCurve(IdRotZ, record.rotZ);
  params.setCurve(IdTrX, record.trX);
  params.setCurve(IdTrY, record.trY);
  params.setCurve(IdHornDense, record.dense);
  params.setCurve(IdHornScrew, record.screw);
  params.setCurve(IdFlap, record.flap);
  params.setCurve(IdHornScale, record.scale);
}

}  // namespace mv
