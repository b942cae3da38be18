// MvrLoader: turns a scene file into a stream of abstract create calls. It reads the file into
// records, finds the root objects of the earliest key frame, walks the object tree from each
// root and, for each component, calls one create operation, then addMaterial and insertUnder.
// It builds nothing itself: a subclass decides what the calls produce. Objects are identified
// across calls by the name that each create operation hands back; the empty name is a failure.
//
// A loader object serves one load. Bad files never fail hard: what is unknown is skipped, and
// links that would make a cycle or nest deeper than kMaxDepth are reported and left out.
#pragma once

#include <cstddef>
#include <istream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "core/Matrix4.h"
#include "core/Vector3.h"
#include "curves/CurveParam.h"
#include "scene/MvrComponent.h"
#include "scene/MvrHeader.h"
#include "scene/MvrHornRecord.h"
#include "scene/MvrMaterial.h"
#include "scene/MvrSkip.h"
#include "scene/MvrTreeRecord.h"

namespace mv {

class IMesh;
class ParameterSet;
class Spline;

class MvrLoader {
 public:
  // Settings that the load reads.
  enum SettingId : int {
    IdCircleMode = 2005,
    IdFractionalCurvature = 2007,
    IdHornKnotPath = 2008,  // a horn with a path uses the path's knots, not samples
    IdTreeKnotPath = 2009,  // a tree's path is made of the trunk's points, not frames
    IdUnit = 2011,          // scale of the whole import
    IdAttractorA = 5000,
    IdAttractorB = 5001,
    IdAttractorMode = 5002,
  };
  // Deepest chain of links that the walk follows; real plants stay far below.
  static constexpr int kMaxDepth = 256;
  // Switch nodes that one load makes at most: every link of a component repeats its switch
  // chain, so a hostile file could otherwise ask for links times mask bits of them.
  static constexpr int kMaxSwitchNodes = 1 << 16;

  std::vector<MvrMaterial> materials;               // all materials of the load, in order of use
  std::map<std::string, std::string> createdNames;  // component name to created name
  std::vector<MvrSkip> skipped;                     // what the last load passed over, in order

  virtual ~MvrLoader() = default;

  // Writes the defaults of the load settings: unit, circle mode 1, ids 2007 to 2009 false.
  virtual void initParameters(ParameterSet& settings, double unit = 100.0);
  // True when the probe holds at least 12 bytes and they are "Version 0.93".
  virtual bool identify(const char* probe, std::size_t count);
  // Loads the file at path; true on success.
  virtual bool load(ParameterSet& settings, const std::string& path);

  virtual bool setFrames(int frames) = 0;
  virtual bool setBackground(float red, float green, float blue) = 0;
  virtual bool addMaterial(const std::string& object, const MvrMaterial& material,
                           const Vector3& textureScale, const Vector3& textureOffset,
                           int materialIndex) = 0;
  // An empty parent means the top of the scene.
  virtual bool insertUnder(const std::string& object, const std::string& parent) = 0;

