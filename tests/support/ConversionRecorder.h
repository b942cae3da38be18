// ConversionRecorder: a conversion loader that creates nothing and records every call of a
// conversion: the growth records by created name, the splines with their points, the hierarchy
// made by insertUnder, and every call in order. Created names are made unique the way the host
// import makes them: a taken name gets a counter from 1 appended, without a separator. Shared by
// the conversion tests and the fuzz target.
#pragma once

#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "curves/ParameterSetData.h"
#include "geometry/IMesh.h"
#include "geometry/SplineData.h"
#include "scene/MvrToMv4Loader.h"
#include "support/ProfileNode.h"

class ConversionRecorder : public mv::MvrToMv4Loader {
 public:
  struct Call {
    std::string operation;
    std::string created;
    mv::MvrHeader header;  // the header given, or one holding just the name and matrix
    std::vector<double> values;
  };

  std::vector<Call> calls;
  std::map<std::string, mv::MvrBranchRecord> branches;
  std::map<std::string, mv::MvrPhyllotaxisRecord> phyllotaxes;
  std::map<std::string, mv::MvrHydraRecord> hydras;
  std::map<std::string, mv::MvrCurvatureRecord> curvatures;
  std::map<std::string, mv::CurveParam> tropisms;
  std::map<std::string, std::vector<mv::Vector3>> splinePoints;  // by created name
  std::map<std::string, std::vector<mv::Vector3>> grids;
  std::map<std::string, uint32_t> meshPolygons;
  std::map<std::string, std::vector<std::string>> childrenOf;  // "" holds the top objects
  std::map<std::string, int> insertCount;
  std::vector<std::string> materialObjects;

  // The call that created the name, or null.
  const Call* created(const std::string& name) const {
    const auto it = callOf_.find(name);
    return it == callOf_.end() ? nullptr : &calls[it->second];
  }
  std::string operationOf(const std::string& name) const {
    const Call* call = created(name);
    return call ? call->operation : "";
  }
  const std::vector<std::string>& children(const std::string& parent) const {
    static const std::vector<std::string> none;
    const auto it = childrenOf.find(parent);
    return it == childrenOf.end() ? none : it->second;
  }

  bool setFrames(int) override { return true; }
  bool setBackground(float, float, float) override { return true; }
  bool addMaterial(const std::string& object, const mv::MvrMaterial&, const mv::Vector3&,
                   const mv::Vector3&, int) override {
    materialObjects.push_back(object);
    return true;
  }
  bool insertUnder(const std::string& object, const std::string& parent) override {
    if (!created(object) || (!parent.empty() && !created(parent))) return false;
    childrenOf[parent].push_back(object);
    ++insertCount[object];
    return true;
  }
  std::string createMesh(const std::string& name, int, const mv::Matrix4& matrix, mv::IMesh& mesh,
                         bool) override {
    const std::string made = named("createMesh", name, matrix);
    meshPolygons[made] = mesh.getPolygonCount();
    return made;
  }
  std::string createSpline(const std::string& name, int kind, const mv::Matrix4& matrix,
                           int interpolate, int subdivision, const mv::Spline& spline) override {
    const std::string made = named("createSpline", name, matrix,
                                   {double(kind), double(interpolate), double(subdivision)});
    std::vector<mv::Vector3>& points = splinePoints[made];
    for (uint32_t i = 0; i < spline.getPointCount(); ++i) {
      double t = 0.0;
      mv::Vector3 point;
      if (spline.getPoint(i, t, point)) points.push_back(point);
    }
    return made;
  }
  std::string createBox(const std::string& name, const mv::Matrix4& matrix, double size,
                        int resolution) override {
    return named("createBox", name, matrix, {size, double(resolution)});
  }
  std::string createCone(const std::string& name, const mv::Matrix4& matrix, double height,
                         double radius, int slices, int stacks, int third) override {
    return named("createCone", name, matrix,
                 {height, radius, double(slices), double(stacks), double(third)});
  }
  std::string createCylinder(const std::string& name, const mv::Matrix4& matrix, double radius,
                             double height, int resolution) override {
    return named("createCylinder", name, matrix, {radius, height, double(resolution)});
  }
  std::string createSphere(const std::string& name, const mv::Matrix4& matrix, double radius,
                           int resolution) override {
    return named("createSphere", name, matrix, {radius, double(resolution)});
  }
  std::string createPlane(const std::string& name, const mv::Matrix4& matrix, int facing,
                          double size, int resolution) override {
    return named("createPlane", name, matrix, {double(facing), size, double(resolution)});
  }
  std::string createDisk(const std::string& name, const mv::Matrix4& matrix, double radius,
                         int resolution) override {
    return named("createDisk", name, matrix, {radius, double(resolution)});
  }
  std::string createCircle(const std::string& name, const mv::Matrix4& matrix, double radius,
                           int points) override {
    // A circle stands for the profile of a tube: it is recorded with its points, for a bake.
    const std::string made = named("createCircle", name, matrix, {radius, double(points)});
    circles_[made] = {radius, points};
    return made;
  }
  std::string createArc(const std::string& name, double radius, double start, double end,
                        double offset) override {
    return named("createArc", name, mv::Matrix4(), {radius, start, end, offset});
  }
  std::string createAttractorPrim(const std::string& name, const mv::Matrix4& matrix, double a,
                                  double b, int mode) override {
    return named("createAttractorPrim", name, matrix, {a, b, double(mode)});
  }
  std::string createVariation(const std::string& name, int kind, int seed, int index) override {
    return named("createVariation", name, mv::Matrix4(),
                 {double(kind), double(seed), double(index)});
  }

