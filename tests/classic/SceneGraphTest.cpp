// The scene graph's walk: one evaluation per placement, shared children, hidden nodes, progress,
// materials and selections, the two modifier kinds, and the life of shared nodes.
#include <gtest/gtest.h>

#include <cstdint>

#include "classic/ClassicSimple.h"
#include "classic/GridPatch.h"
#include "classic/MeshRender.h"
#include "classic/SceneGraph.h"
#include "core/ChildRole.h"
#include "core/MathConstants.h"
#include "core/ProgressHandler.h"
#include "curves/ParameterSetData.h"
#include "support/CapturingMessageHandler.h"
#include "support/CountingGeomStream.h"
#include "support/GeometryExpectations.h"
#include "support/MeshExpectations.h"
#include "support/SceneRendering.h"

using namespace mv;

namespace {

// Writes one unit quad in the xy plane at the origin and counts its evaluations.
class Marker : public Simple {
 public:
  explicit Marker(int* evaluations = nullptr) : evaluations_(evaluations) {}
  int evaluate(ParameterSet&, OGeomStream& stream, int, PlacementList&, double) override {
    if (evaluations_) ++*evaluations_;
    GridPatch::write(stream, 1, 1, [](int u, int v) { return Vector3(u, v, 0); });
    return RoleOther;
  }

 private:
  int* evaluations_;
};

// Places its children count times along x, one unit apart, handing each placement its data.
class Row : public Simple {
 public:
  explicit Row(int count, bool collapseFirst = false)
      : count_(count), collapseFirst_(collapseFirst) {}
  int evaluate(ParameterSet&, OGeomStream&, int roleMask, PlacementList& placements,
               double) override {
    if (!(roleMask & RoleOther)) return 0;
    PlacementGroup group;
    group.role = RoleOther;
    for (int i = 0; i < count_; ++i) {
      Placement placement;
      placement.matrix = Matrix4::translation({double(i), 0, 0});
      if (i == 0 && collapseFirst_) placement.matrix = Matrix4::scaling({0, 0, 0});
      placement.wantsData = true;
      placement.index = i;
      placement.count = count_;
      placement.carriedGrowth = 0.5;
      group.placements.push_back(placement);
    }
    placements.push_back(group);
    return RoleOther;
  }

 private:
  int count_;
  bool collapseFirst_;
};

// Records what a node's private parameter copy held when it was evaluated.
class Probe : public Simple {
 public:
  struct Seen {
    Matrix4 world, local;
    double carriedGrowth;
    int index, count;
    BaseNode* profile;
  };
  explicit Probe(std::vector<Seen>* seen, bool profileFirst = false)
      : seen_(seen), profileFirst_(profileFirst) {}
  bool assignRoles(ParameterSet&, std::vector<int>& roles, int childCount) override {
    for (int i = 0; i < childCount; ++i) roles.push_back(i == 0 && profileFirst_ ? 1 : 16);
    return true;
  }
  int evaluate(ParameterSet& params, OGeomStream& stream, int roleMask, PlacementList& placements,
               double lod) override {
    seen_->push_back({params.getMatrix(IdWorldMatrix), params.getMatrix(IdLocalMatrix),
                      params.getDouble(IdCarriedGrowth), params.getInt(IdIndex),
                      params.getInt(IdCount), params.getNode(IdProfileNode)});
    return Simple::evaluate(params, stream, roleMask, placements, lod);
  }

 private:
  std::vector<Seen>* seen_;
  bool profileFirst_;
};

// Kind 1: doubles every point of its subtree's mesh before it is written.
class Doubler : public Simple {
 public:
  int modifierKinds() override { return ModifierFinishMesh; }
  bool finishMesh(ParameterSet&, EditableMesh& mesh) override {
    for (uint32_t i = 0; i < mesh.getPointCount(); ++i) {
      Vector3 p;
      mesh.getPoint(i, p);
      mesh.setPoint(i, p * 2.0);
    }
    return true;
  }
};

// Kind 4: lifts every point by the number of placements it was given.
class Lifter : public Simple {
 public:
  int modifierKinds() override { return ModifierDeformPoints; }
  bool deformPoints(ParameterSet&, EditableMesh& mesh, PlacementList& placements, Node&) override {
    for (uint32_t i = 0; i < mesh.getPointCount(); ++i) {
      Vector3 p;
      mesh.getPoint(i, p);
      mesh.setPoint(i, p + Vector3{0, 0, double(placements.size())});
    }
    return true;
  }
};

class RecordingProgress : public ProgressHandler {
 public:
  explicit RecordingProgress(size_t cancelAfter = SIZE_MAX) : cancelAfter_(cancelAfter) {}
  void start() override {}
  void finish() override {}
  void spin() override {}
  void setProgress(double value) override { values.push_back(value); }
  bool isCancelled() override { return values.size() >= cancelAfter_; }
  std::vector<double> values;

