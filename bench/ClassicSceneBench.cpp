// A whole classic plant from scene text: a trunk with 10 boughs of 10 twigs, each twig with 100
// leaves (10 000 leaves, three levels of branches), loaded into the classic graph and rendered
// through the polygon stream with selections. Items are polygons.
#include <benchmark/benchmark.h>

#include <sstream>
#include <string>

#include "classic/MeshRender.h"
#include "classic/SceneGraph.h"
#include "curves/ParameterSetData.h"
#include "geometry/MeshData.h"
#include "scene/MvrSceneLoader.h"

namespace {

std::string knots(const char* block, double first, double last) {
  std::ostringstream out;
  out << block << " {\nSize 2\n0," << first << ",0\n1," << last << ",0\n}\n";
  return out.str();
}

// A tree that keeps its whole growth for its branches, so that each places branchNum of them.
std::string tree(const std::string& name, const std::string& branch, int branchNum, double length) {
  std::ostringstream out;
  out << "Struct {\nName \"" << name << "\"\nPrimitive {\nType \"Tube\"\nPoints 8\n}\n"
      << "Tree {\nSegments " << branchNum + 12 << "\nLength {" << length << ",0.001,20}\n"
      << "Branch_Num {" << branchNum << ",1,1000}\n"
      << knots("Shape", 0.1, 0.02) << knots("Branchiness", 1, 1) << knots("Dense", 1, 1)
      << knots("Scale", 1, 1) << knots("GeomScale", 0.5, 0.5) << knots("Deviate", 0.1, 0.1)
      << knots("Kruschtl", 0.05, 0.05) << knots("Gravitropism", 0.1, 0.2)
      << knots("Phototropism", 0, 0) << "Branches {\n\"" << branch << "\"\n}\n}\n}\n";
  return out.str();
}

std::string plantText() {
  std::string text =
      "Version 0.93\nQueue {\nKeySequence {\nKeyFrame {\nTime 0\nModel {\n"
      "Struct {\nName \"Camera\"\nCamera {\n}\nChildren {\n\"Trunk\"\n}\n}\n";
  text +=
      tree("Trunk", "Bough", 10, 6) + tree("Bough", "Twig", 10, 3) + tree("Twig", "Leaf", 100, 1);
  text +=
      "Struct {\nName \"Leaf\"\nPrimitive {\nType \"Area\"\nApplyProfil\nProfil {\nSize 5\n"
      "0,0,0\n0.25,0.05,0\n0.5,0.08,0\n0.75,0.05,0\n1,0,0\n}\n}\n"
      "Leaf {\nSegments {8,1,100}\nLength {4,0.001,20}\nRotX 0.02,0.05,\"id\",-1,1\n" +
      knots("Gravitropism", 0.1, 0.3) + knots("Phototropism", 0, 0) + "}\n}\n";
  return text + "}\n}\n}\n}\n";
}

void BM_ClassicPlantScene(benchmark::State& state) {
  const std::string text = plantText();
  int64_t polygons = 0;
  for (auto _ : state) {
    mv::SceneGraph graph;
    mv::MvrSceneLoader loader(&graph);
    mv::ParameterSetData settings;
    loader.initParameters(settings, 1.0);
    std::istringstream stream(text);
    loader.loadStream(settings, stream);
    loader.releaseUnlinked();
    mv::MeshData mesh;
    mv::renderMesh(graph, mesh);
    polygons += static_cast<int64_t>(mesh.polygons.size());
    state.counters["leaves"] = static_cast<double>(mesh.selections["Leaf"].size()) / 32.0;
  }
  state.SetItemsProcessed(polygons);
}
BENCHMARK(BM_ClassicPlantScene)->Unit(benchmark::kMillisecond);

}  // namespace