  std::string createNull(const mv::MvrHeader& header) override {
    return withHeader("createNull", header);
  }
  std::string createBranch(const mv::MvrHeader& header,
                           const mv::MvrBranchRecord& branch) override {
    if (!created(branch.path)) return {};
    const std::string made = withHeader("createBranch", header);
    branches[made] = branch;
    return made;
  }
  std::string createPhyllotaxis(const mv::MvrHeader& header,
                                const mv::MvrPhyllotaxisRecord& phyllotaxis) override {
    if (phyllotaxis.profile.empty()) return {};
    const std::string made = withHeader("createPhyllotaxis", header);
    phyllotaxes[made] = phyllotaxis;
    return made;
  }
  std::string createHydra(const mv::MvrHeader& header, const mv::MvrHydraRecord& hydra) override {
    const std::string made = withHeader("createHydra", header);
    hydras[made] = hydra;
    return made;
  }
  std::string createTropism(const std::string& name, int mode, int axis,
                            const mv::CurveParam& strength) override {
    const std::string made =
        named("createTropism", name, mv::Matrix4(), {double(mode), double(axis)});
    tropisms[made] = strength;
    return made;
  }
  std::string createCurvatureSpline(const std::string& name,
                                    const mv::MvrCurvatureRecord& curvature) override {
    const std::string made = named("createCurvatureSpline", name, mv::Matrix4());
    curvatures[made] = curvature;
    return made;
  }
  std::string createDeformGrid(const mv::MvrHeader& header,
                               const std::vector<mv::Vector3>& points) override {
    const std::string made = withHeader("createDeformGrid", header);
    grids[made] = points;
    return made;
  }
  // Circles give a closed ring of their points, splines their recorded points.
  std::unique_ptr<mv::BaseNode> profileNodeOf(const std::string& name) override {
    const auto circle = circles_.find(name);
    if (circle != circles_.end()) {
      return std::make_unique<ProfileNode>(
          ProfileNode::circle(circle->second.first, circle->second.second));
    }
    const auto spline = splinePoints.find(name);
    if (spline == splinePoints.end() || spline->second.empty()) return nullptr;
    auto node = std::make_unique<ProfileNode>();
    appendSegment(node->profile, spline->second);
    return node;
  }

 private:
  std::string unique(const std::string& name) {
    std::string made = name;
    // The counter goes on where the last clash of this name left it.
    int& counter = nextCounter_.try_emplace(name, 1).first->second;
    while (taken_.count(made)) made = name + std::to_string(counter++);
    taken_.insert(made);
    return made;
  }
  std::string named(const std::string& operation, const std::string& name,
                    const mv::Matrix4& matrix, std::vector<double> values = {}) {
    mv::MvrHeader header(name);
    header.matrix = matrix;
    return record(operation, header, std::move(values));
  }
  std::string withHeader(const std::string& operation, const mv::MvrHeader& header) {
    return record(operation, header, {});
  }
  std::string record(const std::string& operation, const mv::MvrHeader& header,
                     std::vector<double> values) {
    const std::string made = unique(header.name);
    callOf_[made] = calls.size();
    calls.push_back({operation, made, header, std::move(values)});
    return made;
  }

  std::set<std::string> taken_;
  std::map<std::string, size_t> callOf_;
  std::map<std::string, int> nextCounter_;  // created name to its index in calls
  std::map<std::string, std::pair<double, int>> circles_;
};

// Converts a scene text as a load of a file would, with the given settings.
inline bool convertScene(ConversionRecorder& loader, mv::ParameterSetData& settings,
                         const std::string& text) {
  loader.settings = &settings;
  std::istringstream stream(text);
  return loader.loadStream(settings, stream);
}