 private:
  size_t cancelAfter_;
};

Node* makeNode(const std::string& name, Simple* simple, const Matrix4& matrix = Matrix4()) {
  Node* node = new Node();
  node->setName(name);
  node->setSimple(simple);
  node->setMatrix(matrix);
  return node;
}

}  // namespace

TEST(SceneGraph, sharedLeafIsOneNodeEvaluatedOncePerPlacement) {
  int evaluations = 0;
  SceneGraph graph;
  Node* leaf = makeNode("Leaf", new Marker(&evaluations));
  Node* left = makeNode("Left", new Row(100));
  Node* right = makeNode("Right", new Row(100), Matrix4::translation({0, 10, 0}));
  ASSERT_TRUE(left->addChild(leaf, ""));
  ASSERT_TRUE(right->addChild(leaf, ""));
  graph.addChild(left, "");
  graph.addChild(right, "");
  const MeshData mesh = renderNode(graph);
  EXPECT_EQ(evaluations, 200);
  EXPECT_EQ(leaf->useCount(), 2);
  EXPECT_EQ(mesh.polygons.size(), 200u);
  EXPECT_EQ(mesh.points.size(), 800u);
  const Bounds bounds = boundsOf(mesh);
  expectNear(bounds.low, {0, 0, 0});
  expectNear(bounds.high, {100, 11, 0});
}

TEST(SceneGraph, childStandsInItsParentsFrame) {
  SceneGraph graph;
  // Outer turns a quarter about z, then moves 5 along x; inner moves 1 along x inside it.
  Node* outer = makeNode("Outer", new Simple(),
                         Matrix4::rotationZ(kPi / 2.0) * Matrix4::translation({5, 0, 0}));
  Node* inner = makeNode("Inner", new Marker(), Matrix4::translation({1, 0, 0}));
  outer->addChild(inner, "");
  graph.addChild(outer, "");
  // The unit quad goes to x 1..2, y 0..1, turns to x -1..0, y 1..2, and moves to x 4..5.
  const Bounds bounds = boundsOf(renderNode(graph));
  expectNear(bounds.low, {4, 1, 0});
  expectNear(bounds.high, {5, 2, 0});
}

TEST(SceneGraph, placementActsInThePlacingNodesFrame) {
  SceneGraph graph;
  Node* row = makeNode("Row", new Row(3), Matrix4::rotationZ(kPi / 2.0));
  row->addChild(makeNode("Leaf", new Marker()), "");
  graph.addChild(row, "");
  // Three quads one unit apart along the row's x axis, which the turn lays along y.
  const Bounds bounds = boundsOf(renderNode(graph));
  expectNear(bounds.low, {-1, 0, 0});
  expectNear(bounds.high, {0, 3, 0});
}

TEST(SceneGraph, childrenSeeTheWalkInTheirPrivateParameters) {
  std::vector<Probe::Seen> seen;
  SceneGraph graph;
  const Matrix4 rowMatrix = Matrix4::translation({0, 5, 0});
  const Matrix4 leafMatrix = Matrix4::rotationZ(0.5);
  Node* row = makeNode("Row", new Row(3), rowMatrix);
  Node* probe = makeNode("Probe", new Probe(&seen), leafMatrix);
  row->addChild(probe, "");
  graph.addChild(row, "");
  renderNode(graph);
  ASSERT_EQ(seen.size(), 3u);
  for (int i = 0; i < 3; ++i) {
    // The node's own matrix acts first, then the placement, then the parent's frame.
    expectNear(seen[i].world, leafMatrix * Matrix4::translation({double(i), 0, 0}) * rowMatrix);
    expectNear(seen[i].local, leafMatrix);
    EXPECT_EQ(seen[i].index, i);
    EXPECT_EQ(seen[i].count, 3);
    EXPECT_DOUBLE_EQ(seen[i].carriedGrowth, 0.5);
  }
  // The stored set is untouched by the visits.
  EXPECT_TRUE(probe->parameters().getMatrix(IdWorldMatrix) == Matrix4());
  EXPECT_DOUBLE_EQ(probe->parameters().getDouble(IdCarriedGrowth), 1.0);
}

