#include "scene/MvrSceneLoader.h"

#include <algorithm>
#include <new>
#include <sstream>
#include <vector>

#include "classic/Attractor.h"
#include "classic/AttractorPrim.h"
#include "classic/Box.h"
#include "classic/ClassicHydra.h"
#include "classic/ClassicHyperpatch.h"
#include "classic/ClassicLeaf.h"
#include "classic/ClassicNodeParameters.h"
#include "classic/ClassicPhiball.h"
#include "classic/ClassicPrune.h"
#include "classic/ClassicRevo.h"
#include "classic/ClassicSimple.h"
#include "classic/ClassicTree.h"
#include "classic/ClassicWreath.h"
#include "classic/Disk.h"
#include "classic/Plane.h"
#include "classic/SolidCone.h"
#include "classic/SolidCylinder.h"
#include "classic/SolidParameters.h"
#include "classic/Sphere.h"
#include "core/MessageSink.h"
#include "geometry/SplineData.h"
#include "growth/Variation.h"

namespace mv {

namespace {

// Circle splines of more points than this only come from broken files.
constexpr int kMaxCirclePoints = 1 << 16;

ClassicSpline classicPath(const MvrPath& path) {
  ClassicSpline spline;
  spline.keys = path;
  return spline;
}

// A profile of fewer than two points makes no surface.
void warnAboutProfile(const std::vector<Vector3>& points) {
  if (points.size() >= 2) return;
  messageSink.warning("A Revo needs at least two profile points; it has " +
                      std::to_string(points.size()) + " and makes no surface");
}

// A lattice of another size than 2, 3, 4 or 5 points per axis leaves the mesh as it is.
void warnAboutLattice(const std::vector<Vector3>& points) {
  if (ClassicHyperpatch::latticeSide(points.size()) != 0) return;
  messageSink.warning("A Hyperpatch needs 8, 27, 64 or 125 control points; it has " +
                      std::to_string(points.size()) + " and leaves its objects undeformed");
}

std::string numberText(double value) {
  std::ostringstream out;
  out << value;
  return out.str();
}

}  // namespace

bool MvrSceneLoader::load(ParameterSet& settings, const std::string& path) {
  const bool loaded = MvrLoader::load(settings, path);
  releaseUnlinked();
  return loaded;
}

// A node that no parent holds is nobody's child, so deleting one never deletes another of them.
void MvrSceneLoader::releaseUnlinked() {
  for (auto it = nodeList.begin(); it != nodeList.end();) {
    if (it->second->useCount() == 0) {
      delete it->second;
      it = nodeList.erase(it);
    } else {
      ++it;
    }
  }
}

bool MvrSceneLoader::setFrames(int) { return true; }

bool MvrSceneLoader::setBackground(float, float, float) { return true; }

// The texture transform arguments are not used: the record carries its own.
bool MvrSceneLoader::addMaterial(const std::string& object, const MvrMaterial& material,
                                 const Vector3&, const Vector3&, int materialIndex) {
  messageSink.debug("addMaterial(" + object + ", " + material.name + ", " +
                    std::to_string(materialIndex) + ")");
  const auto found = nodeList.find(object);
  if (found == nodeList.end()) return false;
  found->second->setMaterial(materialIndex);
  materialsByIndex.emplace(materialIndex, material);
  auto* kept = new (std::nothrow) Material();
  if (!kept) return false;
  kept->name = material.name;
  kept->textureOffset = material.textureOffset;
  kept->textureScale = material.textureScale;
  graph->addMaterial(kept);
  return true;
}

bool MvrSceneLoader::insertUnder(const std::string& object, const std::string& parent) {
  messageSink.debug("insertUnder(" + object + ", " + parent + ")");
  const auto child = nodeList.find(object);
  if (child == nodeList.end()) {
    messageSink.debug("object not found in node list");
    noteSkip(MvrSkip::FailedLink, object, parent);
    return false;
  }
  bool linked = false;
  if (!parent.empty()) {
    const auto holder = nodeList.find(parent);
    if (holder == nodeList.end()) {
      messageSink.debug("parent not found in node list");
      noteSkip(MvrSkip::FailedLink, object, parent);
      return false;
    }
    linked = holder->second->addChild(child->second, "");
  } else {
    linked = graph->addChild(child->second, "");
    if (linked) nodeList.erase(child);
  }
  if (!linked) {
    messageSink.debug("insertUnder Error");
    noteSkip(MvrSkip::FailedLink, object, parent);
  }
  return linked;
}

std::string MvrSceneLoader::createMesh(const std::string& name, int, const Matrix4&, IMesh&, bool) {
  messageSink.debug("createMesh");
  return name;
}

std::string MvrSceneLoader::createArc(const std::string& name, double, double, double, double) {
  messageSink.debug("createArc");
  return name;
}

std::string MvrSceneLoader::createSpline(const std::string& name, int, const Matrix4& matrix, int,
                                         int, const Spline& spline) {
  messageSink.debug("createSpline");
  auto* data = new (std::nothrow) SplineData();
  if (!data) return "";
  data->copy(spline);
  const Created created = createNode(name, matrix, nullptr);
  if (!created.node) {
    delete data;
    return "";
  }
  created.node->setSpline(data);
  return created.name;
}

std::string MvrSceneLoader::createCircle(const std::string& name, const Matrix4& matrix,
                                         double radius, int points) {
  messageSink.debug("createCircle");
  if (points > kMaxCirclePoints) {
    messageSink.warning("Circle \"" + name + "\" of " + std::to_string(points) + " points cut to " +
                        std::to_string(kMaxCirclePoints));
    points = kMaxCirclePoints;
  }
  auto* data = new (std::nothrow) SplineData();
  if (!data) return "";
  data->makeCircle(radius, static_cast<uint32_t>(std::max(points, 0)));
  const Created created = createNode(name, matrix, nullptr);
  if (!created.node) {
    delete data;
    return "";
  }
  created.node->setSpline(data);
  return created.name;
}

std::string MvrSceneLoader::createBox(const std::string& name, const Matrix4& matrix, double size,
                                      int resolution) {
  const Created created = createPrimitive("createBox", name, matrix, new (std::nothrow) Box());
  if (!created.node) return "";
  created.node->parameters().setInt(IdBoxResolution, resolution);
  created.node->parameters().setVector(IdBoxSize, {size, size, size});
  return created.name;
}

std::string MvrSceneLoader::createCone(const std::string& name, const Matrix4& matrix,
                                       double height, double radius, int slices, int stacks, int) {
  const Created created =
      createPrimitive("createCone", name, matrix, new (std::nothrow) SolidCone());
  if (!created.node) return "";
  ParameterSet& params = created.node->parameters();
  params.setInt(IdSlices, slices);
  params.setInt(IdStacks, stacks);
  params.setDouble(IdConeRadius, radius);
  params.setDouble(IdConeHeight, height);
  return created.name;
}

std::string MvrSceneLoader::createCylinder(const std::string& name, const Matrix4& matrix,
                                           double radius, double height, int resolution) {
  const Created created =
      createPrimitive("createCylinder", name, matrix, new (std::nothrow) SolidCylinder());
  if (!created.node) return "";
  ParameterSet& params = created.node->parameters();
  params.setInt(IdSlices, resolution);
  params.setInt(IdStacks, resolution);
  params.setDouble(IdCylinderRadius, radius);
  params.setDouble(IdCylinderHeight, height);
  return created.name;
}

std::string MvrSceneLoader::createSphere(const std::string& name, const Matrix4& matrix,
                                         double radius, int resolution) {
  const Created created =
      createPrimitive("createSphere", name, matrix, new (std::nothrow) Sphere());
  if (!created.node) return "";
  ParameterSet& params = created.node->parameters();
  params.setInt(IdSlices, resolution + 4);
  params.setInt(IdStacks, resolution + 2);
  params.setDouble(IdSphereRadius, radius);
  return created.name;
}

std::string MvrSceneLoader::createPlane(const std::string& name, const Matrix4& matrix, int facing,
                                        double size, int resolution) {
  const Created created = createPrimitive("createPlane", name, matrix, new (std::nothrow) Plane());
  if (!created.node) return "";
  ParameterSet& params = created.node->parameters();
  params.setInt(IdSlices, resolution);
  params.setInt(IdStacks, resolution);
  params.setDouble(IdPlaneSize, size);
  params.setInt(IdPlaneFacing, facing);
  return created.name;
}

std::string MvrSceneLoader::createDisk(const std::string& name, const Matrix4& matrix,
                                       double radius, int resolution) {
  const Created created = createPrimitive("createDisk", name, matrix, new (std::nothrow) Disk());
  if (!created.node) return "";
  ParameterSet& params = created.node->parameters();
  params.setInt(IdSlices, resolution);
  params.setInt(IdStacks, resolution);
  params.setDouble(IdDiskRadius, radius);
  return created.name;
}

std::string MvrSceneLoader::createAttractorPrim(const std::string& name, const Matrix4& matrix,
                                                double a, double b, int mode) {
  const Created created =
      createPrimitive("createAttractorPrim", name, matrix, new (std::nothrow) AttractorPrim());
  if (!created.node) return "";
  ParameterSet& params = created.node->parameters();
  params.setDouble(IdAttractorCenter, a);
  params.setDouble(IdAttractorStrength, b);
  params.setInt(IdAttractorMode, mode);
  return created.name;
}

// A variation has no matrix of its own: its node keeps the identity.
std::string MvrSceneLoader::createVariation(const std::string& name, int kind, int seed,
                                            int index) {
  messageSink.debug("createVariation");
  const Created created = createNode(name, Matrix4(), new (std::nothrow) Variation());
  if (!created.node) return "";
  ParameterSet& params = created.node->parameters();
  params.setInt(Variation::variationMode, kind);
  params.setInt(Variation::variationSeed, seed);
  params.setInt(Variation::variationIndex, index);
  return created.name;
}

std::string MvrSceneLoader::createClassicSimple(const MvrHeader& header) {
  return createClassic("createClassicSimple(" + header.name + ")", header,
                       new (std::nothrow) ClassicSimple())
      .name;
}

std::string MvrSceneLoader::createClassicPruning(const MvrHeader& header, int method) {
  const Created created = createClassic("createClassicPruning(" + header.name + ")", header,
                                        new (std::nothrow) ClassicPrune());
  if (created.node) created.node->parameters().setInt(IdPruneMethod, method);
  return created.name;
}

std::string MvrSceneLoader::createClassicAttractor(const MvrHeader& header) {
  return createClassic("createClassicAttractor(" + header.name + ")", header,
                       new (std::nothrow) Attractor())
      .name;
}

std::string MvrSceneLoader::createClassicSimpleAttractor(const MvrHeader& header) {
  const Created created = createClassic("createClassicSimpleAttractor(" + header.name + ")", header,
                                        new (std::nothrow) Attractor());
  if (created.node) setAttractorSet(created.node->parameters(), header);
  return created.name;
}

std::string MvrSceneLoader::createClassicHyperpatch(const MvrHeader& header,
                                                    const std::vector<Vector3>& patchPoints) {
  warnAboutLattice(patchPoints);
  auto* patch = new (std::nothrow) ClassicHyperpatch();
  if (patch) patch->points = patchPoints;
  const Created created = createClassic("createClassicHyperpatch", header, patch);
  return created.name;
}

std::string MvrSceneLoader::createClassicRevo(const MvrHeader& header, const std::string& primitive,
                                              const std::vector<Vector3>& profile,
                                              const CurveParam& displace) {
  warnAboutProfile(profile);
  auto* revo = new (std::nothrow) ClassicRevo();
  if (revo) revo->points = profile;
  const Created created = createClassic("createClassicRevo", header, revo);
  if (!created.node) return "";
  created.node->parameters().setCurve(IdDisplace, displace);
  setAttractorSet(created.node->parameters(), header);
  linkProfile(header, primitive, created.name);
  return created.name;
}

std::string MvrSceneLoader::createClassicHydra(const MvrHeader& header, double unit, double number,
                                               const CurveParam& spin, const CurveParam& twist,
                                               const CurveParam& fan, const CurveParam& scale) {
  const Created created =
      createClassic("createClassicHydra", header, new (std::nothrow) ClassicHydra());
  if (!created.node) return "";
  ParameterSet& params = created.node->parameters();
  params.setDouble(IdHydraNumber, number);
  params.setCurve(IdHydraSpin, spin);
  params.setCurve(IdHydraTwist, twist);
  params.setCurve(IdHydraFan, fan);
  params.setCurve(IdHydraScale, scale);
  params.setDouble(ClassicParameterId::IdUnit, unit);
  setAttractorSet(params, header);
  return created.name;
}

std::string MvrSceneLoader::createClassicWreath(const MvrHeader& header, double number,
                                                double radius) {
  const Created created =
      createClassic("createClassicWreath", header, new (std::nothrow) ClassicWreath());
  if (!created.node) return "";
  ParameterSet& params = created.node->parameters();
  params.setDouble(IdWreathNumber, number);
  params.setDouble(IdWreathRadius, radius);
  setAttractorSet(params, header);
  return created.name;
}

std::string MvrSceneLoader::createClassicPhiball(const MvrHeader& header, double unit,
                                                 double number, double radius, double influence,
                                                 const CurveParam& angle, const CurveParam& fan,
                                                 const CurveParam& scale, const CurveParam& trans) {
  const Created created =
      createClassic("createClassicPhiball", header, new (std::nothrow) ClassicPhiball());
  if (!created.node) return "";
  ParameterSet& params = created.node->parameters();
  params.setDouble(IdPhiballNumber, number);
  params.setDouble(IdPhiballRadius, radius);
  params.setDouble(IdPhiballInfluence, influence);
  params.setCurve(IdPhiballAngle, angle);
  params.setCurve(IdPhiballFan, fan);
  params.setCurve(IdPhiballScale, scale);
  params.setCurve(IdPhiballTrans, trans);
  params.setDouble(ClassicParameterId::IdUnit, unit);
  setAttractorSet(params, header);
  return created.name;
}

std::string MvrSceneLoader::createClassicHorn(const MvrHeader& header, const MvrHornRecord& horn) {
  auto* simple = new (std::nothrow) ClassicHorn();
  if (simple) simple->path = classicPath(horn.path);
  const Created created = createClassic("createClassicHorn", header, simple);
  if (!created.node) return "";
  ParameterSet& params = created.node->parameters();
  params.setDouble(IdHornMoveScale, horn.moveScale);
  params.setBool(IdHornTop, horn.top);
  setHornCurves(params, horn);
  params.setCurve(IdHornSteps, horn.steps);
  params.setBool(IdHornSeparator, horn.separator);
  setAttractorSet(params, header);
  linkProfile(header, horn.primitive, created.name);
  return created.name;
}

// A leaf ignores MoveScale and Top of its file: it always moves by 0.05 and has no tip.
std::string MvrSceneLoader::createClassicLeaf(const MvrHeader& header, const MvrHornRecord& leaf) {
  auto* simple = new (std::nothrow) ClassicLeaf();
  if (simple) simple->path = classicPath(leaf.path);
  const Created created = createClassic("createClassicLeaf", header, simple);
  if (!created.node) return "";
  ParameterSet& params = created.node->parameters();
  params.setDouble(IdHornMoveScale, 0.05);
  params.setBool(IdHornTop, false);
  setHornCurves(params, leaf);
  params.setCurve(IdLeafPhototropism, leaf.phototropism);
  params.setCurve(IdLeafGravitropism, leaf.gravitropism);
  linkProfile(header, leaf.primitive, created.name);
  return created.name;
}

std::string MvrSceneLoader::createClassicTree(const MvrHeader& header, const MvrTreeRecord& tree) {
  auto* simple = new (std::nothrow) ClassicTree();
  if (simple) simple->path = classicPath(tree.path);
  const Created created =
      createClassic("createClassicTree " + numberText(tree.segments), header, simple);
  if (!created.node) return "";
  ParameterSet& params = created.node->parameters();
  params.setDouble(IdTreeSegments, tree.segments);
  params.setDouble(IdTreeLength, tree.length);
  params.setDouble(IdTreeIniScale, tree.iniScale);
  params.setBool(IdTreeTop, tree.top);
  params.setDouble(IdTreeBranchNum, tree.branchNum);
  params.setCurve(IdTreeShape, tree.shape);
  params.setCurve(IdTreeDeviate, tree.deviate);
  params.setDouble(IdTreeKruschtlKnots, tree.kruschtlKnots);
  params.setCurve(IdTreeKruschtl, tree.kruschtl);
  params.setCurve(IdTreeBranchiness, tree.branchiness);
  params.setCurve(IdTreeScrew, tree.screw);
  params.setCurve(IdTreeAngle, tree.angle);
  params.setCurve(IdTreeDense, tree.dense);
  params.setCurve(IdTreeScale, tree.scale);
  params.setCurve(IdTreeGeomScale, tree.geomScale);
  params.setInt(IdTreePairs, tree.pairs);
  params.setCurve(IdTreePhototropism, tree.phototropism);
  params.setCurve(IdTreeGravitropism, tree.gravitropism);
  params.setInt(IdTreeVersion, tree.version);
  params.setBool(IdTreeSeparator, tree.separator);
  params.setCurve(IdDisplace, tree.displace);
  params.setDouble(ClassicParameterId::IdUnit, tree.unit);
  linkProfile(header, tree.primitive, created.name);
  return created.name;
}

// The node's matrix is the inverse of the one received: it carries the child's frame back to
// the parent's.
MvrSceneLoader::Created MvrSceneLoader::createNode(const std::string& name, const Matrix4& matrix,
                                                   Simple* simple) {
  auto* node = new (std::nothrow) Node();
  if (!node) {
    delete simple;
    return {};
  }
  node->setName(name);
  node->setMatrix(matrix.inverse());
  node->setSimple(simple);
  return {registerNode(name, node), node};
}

MvrSceneLoader::Created MvrSceneLoader::createPrimitive(const std::string& operation,
                                                        const std::string& name,
                                                        const Matrix4& matrix, Simple* simple) {
  messageSink.debug(operation);
  if (!simple) return {};
  return createNode(name, matrix, simple);
}

MvrSceneLoader::Created MvrSceneLoader::createClassic(const std::string& message,
                                                      const MvrHeader& header, Simple* simple) {
  messageSink.debug(message);
  if (!simple) return {};
  Created created = createNode(header.name, header.matrix, simple);
  if (!created.node) return {};
  created.node->setHidden(header.hidden);
  ParameterSet& params = created.node->parameters();
  params.setInt(IdPhotoAxis, header.photoAxis);
  params.setInt(IdPhotoMode, header.photoMode);
  params.setDouble(IdPhotoStrength, header.photoStrength);
  return created;
}

std::string MvrSceneLoader::registerNode(const std::string& name, Node* node) {
  std::string result = name;
  for (int counter = 2; nodeList.count(result); ++counter) {
    result = name + "_" + std::to_string(counter);
  }
  nodeList[result] = node;
  return result;
}

// The first child of a tree, horn, leaf or revo is its profile; without a primitive an empty
// object takes that place.
void MvrSceneLoader::linkProfile(const MvrHeader& header, const std::string& primitive,
                                 const std::string& created) {
  if (!primitive.empty()) {
    insertUnder(primitive, created);
    return;
  }
  const std::string placeholder = createClassicSimple(MvrHeader(header.name + "_Undefined"));
  if (!placeholder.empty()) insertUnder(placeholder, created);
}

void MvrSceneLoader::setAttractorSet(ParameterSet& params, const MvrHeader& header) {
  params.setDouble(IdAttractorCenter, header.attractorCenter);
  params.setDouble(IdAttractorStrength, header.attractorStrength);
  params.setInt(IdAttractorMode, header.attractorMode);
}

// The parameters that horn and leaf share.
void MvrSceneLoader::setHornCurves(ParameterSet& params, const MvrHornRecord& horn) {
  params.setDouble(IdHornSegments, horn.segments);
  params.setDouble(IdHornLength, horn.length);
  params.setBool(IdHornSmooth, horn.smooth);
  params.setCurve(IdHornShape, horn.shape);
  params.setCurve(IdHornRotX, horn.rotX);
  params.setCurve(IdHornRotY, horn.rotY);
  params.setCurve(IdHornRotZ, horn.rotZ);
  params.setCurve(IdHornTrX, horn.trX);
  params.setCurve(IdHornTrY, horn.trY);
  params.setCurve(IdHornDense, horn.dense);
  params.setCurve(IdHornScrew, horn.screw);
  params.setCurve(IdHornFlap, horn.flap);
  params.setCurve(IdHornScale, horn.scale);
  params.setCurve(IdDisplace, horn.displace);
  params.setDouble(ClassicParameterId::IdUnit, horn.unit);
}

}  // namespace mv
