#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "core/ParameterSet.h"
#include "curves/CurveParam.h"
#include "host/BaseDocument.h"
#include "host/BaseTag.h"
#include "host/LineObject.h"
#include "host/LineTag.h"
#include "host/PolygonObject.h"
#include "host/SegmentTag.h"
#include "host/SelectionTag.h"
#include "source/C4dLine.h"
#include "source/C4dObject.h"
#include "source/C4dParameterSet.h"
#include "source/C4dPolygonMesh.h"
#include "source/PluginIds.h"
#include "support/CapturingConsole.h"
#include "support/GeometryExpectations.h"

namespace {

// Objects are freed with their tree at the end of each test.
struct Tree {
  Tree() : root(BaseObject::Alloc(Onull)) { root->SetName("Root"); }
  ~Tree() { BaseObject::Free(root); }
  BaseObject* add(Int32 type, BaseObject* parent, const String& name = "") {
    BaseObject* object = BaseObject::Alloc(type);
    object->SetName(name);
    object->InsertUnderLast(parent);
    return object;
  }
  BaseObject* root;
};

BaseTag* dataTag(BaseObject* object, double growth, int index, int count) {
  BaseTag* tag = object->MakeTag(ID_MORVO_TAG);
  tag->GetDataInstance()->SetReal(mv::IdCarriedGrowth, growth);
  tag->GetDataInstance()->SetLong(mv::IdIndex, index);
  tag->GetDataInstance()->SetLong(mv::IdCount, count);
  return tag;
}

TEST(C4dParameterSet, anAbsentBoolReadsTrue) {
  Tree tree;
  C4dParameterSet params(tree.root, nullptr);
  bool ok = false;
  EXPECT_TRUE(params.getBool(4711, &ok));
  EXPECT_TRUE(ok);
  tree.root->GetDataInstance()->SetBool(4711, false);
  EXPECT_FALSE(params.getBool(4711));
}

TEST(C4dParameterSet, withoutADataTagThePlacementReadsAsOne) {
  Tree tree;
  C4dParameterSet params(tree.root, nullptr);
  bool ok = false;
  EXPECT_EQ(params.getInt(mv::IdIndex, &ok), 1);
  EXPECT_TRUE(ok);
  EXPECT_EQ(params.getInt(mv::IdCount), 1);
  for (int id : {mv::IdCarriedGrowth, mv::IdCarriedThickness, mv::IdCarriedDensity}) {
    EXPECT_DOUBLE_EQ(params.getDouble(id), 1.0) << id;
  }
}

TEST(C4dParameterSet, aFreshDataTagGivesItsInitValues) {
  Tree tree;
  tree.root->MakeTag(ID_MORVO_TAG);
  C4dParameterSet params(tree.root, nullptr);
  EXPECT_DOUBLE_EQ(params.getDouble(mv::IdCarriedGrowth), 1.0);
  EXPECT_EQ(params.getInt(mv::IdIndex), 0);
  EXPECT_EQ(params.getInt(mv::IdCount), 0);
}

TEST(C4dParameterSet, theNearestDataTagWins) {
  Tree tree;
  BaseObject* instance = tree.add(Onull, tree.root);
  BaseObject* inner = tree.add(Onull, instance);
  dataTag(tree.root, 0.25, 2, 5);
  dataTag(instance, 0.75, 3, 9);
  C4dParameterSet below(inner, nullptr);
  EXPECT_DOUBLE_EQ(below.getDouble(mv::IdCarriedGrowth), 0.75);
  EXPECT_EQ(below.getInt(mv::IdIndex), 3);
  EXPECT_EQ(below.getInt(mv::IdCount), 9);
  dataTag(inner, 0.5, 4, 6);
  EXPECT_DOUBLE_EQ(below.getDouble(mv::IdCarriedGrowth), 0.5) << "the object's own tag first";
}

TEST(C4dParameterSet, theNameAndTheMatricesOfTheObject) {
  Tree tree;
  tree.root->SetMl(MatrixMove(Vector(1, 2, 3)));
  BaseObject* child = tree.add(Onull, tree.root, std::string(2000, 'x'));
  child->SetMl(MatrixMove(Vector(0, 0, 5)));
  C4dParameterSet params(child, nullptr);
  bool ok = false;
  EXPECT_EQ(params.getString(mv::IdName, &ok).size(), 1024u);
  EXPECT_TRUE(ok);
  EXPECT_EQ(params.getString(1001, &ok), "");
  EXPECT_FALSE(ok);
  expectNear(params.getMatrix(mv::IdWorldMatrix).position(), {1, 8, 2});
  expectNear(params.getMatrix(mv::IdLocalMatrix).position(), {0, 5, 0});
  expectNear(params.getVector(1001), {0, 0, 5});
}

TEST(C4dParameterSet, nodeSlotsHoldWhatTheDriverPutsThere) {
  Tree tree;
  C4dParameterSet params(tree.root, nullptr);
  auto* node = new C4dObject(tree.root, nullptr);
  EXPECT_TRUE(params.setSlot(mv::IdPathNode, node));
  bool ok = false;
  EXPECT_EQ(params.getNode(mv::IdPathNode, &ok), node);
  EXPECT_TRUE(ok);
  EXPECT_EQ(params.getNode(mv::IdProfileNode), nullptr);
  EXPECT_EQ(params.getNode(1234, &ok), nullptr);
  EXPECT_FALSE(ok);
  EXPECT_FALSE(params.setSlot(1234, new C4dObject(tree.root, nullptr)));
}

TEST(C4dParameterSet, setsWriteTheContainer) {
  Tree tree;
  C4dParameterSet params(tree.root, nullptr);
  EXPECT_TRUE(params.setDouble(1500, 2.5));
  EXPECT_TRUE(params.setInt(1605, 1));
  EXPECT_DOUBLE_EQ(tree.root->GetDataInstance()->GetReal(1500), 2.5);
  EXPECT_EQ(tree.root->GetDataInstance()->GetLong(1605), 1);
  C4dParameterSet empty(nullptr, nullptr);
  EXPECT_FALSE(empty.setDouble(1500, 2.5));
  EXPECT_FALSE(empty.setVector(1, {}));
  EXPECT_TRUE(empty.setString(1, "ignored"));
}

TEST(C4dParameterSet, curvesBindIndexAndCountOfTheDataTag) {
  BaseDocument document;
  BaseObject* object = BaseObject::Alloc(Onull);
  document.InsertObject(object, nullptr, nullptr);
  dataTag(object, 1.0, 3, 8);
  C4dParameterSet params(object, &document);
  ASSERT_TRUE(params.setCurve(1307, mv::CurveParam(0.0, 1.0, 0.0, 0.0, "x+i*10+n")));
  mv::CurveParam* curve = params.getCurve(1307);
  ASSERT_NE(curve, nullptr);
  EXPECT_DOUBLE_EQ(curve->evaluate(0.5), 38.0);
  C4dParameterSet withoutDocument(object, nullptr);
  bool ok = true;
  EXPECT_EQ(withoutDocument.getCurve(1307, &ok), nullptr);
  EXPECT_FALSE(ok);
}

TEST(C4dParameterSet, aDeviationReadsItsOwningBranch) {
  BaseDocument document;
  BaseObject* branch = BaseObject::Alloc(ID_BRANCH_OBJECT);
  document.InsertObject(branch, nullptr, nullptr);
  BaseObject* path = BaseObject::Alloc(Onull);
  path->InsertUnderLast(branch);
  BaseObject* deviation = BaseObject::Alloc(ID_DEVIATION_OBJECT);
  deviation->InsertUnderLast(path);
  branch->GetDataInstance()->SetReal(1301, 7.0);
  C4dParameterSet params(deviation, &document);
  EXPECT_DOUBLE_EQ(params.getDouble(8301), 7.0);
  EXPECT_NE(params.getCurve(8306), nullptr) << "the Branch's distribution";
  C4dParameterSet branchParams(path, &document);
  bool ok = true;
  EXPECT_DOUBLE_EQ(branchParams.getDouble(8301, &ok), 10.0);
  EXPECT_FALSE(ok);
  EXPECT_DOUBLE_EQ(params.getDouble(mv::IdGrowthAbove, &ok), 1.0) << "the Branch's growth";
  EXPECT_TRUE(ok);
}

TEST(C4dPolygonMesh, onePolygonSelectionPerMaterialNamedAfterIt) {
  C4dPolygonMesh mesh;
  uint32_t firstPoint = 0, firstPolygon = 0;
  ASSERT_TRUE(mesh.allocate(4, 3, firstPoint, firstPolygon));
  mv::MeshPolygon polygon;
  polygon.material = 7;
  EXPECT_TRUE(mesh.setPolygon(0, polygon));
  EXPECT_TRUE(mesh.setPolygon(2, polygon));
  polygon.material = -1;
  EXPECT_TRUE(mesh.setPolygon(1, polygon));
  BaseObject* object = mesh.detach();
  auto* tag = static_cast<SelectionTag*>(object->GetTag(Tpolygonselection));
  ASSERT_NE(tag, nullptr);
  EXPECT_EQ(tag->GetName(), "7");
  EXPECT_EQ(tag->GetBaseSelect()->GetSelected(), (std::set<Int32>{0, 2}));
  EXPECT_EQ(object->GetTag(Tpolygonselection, 1), nullptr);
  BaseObject::Free(object);
}

TEST(C4dPolygonMesh, capacityDoublesAndFinishCutsToTheCounts) {
  struct Step {
    uint32_t points, polygons, firstPoint, firstPolygon, pointCapacity, polygonCapacity;
  };
  const Step steps[] = {{4, 1, 0, 0, 4, 1}, {2, 1, 4, 1, 8, 2}, {1, 1, 6, 2, 8, 4}};
  C4dPolygonMesh mesh;
  for (const Step& step : steps) {
    uint32_t firstPoint = 99, firstPolygon = 99;
    ASSERT_TRUE(mesh.allocate(step.points, step.polygons, firstPoint, firstPolygon));
    EXPECT_EQ(firstPoint, step.firstPoint);
    EXPECT_EQ(firstPolygon, step.firstPolygon);
    EXPECT_EQ(mesh.object()->GetPointCount(), static_cast<Int32>(step.pointCapacity));
    EXPECT_EQ(mesh.object()->GetPolygonCount(), static_cast<Int32>(step.polygonCapacity));
  }
  ASSERT_TRUE(mesh.finish());
  EXPECT_EQ(mesh.object()->GetPointCount(), 7);
  EXPECT_EQ(mesh.object()->GetPolygonCount(), 3);
  BaseObject* object = mesh.detach();
  BaseObject::Free(object);
}

TEST(C4dPolygonMesh, finishCutsWhenOnlyThePointsDiffer) {
  C4dPolygonMesh mesh;
  uint32_t firstPoint = 0, firstPolygon = 0;
  mesh.allocate(4, 2, firstPoint, firstPolygon);
  mesh.allocate(1, 0, firstPoint, firstPolygon);
  ASSERT_EQ(mesh.object()->GetPointCount(), 8);
  mesh.finish();
  EXPECT_EQ(mesh.object()->GetPointCount(), 5);
  EXPECT_EQ(mesh.object()->GetPolygonCount(), 2);
  BaseObject* object = mesh.detach();
  BaseObject::Free(object);
}

TEST(C4dPolygonMesh, writesOutsideTheReservedRangeSayAlarm) {
  CapturingConsole console;
  C4dPolygonMesh mesh;
  uint32_t firstPoint = 0, firstPolygon = 0;
  mesh.allocate(4, 1, firstPoint, firstPolygon);
  mv::MeshPolygon polygon;
  polygon.b = 1;
  polygon.c = 2;
  polygon.d = 3;
  EXPECT_FALSE(mesh.setPoint(4, {}));
  EXPECT_FALSE(mesh.setPolygon(5, polygon));
  EXPECT_FALSE(mesh.setTexturePolygon(1, {}));
  EXPECT_EQ(console.lines,
            (std::vector<std::string>{"Alarm Point 4", "Alarm CPolygon[5] (0, 1, 2, 3)",
                                      "TexturePolygon out of Bounds: 1"}));
  BaseObject* object = mesh.detach();
  BaseObject::Free(object);
}

TEST(C4dPolygonMesh, pointsCrossTheAxesBothWays) {
  C4dPolygonMesh mesh;
  uint32_t firstPoint = 0, firstPolygon = 0;
  mesh.allocate(1, 0, firstPoint, firstPolygon);
  mesh.setPoint(0, {1, 2, 3});
  EXPECT_EQ(mesh.object()->GetPointR()[0], Vector(1, 3, 2));
  BaseObject* object = mesh.detach();
  C4dPolygonMesh reading(static_cast<PolygonObject*>(object));
  mv::Vector3 point;
  reading.getPoint(0, point);
  expectNear(point, {1, 2, 3});
  reading.getPoint(1, point);
  expectNear(point, {0, 0, 0});
  BaseObject::Free(object);
}

TEST(C4dPolygonMesh, aNamedSelectionGrowsOnEachCall) {
  C4dPolygonMesh mesh;
  uint32_t firstPoint = 0, firstPolygon = 0;
  EXPECT_FALSE(mesh.setSelection("C1", {0}));
  mesh.allocate(3, 4, firstPoint, firstPolygon);
  EXPECT_TRUE(mesh.setSelection("C1", {0, 1}));
  EXPECT_TRUE(mesh.setSelection("C1", {3}));
  BaseObject* object = mesh.detach();
  auto* tag = static_cast<SelectionTag*>(object->GetTag(Tpolygonselection));
  ASSERT_NE(tag, nullptr);
  EXPECT_EQ(tag->GetBaseSelect()->GetSelected(), (std::set<Int32>{0, 1, 3}));
  BaseObject::Free(object);
}

// A line of one open segment through (0,0,0), (0,10,0), (0,10,10) with t 0, 0.5, 1.
LineObject* bentLine() {
  LineObject* line = LineObject::Alloc(3, 1);
  Vector* points = line->GetPointW();
  points[1] = Vector(0, 10, 0);
  points[2] = Vector(0, 10, 10);
  Float* t = line->GetLineTag()->GetDataAddressW();
  t[1] = 0.5;
  t[2] = 1.0;
  line->GetSegmentTag()->GetDataAddressW()[0] = Segment{3, false};
  return line;
}

TEST(C4dLine, positionsInterpolateBetweenThePointsParameters) {
  LineObject* line = bentLine();
  C4dLine spline(line, Matrix());
  const struct {
    double t;
    mv::Vector3 expected;
  } rows[] = {{-1.0, {0, 0, 0}},
              {0.25, {0, 0, 5}},
              {0.5, {0, 0, 10}},
              {0.75, {0, 5, 10}},
              {2.0, {0, 10, 10}}};
  for (const auto& row : rows) {
    mv::Vector3 position;
    spline.getPosition(row.t, 0, false, position);
    expectNear(position, row.expected);
  }
  mv::Vector3 position{1, 1, 1};
  spline.getPosition(0.5, 1, false, position);
  expectNear(position, {0, 0, 0});
  EXPECT_EQ(spline.getSegmentCount(), 1u);
  EXPECT_EQ(spline.getSegmentPointCount(0), 3u);
  EXPECT_EQ(spline.getSegmentPointCount(1), 0u);
  EXPECT_FALSE(spline.isSegmentClosed(0));
  BaseObject* object = line;
  BaseObject::Free(object);
}

TEST(C4dLine, theMatrixCarriesPointsIntoTheParentsSpace) {
  LineObject* line = bentLine();
  C4dLine own(line, Matrix());
  C4dLine moved(line, MatrixMove(Vector(5, 0, 0)));
  double t = 0.0;
  mv::Vector3 point;
  ASSERT_TRUE(own.getPoint(1, t, point));
  EXPECT_DOUBLE_EQ(t, 0.5);
  expectNear(point, {0, 0, 10});
  ASSERT_TRUE(moved.getPoint(1, t, point));
  expectNear(point, {5, 0, 10});
  EXPECT_FALSE(own.getPoint(3, t, point));
  BaseObject* object = line;
  BaseObject::Free(object);
}

TEST(C4dLine, writingMovesThePointInPlace) {
  LineObject* line = bentLine();
  C4dLine spline(line, Matrix());
  EXPECT_TRUE(spline.setPoint(2, 0.0, {1, 2, 3}));
  EXPECT_EQ(line->GetPointR()[2], Vector(1, 3, 2));
  EXPECT_FALSE(spline.setPoint(3, 0.0, {}));
  EXPECT_FALSE(spline.allocate(1, 1));
  EXPECT_TRUE(spline.finish());
  C4dLine empty;
  EXPECT_FALSE(empty.finish());
  EXPECT_EQ(empty.getPointCount(), 0u);
  BaseObject* object = line;
  BaseObject::Free(object);
}

TEST(C4dObject, raysHitThePolygonsOfTheObject) {
  PolygonObject* wall = PolygonObject::Alloc(4, 1);
  Vector* points = wall->GetPointW();
  points[0] = Vector(-1, -1, 4);
  points[1] = Vector(1, -1, 4);
  points[2] = Vector(1, 1, 4);
  points[3] = Vector(-1, 1, 4);
  wall->GetPolygonW()[0] = CPolygon(0, 1, 2, 3);
  wall->SetMl(MatrixMove(Vector(0, 0, 1)));
  C4dObject node(wall, nullptr);
  // The wall stands at host z 5, library y 5; its distance is in its own units.
  EXPECT_DOUBLE_EQ(node.rayDistance({0, 0, 0}, {0, 1, 0}, false), 5.0);
  EXPECT_DOUBLE_EQ(node.rayDistance({0, 0, 0}, {0, 2, 0}, true), -1.0) << "beyond the length";
  EXPECT_DOUBLE_EQ(node.rayDistance({0, 0, 0}, {1, 0, 0}, false), -1.0);
  ASSERT_NE(node.mesh(), nullptr);
  EXPECT_EQ(node.mesh()->getPointCount(), 4u);
  BaseObject* object = wall;
  BaseObject::Free(object);
}

}  // namespace