TEST(SceneGraph, roleOneChildIsTheProfileAndIsNotPlaced) {
  std::vector<Probe::Seen> seen;
  int evaluations = 0;
  SceneGraph graph;
  Node* probe = makeNode("Probe", new Probe(&seen, true));
  Node* profile = makeNode("Profile", new Marker(&evaluations));
  Node* other = makeNode("Other", new Marker(&evaluations));
  probe->addChild(profile, "");
  probe->addChild(other, "");
  graph.addChild(probe, "");
  renderNode(graph);
  ASSERT_EQ(seen.size(), 1u);
  EXPECT_EQ(seen[0].profile, profile);
  EXPECT_EQ(evaluations, 1);  // only the role-16 child
}

TEST(SceneGraph, hiddenNodeStopsTheDescent) {
  int evaluations = 0;
  SceneGraph graph;
  Node* group = makeNode("Group", new ClassicSimple());
  group->setHidden(true);
  group->addChild(makeNode("Leaf", new Marker(&evaluations)), "");
  graph.addChild(group, "");
  EHierarchyHelp help;
  help.matrix = Matrix4();
  CountingGeomStream stream;
  EXPECT_TRUE(group->evaluate(help, stream));
  EXPECT_TRUE(help.stopped);
  EXPECT_TRUE(renderNode(graph).polygons.empty());
  EXPECT_EQ(evaluations, 0);
}

TEST(SceneGraph, nodeWithoutSimplePlacesNothing) {
  int evaluations = 0;
  SceneGraph graph;
  Node* bare = new Node();
  bare->setName("Bare");
  bare->addChild(makeNode("Leaf", new Marker(&evaluations)), "");
  graph.addChild(bare, "");
  EXPECT_TRUE(renderNode(graph).polygons.empty());
  EXPECT_EQ(evaluations, 0);
}

TEST(SceneGraph, collapsedPlacementIsSkippedAndTakesNoProgressShare) {
  RecordingProgress progress;
  int evaluations = 0;
  SceneGraph graph;
  Node* row = makeNode("Row", new Row(3, true));
  row->addChild(makeNode("Leaf", new Marker(&evaluations)), "");
  graph.addChild(row, "");
  MeshData mesh;
  MeshRenderOptions options;
  options.progress = &progress;
  EXPECT_EQ(renderMesh(graph, mesh, options), MeshRenderOutcome::Complete);
  EXPECT_EQ(evaluations, 2);
  // World: depth 0, one live child with the whole span. Row: depth 1 keeps 1/512 of its share
  // and splits the rest between two live placements. Each leaf, at depth 2, reports its start.
  const double base = 1.0 / 512, rowSpan = 1.0 / (base + 2);
  const std::vector<double> expected = {0.0, base, base + 2.0 / 512 * rowSpan,
                                        base + rowSpan + 2.0 / 512 * rowSpan};
  ASSERT_EQ(progress.values.size(), expected.size());
  for (size_t i = 0; i < expected.size(); ++i) EXPECT_NEAR(progress.values[i], expected[i], 1e-15);
}

TEST(SceneGraph, cancelledWalkPlacesNoFurtherChild) {
  RecordingProgress progress(4);  // cancelled once four nodes have reported
  int evaluations = 0;
  SceneGraph graph;
  Node* row = makeNode("Row", new Row(10));
  row->addChild(makeNode("Leaf", new Marker(&evaluations)), "");
  graph.addChild(row, "");
  MeshData mesh;
  MeshRenderOptions options;
  options.progress = &progress;
  EXPECT_EQ(renderMesh(graph, mesh, options), MeshRenderOutcome::Cancelled);
  EXPECT_EQ(evaluations, 2);  // World and Row report, then two leaves
  EXPECT_EQ(mesh.polygons.size(), 2u);
}

