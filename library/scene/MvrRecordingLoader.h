// MvrRecordingLoader: a loader that builds nothing and records every call of a scene load, for
// tests and for "morvo info". Created names are the names asked for, made unique the way a scene
// graph registers them: a taken name gets "_2", "_3", ... appended.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "scene/MvrCall.h"
#include "scene/MvrLoader.h"

namespace mv {

class MvrRecordingLoader : public MvrLoader {
 public:
  std::vector<MvrCall> calls;  // in the order of the load

  // One line for a call: operation, name, header flags and main arguments.
  static std::string describe(const MvrCall& call);
  // The recorded calls of one operation.
  std::vector<const MvrCall*> callsOf(const std::string& operation) const;

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

 private:
  std::string record(MvrCall call);
  std::string primitive(const std::string& operation, const std::string& name,
                        const Matrix4& matrix, std::vector<std::pair<std::string, double>> values);
  std::string classic(const std::string& operation, const MvrHeader& header,
                      const std::string& primitive,
                      std::vector<std::pair<std::string, double>> values,
                      std::map<std::string, CurveParam> curves = {});
  static std::map<std::string, CurveParam> hornCurves(const MvrHornRecord& horn);

  std::set<std::string> taken_;
  std::map<std::string, int> nextSuffix_;
};

}  // namespace mv
