// MvrToMv4Loader: the second reading of a classic scene. Where MvrSceneLoader builds classic nodes
// and bakes them to polygons, this loader translates each classic component into the editable
// growth objects: a tree or horn becomes a Branch with a path and a thickness curve, a leaf a
// Branch on a curvature spline, a phiball a Phyllotaxis, a hydra or wreath a Hydra, and the
// tropism of a classic tree a Tropism below the path. The translation is arithmetic: the classic
// parameters are mapped so that the growth nodes draw the same plant; a tree runs the classic
// trunk construction to learn where its trunk lies.
//
// The class knows nothing of a host. The operations below that create growth objects are its
// seam: a subclass makes the objects (host objects, or records in tests) and also implements the
// plain create operations of MvrLoader. Each create operation returns the created name, empty on
// failure; an empty name ends the conversion of that object with the empty name.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "scene/MvrBranchRecord.h"
#include "scene/MvrCurvatureRecord.h"
#include "scene/MvrHydraRecord.h"
#include "scene/MvrLoader.h"
#include "scene/MvrPhyllotaxisRecord.h"

namespace mv {

class BaseNode;
class TreeTrunk;

class MvrToMv4Loader : public MvrLoader {
 public:
  // Points that a sampled path or a tilt map takes at most; more only come from broken files.
  static constexpr int kMaxPathPoints = 100000;

  // The settings given to load; not owned, read during the load.
  ParameterSet* settings = nullptr;

  bool load(ParameterSet& settings, const std::string& path) override;

  virtual std::string createNull(const MvrHeader& header) = 0;
  // The profile and path of the record are created names; the path must exist.
  virtual std::string createBranch(const MvrHeader& header, const MvrBranchRecord& branch) = 0;
  // An empty profile fails.
  virtual std::string createPhyllotaxis(const MvrHeader& header,
                                        const MvrPhyllotaxisRecord& phyllotaxis) = 0;
  virtual std::string createHydra(const MvrHeader& header, const MvrHydraRecord& hydra) = 0;
  virtual std::string createTropism(const std::string& name, int tropismMode, int tropismAxis,
                                    const CurveParam& tropismStrength) = 0;
  virtual std::string createCurvatureSpline(const std::string& name,
                                            const MvrCurvatureRecord& curvature) = 0;
  // A lattice of 8, 27, 64 or 125 points in its unit cube, as a classic hyperpatch gives them.
  virtual std::string createDeformGrid(const MvrHeader& header,
                                       const std::vector<Vector3>& points) = 0;
  // The created object of that name as a node with a spline, for a profile in a local
  // evaluation; null when there is no such spline. The caller owns the node.
  virtual std::unique_ptr<BaseNode> profileNodeOf(const std::string& name) = 0;

  std::string createClassicSimple(const MvrHeader& header) override;
  std::string createClassicPruning(const MvrHeader& header, int method) override;
  std::string createClassicAttractor(const MvrHeader& header) override;
  std::string createClassicSimpleAttractor(const MvrHeader& header) override;
  std::string createClassicHyperpatch(const MvrHeader& header,
                                      const std::vector<Vector3>& patchPoints) override;
  // A profile whose height runs one way becomes a Branch along a straight path; one whose height
  // turns back is baked to a mesh.
  std::string createClassicRevo(const MvrHeader& header, const std::string& primitive,
                                const std::vector<Vector3>& profile,
                                const CurveParam& displace) override;
  std::string createClassicHydra(const MvrHeader& header, double unit, double number,
                                 const CurveParam& spin, const CurveParam& twist,
                                 const CurveParam& fan, const CurveParam& scale) override;
  std::string createClassicWreath(const MvrHeader& header, double number, double radius) override;
  std::string createClassicPhiball(const MvrHeader& header, double unit, double number,
                                   double radius, double influence, const CurveParam& angle,
                                   const CurveParam& fan, const CurveParam& scale,
                                   const CurveParam& trans) override;
  std::string createClassicHorn(const MvrHeader& header, const MvrHornRecord& horn) override;
  std::string createClassicLeaf(const MvrHeader& header, const MvrHornRecord& leaf) override;
  std::string createClassicTree(const MvrHeader& header, const MvrTreeRecord& tree) override;

  // The leaf's step positions: n + 1 entries for n whole segments, spaced by dense, last 1.
  static std::vector<double> leafPositions(const CurveParam& dense, double segments);
  // The tropism strength curve of a tree: the bend of each trunk step as the area of a trapezoid
  // between the samples, up to the grown length iniScale.
  static CurveParam treeTropism(const std::vector<double>& sampleU,
                                const std::vector<Vector3>& framePositions, double iniScale,
                                const CurveParam& phototropism, const CurveParam& gravitropism);

 private:
  bool setting(int id) const;
  double unitSetting() const;
  std::string bakeRevo(const MvrHeader& header, const std::string& primitive,
                       const std::vector<Vector3>& profile, const CurveParam& displace);
  std::string phiballProfile(const std::string& name, double radius, double f0, double f1);
  std::string hornPath(const std::string& name, const MvrHornRecord& horn);
  std::string curvaturePath(const std::string& name, const MvrHornRecord& record,
                            double curvLength);
  bool addLeafTropism(const std::string& name, int axis, const CurveParam& curve,
                      const std::vector<double>& positions, const std::string& path);
  std::string treePath(const std::string& name, const MvrTreeRecord& tree, const TreeTrunk& trunk,
                       const std::vector<Vector3>& framePositions);
};

}  // namespace mv