// Each row of the table limits one budget; the walk stops where the limit is first passed.
TEST(SceneGraph, renderBudgetStopsTheWalkAndSaysSo) {
  struct Case {
    long maxVisits;
    uint32_t maxPolygons;
    MeshRenderOutcome outcome;
    int evaluations;
  };
  const Case cases[] = {
      {0, 0, MeshRenderOutcome::Complete, 100},
      {102, 0, MeshRenderOutcome::Complete, 100},  // World, Row and 100 leaves
      {5, 0, MeshRenderOutcome::OverBudget, 4},
      {0, 7, MeshRenderOutcome::OverBudget, 8},  // stops once the mesh holds more than 7
  };
  for (const Case& c : cases) {
    CapturingMessageHandler messages;
    int evaluations = 0;
    SceneGraph graph;
    Node* row = makeNode("Row", new Row(100));
    row->addChild(makeNode("Leaf", new Marker(&evaluations)), "");
    graph.addChild(row, "");
    MeshData mesh;
    MeshRenderOptions options;
    options.maxVisits = c.maxVisits;
    options.maxPolygons = c.maxPolygons;
    EXPECT_EQ(renderMesh(graph, mesh, options), c.outcome) << c.maxVisits << " " << c.maxPolygons;
    EXPECT_EQ(evaluations, c.evaluations) << c.maxVisits << " " << c.maxPolygons;
    EXPECT_EQ(messages.errors.size(), c.outcome == MeshRenderOutcome::OverBudget ? 1u : 0u);
  }
}

TEST(SceneGraph, materialsAreInheritedAndReplaced) {
  SceneGraph graph;
  Node* group = makeNode("Group", new ClassicSimple());
  group->setMaterial(2);
  Node* inherits = makeNode("Inherits", new Marker());
  Node* own = makeNode("Own", new Marker(), Matrix4::translation({5, 0, 0}));
  own->setMaterial(3);
  group->addChild(inherits, "");
  group->addChild(own, "");
  graph.addChild(group, "");
  graph.addChild(makeNode("Plain", new Marker()), "");
  const MeshData mesh = renderNode(graph);
  ASSERT_EQ(mesh.polygons.size(), 3u);
  EXPECT_EQ(mesh.polygons[0].material, 2);
  EXPECT_EQ(mesh.polygons[1].material, 3);
  EXPECT_EQ(mesh.polygons[2].material, -1);
}

TEST(SceneGraph, selectionsAreNamedAfterTheNodesThatWrote) {
  SceneGraph graph;
  Node* group = makeNode("Twin", new ClassicSimple());
  // A child named like its parent joins the parent's selection; two materials in one selection.
  Node* sameName = makeNode("Twin", new Marker());
  sameName->setMaterial(1);
  Node* other = makeNode("Other", new Marker());
  Node* twinAgain = makeNode("Twin", new Marker());
  twinAgain->setMaterial(4);
  group->addChild(sameName, "");
  group->addChild(other, "");
  graph.addChild(group, "");
  graph.addChild(twinAgain, "");
  const MeshData mesh = renderNode(graph);
  ASSERT_EQ(mesh.polygons.size(), 3u);
  EXPECT_EQ(mesh.selections.at("Twin"), (std::set<uint32_t>{0, 2}));
  EXPECT_EQ(mesh.selections.at("Other"), (std::set<uint32_t>{1}));
  EXPECT_EQ(mesh.polygons[0].material, 1);
  EXPECT_EQ(mesh.polygons[2].material, 4);
  EXPECT_EQ(mesh.selections.size(), 2u);
}

TEST(SceneGraph, finishMeshModifierWorksOnItsSubtreeInLocalCoordinates) {
  SceneGraph graph;
  Node* doubler = makeNode("Doubler", new Doubler(), Matrix4::translation({10, 0, 0}));
  doubler->setMaterial(7);
  Node* row = makeNode("Row", new Row(2));
  row->addChild(makeNode("Leaf", new Marker()), "");
  doubler->addChild(row, "");
  graph.addChild(doubler, "");
  const MeshData mesh = renderNode(graph);
  ASSERT_EQ(mesh.polygons.size(), 2u);
  // Leaves at x 0 and 1 of the row, doubled, then carried by the modifier's matrix.
  const Bounds bounds = boundsOf(mesh);
  expectNear(bounds.low, {10, 0, 0});
  expectNear(bounds.high, {14, 2, 0});
  EXPECT_EQ(mesh.polygons[0].material, 7);
  EXPECT_EQ(mesh.selections.count("Row"), 1u);
}

