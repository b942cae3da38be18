#include "host/DocumentPass.h"

#include <gtest/gtest.h>

#include "TestPlugins.h"
#include "host/BaseDocument.h"
#include "host/BaseThread.h"
#include "host/ModelingCommand.h"
#include "host/PolygonObject.h"

namespace {

BaseObject* make(Int32 type, const String& name, BaseObject* parent, BaseDocument* doc = nullptr) {
  BaseObject* op = BaseObject::Alloc(type);
  op->SetName(name);
  if (parent) op->InsertUnderLast(parent);
  if (doc) doc->InsertObject(op, nullptr, nullptr);
  return op;
}

PolygonObject* triangle(const String& name, BaseObject* parent) {
  PolygonObject* poly = PolygonObject::Alloc(3, 1);
  poly->SetName(name);
  poly->GetPointW()[1] = Vector(1, 0, 0);
  poly->GetPointW()[2] = Vector(0, 1, 0);
  poly->GetPolygonW()[0] = CPolygon(0, 1, 2);
  if (parent) poly->InsertUnderLast(parent);
  return poly;
}

SplineObject* linearSpline(std::vector<Vector> points, BaseObject* parent) {
  SplineObject* spline = SplineObject::Alloc(static_cast<Int32>(points.size()), SPLINETYPE_LINEAR);
  spline->GetDataInstance()->SetLong(SPLINEOBJECT_INTERPOLATION, 0);
  for (size_t i = 0; i < points.size(); ++i) spline->GetPointW()[i] = points[i];
  if (parent) spline->InsertUnderLast(parent);
  return spline;
}

class DocumentPassTest : public ::testing::Test {
 protected:
  void SetUp() override {
    registerTestPlugins();
    counters() = PluginCounters();
  }
  int rebuildsOfPass() {
    int before = counters().rebuilds;
    doc.ExecutePasses(nullptr, true, true, true, 0);
    return counters().rebuilds - before;
  }
  BaseDocument doc;
};

TEST_F(DocumentPassTest, UnchangedSecondPassKeepsTheCache) {
  BaseObject* gen = make(kCloneGeneratorId, "gen", nullptr, &doc);
  triangle("leaf", gen);
  EXPECT_EQ(rebuildsOfPass(), 1);
  BaseObject* cache = gen->GetCache();
  ASSERT_NE(cache, nullptr);
  int calls = counters().generatorCalls;
  EXPECT_EQ(rebuildsOfPass(), 0);
  EXPECT_EQ(counters().generatorCalls, calls + 1);  // asked, answered from the cache test
  EXPECT_EQ(gen->GetCache(), cache);
}

TEST_F(DocumentPassTest, ChangesOfChildParameterOrGrandchildRebuild) {
  BaseObject* gen = make(kCloneGeneratorId, "gen", nullptr, &doc);
  BaseObject* child = make(Onull, "child", gen);
  BaseObject* grandchild = make(Onull, "grandchild", child);
  rebuildsOfPass();
  child->SetMl(MatrixMove(Vector(0, 1, 0)));
  EXPECT_EQ(rebuildsOfPass(), 1);
  gen->SetParameter(DescID(kCopies), GeData(Int32(3)), 0);
  EXPECT_EQ(rebuildsOfPass(), 1);
  grandchild->SetName("renamed");
  EXPECT_EQ(rebuildsOfPass(), 1);
  grandchild->MakeTag(Tphong);
  EXPECT_EQ(rebuildsOfPass(), 1);
  make(Onull, "added", gen);
  EXPECT_EQ(rebuildsOfPass(), 1);
  EXPECT_EQ(rebuildsOfPass(), 0);
}

TEST_F(DocumentPassTest, ChildrenOfAGeneratorAreConsumedInputs) {
  BaseObject* gen = make(kCloneGeneratorId, "gen", nullptr, &doc);
  BaseObject* child = make(Onull, "child", gen);
  rebuildsOfPass();
  EXPECT_TRUE(child->GetBit(BIT_CONTROLOBJECT));
  EXPECT_EQ(gen->GetCache()->GetDown()->GetName(), "child.0");
}

TEST_F(DocumentPassTest, ClonesReachTheirGeneratorThroughCacheParent) {
  BaseObject* outer = make(kCloneGeneratorId, "outer", nullptr, &doc);
  BaseObject* inner = make(kCloneGeneratorId, "inner", outer);
  triangle("leaf", inner);
  rebuildsOfPass();
  BaseObject* result = outer->GetCache();
  BaseObject* innerClone = result->GetDown();
  ASSERT_NE(innerClone, nullptr);
  EXPECT_EQ(result->GetCacheParent(), outer);
  EXPECT_EQ(innerClone->GetCacheParent(), outer);
  ASSERT_NE(innerClone->GetCache(), nullptr);  // the clone was evaluated by itself
  EXPECT_EQ(innerClone->GetCache()->GetDown()->GetCacheParent(), innerClone);
  EXPECT_EQ(counters().rebuilds, 3);  // outer and the two clones of inner
}

TEST_F(DocumentPassTest, CacheObjectsTakeTheGeneratorsPlace) {
  BaseObject* gen = make(kCloneGeneratorId, "gen", nullptr, &doc);
  gen->SetMl(MatrixMove(Vector(0, 0, 5)));
  triangle("leaf", gen);
  rebuildsOfPass();
  BaseObject* second = gen->GetCache()->GetDown()->GetNext();
  EXPECT_EQ(second->GetMg().off, Vector(10, 0, 5));
}

TEST_F(DocumentPassTest, CurrentStateOfNestedGeneratorsIsPolygonsOnly) {
  BaseObject* outer = make(kCloneGeneratorId, "outer", nullptr, &doc);
  BaseObject* inner = make(kCloneGeneratorId, "inner", outer);
  inner->GetDataInstance()->SetLong(kCopies, 3);
  triangle("leaf", inner);
  ModelingCommandData cd;
  cd.doc = &doc;
  cd.op = outer;
  ASSERT_TRUE(SendModelingCommand(MCOMMAND_CURRENTSTATETOOBJECT, cd));
  auto* state = static_cast<BaseObject*>(cd.result->GetIndex(0));
  ASSERT_NE(state, nullptr);
  EXPECT_EQ(state->GetName(), "outer");
  int polygons = 0;
  std::vector<Vector> origins;
  for (BaseObject* a = state->GetDown(); a; a = a->GetNext()) {
    EXPECT_EQ(a->GetName(), a == state->GetDown() ? "inner.0" : "inner.1");
    for (BaseObject* b = a->GetDown(); b; b = b->GetNext()) {
      ASSERT_TRUE(b->IsInstanceOf(Opolygon));
      EXPECT_EQ(b->GetCache(), nullptr);
      polygons += static_cast<PolygonObject*>(b)->GetPolygonCount();
      origins.push_back(b->GetMg().off);
    }
  }
  EXPECT_EQ(polygons, 6);
  EXPECT_EQ(origins.back(), Vector(30, 0, 0));  // second copy of inner, third leaf
  BaseObject::Free(state);
}

TEST_F(DocumentPassTest, CurrentStateOfADetachedCloneEvaluatesIt) {
  BaseObject* gen = make(kCloneGeneratorId, "gen", nullptr);
  triangle("leaf", gen);
  ModelingCommandData cd;
  cd.op = gen;
  ASSERT_TRUE(SendModelingCommand(MCOMMAND_CURRENTSTATETOOBJECT, cd));
  auto* state = static_cast<BaseObject*>(cd.result->GetIndex(0));
  EXPECT_TRUE(state->GetDown()->IsInstanceOf(Opolygon));
  BaseObject::Free(state);
  BaseObject::Free(gen);
  EXPECT_FALSE(SendModelingCommand(999, cd));
}

TEST_F(DocumentPassTest, ModifierUnderASplineShiftsTheLineItsParentSees) {
  BaseObject* gen = make(kCloneGeneratorId, "gen", nullptr, &doc);
  SplineObject* path = linearSpline({{0, 0, 0}, {0, 0, 4}}, gen);
  path->SetMl(MatrixMove(Vector(1, 0, 0)));
  BaseObject* shift = make(kShiftModifierId, "shift", path);
  rebuildsOfPass();
  ASSERT_EQ(counters().lastLine.size(), 2u);
  EXPECT_EQ(counters().lastLine[1], Vector(1, 10, 4));
  EXPECT_EQ(rebuildsOfPass(), 0);
  shift->SetParameter(DescID(kShift), GeData(Vector(0, -2, 0)), 0);
  EXPECT_EQ(rebuildsOfPass(), 1);
  EXPECT_EQ(counters().lastLine[0], Vector(1, -2, 0));
}

TEST_F(DocumentPassTest, SplinePluginContourIsBuiltOncePerChange) {
  BaseObject* gen = make(kCloneGeneratorId, "gen", nullptr, &doc);
  BaseObject* straight = make(kStraightSplineId, "straight", gen);
  int before = StraightSpline::contours;
  rebuildsOfPass();
  EXPECT_EQ(counters().lastLine.size(), 3u);
  rebuildsOfPass();
  EXPECT_EQ(StraightSpline::contours, before + 1);
  straight->SetParameter(DescID(kPointCount), GeData(Int32(5)), 0);
  EXPECT_EQ(rebuildsOfPass(), 1);
  EXPECT_EQ(counters().lastLine.size(), 5u);
  EXPECT_EQ(counters().lastLine[4], Vector(4, 0, 0));
}

TEST_F(DocumentPassTest, ExpressionTagsRunOncePerPass) {
  BaseObject* op = make(Onull, "op", nullptr, &doc);
  BaseTag* tag = op->MakeTag(kCountingTagId);
  for (int i = 0; i < 3; ++i) doc.ExecutePasses(nullptr, true, true, true, 0);
  EXPECT_EQ(tag->GetDataInstance()->GetLong(1), 3);
}

TEST_F(DocumentPassTest, BreakStopsThePass) {
  make(kCloneGeneratorId, "gen", nullptr, &doc);
  BaseThread thread;
  thread.RequestBreak();
  EXPECT_FALSE(doc.ExecutePasses(&thread, true, true, true, 0));
  EXPECT_EQ(counters().generatorCalls, 0);
}

}  // namespace
