// MvrSceneLoader: the loader that builds a classic scene graph from a scene file. Each create
// operation makes one Node with one Simple (a solid, a classic node, a variation) and fills its
// parameters from the file; insertUnder links nodes, and addMaterial gives them material
// indices. Once load has returned, evaluating the graph gives the scene's polygons.
//
// The loader does not own the graph; nodes that the load left unlinked are freed when load
// returns.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "classic/SceneGraph.h"
#include "scene/MvrLoader.h"

namespace mv {

class MvrSceneLoader : public MvrLoader {
 public:
  explicit MvrSceneLoader(SceneGraph* graph) : graph(graph) {}

  // The load, then the release of every node that no link reached.
  bool load(ParameterSet& settings, const std::string& path) override;
  // Frees the nodes created and never linked; load calls it, a caller of loadStream should too.
  void releaseUnlinked();

  bool setFrames(int frames) override;
  bool setBackground(float red, float green, float blue) override;
  bool addMaterial(const std::string& object, const MvrMaterial& material,
                   const Vector3& textureScale, const Vector3& textureOffset,
                   int materialIndex) override;
  bool insertUnder(const std::string& object, const std::string& parent) override;

  std::string createMesh(const std::string& name, int kind, const Matrix4& matrix, IMesh& mesh,
                         bool smooth) override;
  std::string createSpline(const std::string& name, int kind, const Matrix4& matrix,
                           int interpolate, int subdivision, const Spline& spline) override;
  std::string createBox(const std::string& name, const Matrix4& matrix, double size,
                        int resolution) override;
  std::string createCone(const std::string& name, const Matrix4& matrix, double height,
                         double radius, int slices, int stacks, int third) override;
  std::string createCylinder(const std::string& name, const Matrix4& matrix, double radius,
                             double height, int resolution) override;
  std::string createSphere(const std::string& name, const Matrix4& matrix, double radius,
                           int resolution) override;
  std::string createPlane(const std::string& name, const Matrix4& matrix, int facing, double size,
                          int resolution) override;
  std::string createDisk(const std::string& name, const Matrix4& matrix, double radius,
                         int resolution) override;
  std::string createCircle(const std::string& name, const Matrix4& matrix, double radius,
                           int points) override;
  std::string createArc(const std::string& name, double radius, double start, double end,
                        double offset) override;
  std::string createAttractorPrim(const std::string& name, const Matrix4& matrix, double a,
                                  double b, int mode) override;
  std::string createVariation(const std::string& name, int kind, int seed, int index) override;
  std::string createClassicSimple(const MvrHeader& header) override;
  std::string createClassicPruning(const MvrHeader& header, int method) override;
  std::string createClassicAttractor(const MvrHeader& header) override;
  std::string createClassicSimpleAttractor(const MvrHeader& header) override;
  std::string createClassicHyperpatch(const MvrHeader& header,
                                      const std::vector<Vector3>& patchPoints) override;
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

  std::map<std::string, Node*> nodeList;        // created and not linked to the root; not owning
  std::map<int, MvrMaterial> materialsByIndex;  // the first material of each index
  SceneGraph* graph;                            // not owned

 private:
  // A created node with the name it was registered under; node is null when creation failed.
  struct Created {
    std::string name;
    Node* node = nullptr;
  };

  Created createNode(const std::string& name, const Matrix4& matrix, Simple* simple);
  Created createPrimitive(const std::string& operation, const std::string& name,
                          const Matrix4& matrix, Simple* simple);
  // Takes simple (null when its allocation failed) into a new node with the header's frame.
  Created createClassic(const std::string& message, const MvrHeader& header, Simple* simple);
  std::string registerNode(const std::string& name, Node* node);
  void linkProfile(const MvrHeader& header, const std::string& primitive,
                   const std::string& created);
  static void setAttractorSet(ParameterSet& params, const MvrHeader& header);
  static void setHornCurves(ParameterSet& params, const MvrHornRecord& horn);
};

}  // namespace mv
