// The classic plant nodes alone: one evaluation of a tree (trunk construction, frames, tube and
// knot placements) and of a leaf, through the polygon stream into a mesh. Items are polygons.
#include <benchmark/benchmark.h>

#include "classic/ClassicLeaf.h"
#include "classic/ClassicTree.h"
#include "core/BaseNode.h"
#include "core/ChildRole.h"
#include "curves/ParameterSetData.h"
#include "geometry/MeshData.h"
#include "geometry/OPolygonStream.h"
#include "geometry/SplineData.h"

namespace {

// A spline standing behind the profile link.
class ProfileLink : public mv::BaseNode {
 public:
  explicit ProfileLink(int points) { profile.makeCircle(1.0, points); }
  std::string& name(std::string& out) override { return out = "profile"; }
  mv::Matrix4& globalMatrix(mv::Matrix4& out) override { return out = mv::Matrix4(); }
  mv::Matrix4& localMatrix(mv::Matrix4& out) override { return out = mv::Matrix4(); }
  mv::Spline* spline() override { return &profile; }
  double rayDistance(const mv::Vector3&, const mv::Vector3&, bool) override { return -1.0; }
  mv::SplineData profile;
};

void runNode(benchmark::State& state, mv::Simple& node, mv::ParameterSetData& params) {
  int64_t polygons = 0;
  for (auto _ : state) {
    mv::MeshData mesh;
    mv::PlacementList placements;
    {
      mv::OPolygonStream stream(&mesh, true);
      node.evaluate(params, stream, mv::RoleNodes | mv::RoleEnd, placements, 1.0);
    }
    polygons += static_cast<int64_t>(mesh.polygons.size());
    benchmark::DoNotOptimize(placements.data());
  }
  state.SetItemsProcessed(polygons);
}

// A bent tree of range(0) segments and 40 branches with a 16-point profile.
void BM_ClassicTreeNode(benchmark::State& state) {
  mv::ClassicTree tree;
  mv::ParameterSetData params;
  tree.initParameters(params, 1.0);
  params.setDouble(mv::IdTreeSegments, static_cast<double>(state.range(0)));
  params.setDouble(mv::IdTreeBranchNum, 40.0);
  params.setCurve(mv::IdTreeDeviate, mv::CurveParam(0, 1, 0.2, 0.1, "id"));
  params.setCurve(mv::IdTreeGravitropism, mv::CurveParam(0, 1, 0.1, 0.3, "id"));
  ProfileLink profile(16);
  params.profileNode = &profile;
  runNode(state, tree, params);
}
BENCHMARK(BM_ClassicTreeNode)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);

// A curled leaf of range(0) segments with a 5-point open profile.
void BM_ClassicLeafNode(benchmark::State& state) {
  mv::ClassicLeaf leaf;
  mv::ParameterSetData params;
  leaf.initParameters(params, 1.0);
  const mv::CurveParam zero(0, 1, 0, 0, "id"), one(0, 1, 1, 1, "id");
  for (int id : {mv::IdHornRotY, mv::IdHornRotZ, mv::IdHornTrX, mv::IdHornTrY, mv::IdHornScrew,
                 mv::IdHornFlap, mv::IdHornScale}) {
    params.setCurve(id, zero);
  }
  params.setCurve(mv::IdHornRotX, mv::CurveParam(0, 1, 0.2, 0.6, "id"));
  params.setCurve(mv::IdHornDense, one);
  params.setCurve(mv::IdHornShape, mv::CurveParam(0, 1.57, 0, 1.57, "sin(x*2)"));
  params.setCurve(mv::IdLeafGravitropism, mv::CurveParam(0, 1, 0.1, 0.3, "id"));
  params.setDouble(mv::IdHornSegments, static_cast<double>(state.range(0)));
  params.setDouble(mv::IdHornLength, 1.0);
  params.setDouble(mv::IdHornMoveScale, 0.05);
  ProfileLink profile(5);
  params.profileNode = &profile;
  runNode(state, leaf, params);
}
BENCHMARK(BM_ClassicLeafNode)->Arg(8)->Arg(100)->Unit(benchmark::kMicrosecond);

}  // namespace