  virtual std::string createMesh(const std::string& name, int kind, const Matrix4& matrix,
                                 IMesh& mesh, bool smooth) = 0;
  virtual std::string createSpline(const std::string& name, int kind, const Matrix4& matrix,
                                   int interpolate, int subdivision, const Spline& spline) = 0;
  // One segment through the points, point i of n at parameter i/(n-1), closed when closed is
  // not 0, handed to createSpline with interpolate and subdivision.
  virtual std::string createPointSpline(const std::string& name, int kind, const Matrix4& matrix,
                                        int interpolate, int closed, int subdivision,
                                        const std::vector<Vector3>& points);
  virtual std::string createBox(const std::string& name, const Matrix4& matrix, double size,
                                int resolution) = 0;
  virtual std::string createCone(const std::string& name, const Matrix4& matrix, double height,
                                 double radius, int slices, int stacks, int third) = 0;
  virtual std::string createCylinder(const std::string& name, const Matrix4& matrix, double radius,
                                     double height, int resolution) = 0;
  virtual std::string createSphere(const std::string& name, const Matrix4& matrix, double radius,
                                   int resolution) = 0;
  virtual std::string createPlane(const std::string& name, const Matrix4& matrix, int facing,
                                  double size, int resolution) = 0;
  virtual std::string createDisk(const std::string& name, const Matrix4& matrix, double radius,
                                 int resolution) = 0;
  virtual std::string createCircle(const std::string& name, const Matrix4& matrix, double radius,
                                   int points) = 0;
  virtual std::string createArc(const std::string& name, double radius, double start, double end,
                                double offset) = 0;
  virtual std::string createAttractorPrim(const std::string& name, const Matrix4& matrix, double a,
                                          double b, int mode) = 0;
  virtual std::string createVariation(const std::string& name, int kind, int seed, int index) = 0;
  virtual std::string createClassicSimple(const MvrHeader& header) = 0;
  virtual std::string createClassicPruning(const MvrHeader& header, int method) = 0;
  // The load calls neither of these two.
  virtual std::string createClassicAttractor(const MvrHeader& header) = 0;
  virtual std::string createClassicSimpleAttractor(const MvrHeader& header) = 0;
  virtual std::string createClassicHyperpatch(const MvrHeader& header,
                                              const std::vector<Vector3>& patchPoints) = 0;
  virtual std::string createClassicRevo(const MvrHeader& header, const std::string& primitive,
                                        const std::vector<Vector3>& profile,
                                        const CurveParam& displace) = 0;
  virtual std::string createClassicHydra(const MvrHeader& header, double unit, double number,
                                         const CurveParam& spin, const CurveParam& twist,
                                         const CurveParam& fan, const CurveParam& scale) = 0;
  virtual std::string createClassicWreath(const MvrHeader& header, double number,
                                          double radius) = 0;
  virtual std::string createClassicPhiball(const MvrHeader& header, double unit, double number,
                                           double radius, double influence, const CurveParam& angle,
                                           const CurveParam& fan, const CurveParam& scale,
                                           const CurveParam& trans) = 0;
  virtual std::string createClassicHorn(const MvrHeader& header, const MvrHornRecord& horn) = 0;
  virtual std::string createClassicLeaf(const MvrHeader& header, const MvrHornRecord& leaf) = 0;
  virtual std::string createClassicTree(const MvrHeader& header, const MvrTreeRecord& tree) = 0;

  // The load of an open stream, as load does after opening the file.
  bool loadStream(ParameterSet& settings, std::istream& stream);

  // Every component that no other lists as a child or branch, in name order.
  static std::vector<std::string> findRoots(const std::map<std::string, MvrComponent>& components);

  // S x Rx(-rx) x Ry(ry) x Rz(-rz) x T(unit x translation).
  static Matrix4 makeTransform(const Vector3& translation, const Vector3& rotation,
                               const Vector3& scale, double unit);

 protected:
  void noteSkip(MvrSkip::Kind kind, const std::string& object, const std::string& target) {
    skipped.push_back({kind, object, target});
  }

 private:
  // Copied down the object walk.
  struct LoadContext {
    bool hidden = true;
    MvrMaterial material;
    int materialIndex = 0;
  };

  void readRootLines(const std::vector<std::string>& lines);
  std::string buildObject(const MvrComponent& component, LoadContext context, int depth);
  bool applyMaterial(const MvrComponent& component, LoadContext& context);
  void linkMaterial(const MvrComponent& component, const std::string& created,
                    const LoadContext& context);
  bool buildLinks(const MvrComponent& component, const LoadContext& context, int depth,
                  std::vector<std::string>& standard, std::vector<std::string>& special);
  void linkNames(const std::vector<std::string>& names, const std::string& linkName,
                 bool alwaysLink, const std::string& created);
  void insertSwitched(const std::string& child, const std::string& parent,
                      const std::vector<std::uint16_t>& masks);
  std::string createComponent(const MvrComponent& component, const LoadContext& context,
                              std::string& extra);
  std::string createByType(const MvrComponent& component, MvrHeader& header,
                           const std::string& primitive, std::string& extra);
  std::string createPrimitive(const MvrComponent& component);
  std::string createArea(const MvrComponent& component, const std::string& name,
                         const Matrix4& matrix);
  MvrHeader makeHeader(const MvrComponent& component, bool hidden) const;
  MvrHornRecord hornRecord(const MvrComponent& component, const std::string& primitive) const;
  MvrTreeRecord treeRecord(const MvrComponent& component, const std::string& primitive) const;

  // State of one load.
  ParameterSet* settings_ = nullptr;
  double unit_ = 1.0;
  const std::map<std::string, MvrComponent>* components_ = nullptr;
  std::map<std::string, std::string> visited_;
  std::set<std::string> ancestors_;             // components on the path from the root being walked
  std::map<std::string, int> materialIndices_;  // first index of each name in materials
  int switchNodes_ = 0;
  bool switchesCut_ = false;
};

}  // namespace mv
