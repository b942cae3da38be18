// The classic scene graph rendering many instances of one shared primitive: 100 rows that share
// 100 cells that share one sphere, so 10 000 placements of one node.
#include <benchmark/benchmark.h>

#include "classic/ClassicSimple.h"
#include "classic/MeshRender.h"
#include "classic/SceneGraph.h"
#include "classic/SolidParameters.h"
#include "classic/Sphere.h"
#include "geometry/MeshData.h"

namespace {

mv::Node* makeNode(const std::string& name, mv::Simple* simple, const mv::Matrix4& matrix) {
  auto* node = new mv::Node();
  node->setName(name);
  node->setSimple(simple);
  node->setMatrix(matrix);
  return node;
}

void buildGrid(mv::SceneGraph& graph, int side) {
  mv::Node* sphere = makeNode("Sphere", new mv::Sphere(), mv::Matrix4());
  sphere->parameters().setInt(mv::IdSlices, 8);
  sphere->parameters().setInt(mv::IdStacks, 6);
  sphere->parameters().setDouble(mv::IdSphereRadius, 0.4);
  std::vector<mv::Node*> cells;
  for (int i = 0; i < side; ++i) {
    cells.push_back(makeNode("Cell" + std::to_string(i), new mv::ClassicSimple(),
                             mv::Matrix4::translation({double(i), 0, 0})));
    cells.back()->addChild(sphere, "");
  }
  for (int j = 0; j < side; ++j) {
    mv::Node* row = makeNode("Row" + std::to_string(j), new mv::ClassicSimple(),
                             mv::Matrix4::translation({0, double(j), 0}));
    for (mv::Node* cell : cells) row->addChild(cell, "");
    graph.addChild(row, "");
  }
}

void BM_SceneGraphInstances(benchmark::State& state) {
  mv::SceneGraph graph;
  buildGrid(graph, 100);
  int64_t polygons = 0;
  for (auto _ : state) {
    mv::MeshData mesh;
    mv::renderMesh(graph, mesh);
    polygons += mesh.getPolygonCount();
    benchmark::DoNotOptimize(mesh.points.data());
  }
  state.SetItemsProcessed(polygons);
  state.counters["polygons"] = static_cast<double>(polygons) / state.iterations();
}
BENCHMARK(BM_SceneGraphInstances)->Unit(benchmark::kMillisecond);

}  // namespace