TEST(SceneGraph, deformPointsModifierMovesItsSubtreesPoints) {
  SceneGraph graph;
  Node* lifter = makeNode("Lifter", new Lifter());
  lifter->addChild(makeNode("Leaf", new Marker()), "");
  graph.addChild(lifter, "");
  const MeshData mesh = renderNode(graph);
  ASSERT_EQ(mesh.polygons.size(), 1u);
  const Bounds bounds = boundsOf(mesh);
  expectNear(bounds.low, {0, 0, 1});  // one placement group: lifted by one
  expectNear(bounds.high, {1, 1, 1});
}

TEST(SceneGraph, linksFindTheirParentAndRefuseCycles) {
  CapturingMessageHandler messages;
  SceneGraph graph;
  Node* a = makeNode("A", new ClassicSimple());
  Node* b = makeNode("B", new ClassicSimple());
  Node* c = makeNode("C", new ClassicSimple());
  EXPECT_TRUE(graph.addChild(a, ""));
  EXPECT_TRUE(graph.addChild(b, "A"));  // found below the root
  EXPECT_TRUE(graph.addChild(c, "B"));
  Node orphan;
  EXPECT_FALSE(graph.addChild(&orphan, "Nowhere"));
  EXPECT_FALSE(c->addChild(a, ""));  // a is above c
  EXPECT_FALSE(a->addChild(a, ""));
  EXPECT_EQ(a->useCount(), 1);
  EXPECT_EQ(messages.warnings.size(), 2u);
  ASSERT_EQ(a->children().size(), 1u);
  EXPECT_EQ(a->children()[0], b);
}

TEST(SceneGraph, printTreeIndentsByLevel) {
  CapturingMessageHandler messages;
  SceneGraph graph;
  Node* group = makeNode("Group", new ClassicSimple());
  group->addChild(makeNode("Leaf", new Marker()), "");
  Node* bare = new Node();
  bare->setName("Bare");
  group->addChild(bare, "");
  graph.addChild(group, "");
  graph.printTree(0);
  EXPECT_EQ(messages.prints,
            (std::vector<std::string>{"World [Simple]", "    Group [ClassicSimple]",
                                      "        Leaf [Simple]", "        Bare"}));
}

TEST(SceneGraph, settingASimpleWritesFreshDefaults) {
  Node node;
  node.setSimple(new ClassicSimple());
  node.parameters().setDouble(IdPhotoStrength, 0.25);
  node.parameters().setInt(4242, 1);
  node.setSimple(new ClassicSimple());
  bool ok = false;
  node.parameters().getInt(4242, &ok);
  EXPECT_FALSE(ok);
  EXPECT_DOUBLE_EQ(node.parameters().getDouble(IdPhotoStrength), 1.0);
  Matrix4 out;
  EXPECT_EQ(node.globalMatrix(out), Matrix4());
  EXPECT_EQ(node.rayDistance({}, {0, 0, 1}, false), -1.0);
  EXPECT_EQ(node.spline(), nullptr);
  EXPECT_EQ(node.mesh(), nullptr);
}

TEST(SceneGraph, sharedNodesOutliveOneParent) {
  Node* shared = makeNode("Shared", new Marker());
  Node* keeper = makeNode("Keeper", new ClassicSimple());
  {
    SceneGraph graph;
    Node* first = makeNode("First", new ClassicSimple());
    first->addChild(shared, "");
    keeper->addChild(shared, "");
    graph.addChild(first, "");
    EXPECT_EQ(shared->useCount(), 2);
  }
  EXPECT_EQ(shared->useCount(), 1);
  delete keeper;  // deletes shared too; the sanitizer build checks that nothing is freed twice
}

TEST(SceneGraph, materialsBelongToTheGraph) {
  SceneGraph graph;
  EXPECT_FALSE(graph.addMaterial(nullptr));
  auto* bark = new Material();
  bark->name = "Bark";
  EXPECT_TRUE(graph.addMaterial(bark));
  ASSERT_EQ(graph.sceneMaterials().size(), 1u);
  EXPECT_EQ(graph.sceneMaterials()[0]->name, "Bark");
  std::string name;
  EXPECT_EQ(graph.name(name), "World");
}
