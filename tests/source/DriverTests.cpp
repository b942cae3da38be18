#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/BaseDocument.h"
#include "host/BaseTag.h"
#include "host/DocumentPass.h"
#include "host/PolygonObject.h"
#include "source/InstanceProgress.h"
#include "source/PluginIds.h"
#include "support/ScriptedObject.h"

namespace {

// A one-quad polygon object of that name.
BaseObject* quad(const String& name) {
  PolygonObject* object = PolygonObject::Alloc(4, 1);
  Vector* points = object->GetPointW();
  points[1] = Vector(1, 0, 0);
  points[2] = Vector(1, 1, 0);
  points[3] = Vector(0, 1, 0);
  object->GetPolygonW()[0] = CPolygon(0, 1, 2, 3);
  object->SetName(name);
  return object;
}

std::vector<String> childNames(BaseObject* object) {
  std::vector<String> names;
  for (BaseObject* child = object->GetDown(); child != nullptr; child = child->GetNext()) {
    names.push_back(child->GetName());
  }
  return names;
}

class Driver : public testing::Test {
 protected:
  void SetUp() override {
    ScriptedObject::registerOnce();
    ScriptedObject::script = Script();
    generator = BaseObject::Alloc(ScriptedObject::kId);
    ASSERT_NE(generator, nullptr);
    generator->SetName("Gen");
    document.InsertObject(generator, nullptr, nullptr);
  }

  BaseObject* addChild(BaseObject* child) {
    child->InsertUnderLast(generator);
    return child;
  }

  void separate(bool on) { generator->GetDataInstance()->SetBool(ID_SEPARATE_OBJECTS, on); }

  BaseObject* evaluate() {
    DocumentPass::Run(&document, nullptr);
    return generator->GetCache();
  }

  Script& script = ScriptedObject::script;
  BaseDocument document;
  BaseObject* generator = nullptr;
};

TEST_F(Driver, noChildrenAndNoMeshGiveNoResult) { EXPECT_EQ(evaluate(), nullptr); }

TEST_F(Driver, initLeavesInstancesMerged) {
  EXPECT_FALSE(generator->GetDataInstance()->GetBool(ID_SEPARATE_OBJECTS, true));
}

TEST_F(Driver, aSingleInstanceIsTheResultItself) {
  separate(true);
  addChild(quad("Leaf"));
  script.roles = {mv::RoleNodes};
  script.groups = {groupAt(mv::RoleNodes, {2.0})};
  BaseObject* result = evaluate();
  ASSERT_NE(result, nullptr);
  EXPECT_EQ(result->GetName(), "Leaf.0");
  EXPECT_TRUE(result->IsInstanceOf(Opolygon));
}

TEST_F(Driver, twoInstancesStandUnderANullNamedAfterTheGenerator) {
  separate(true);
  addChild(quad("Leaf"));
  script.roles = {mv::RoleNodes};
  script.groups = {groupAt(mv::RoleNodes, {0.0, 3.0})};
  BaseObject* result = evaluate();
  ASSERT_NE(result, nullptr);
  EXPECT_TRUE(result->IsInstanceOf(Onull));
  EXPECT_EQ(result->GetName(), "Gen");
  EXPECT_EQ(childNames(result), (std::vector<String>{"Leaf.0", "Leaf.1"}));
}

TEST_F(Driver, instancesAreNamedAfterThePlacementIndex) {
  separate(true);
  addChild(quad("Leaf"));
  script.roles = {mv::RoleNodes};
  script.groups = {groupAt(mv::RoleNodes, {0.0, 1.0, 2.0}, {7, 3, 12})};
  EXPECT_EQ(childNames(evaluate()), (std::vector<String>{"Leaf.7", "Leaf.3", "Leaf.12"}));
}

TEST_F(Driver, anInstanceKeepsTheChildsOwnOffset) {
  separate(true);
  BaseObject* leaf = addChild(quad("Leaf"));
  leaf->SetMl(MatrixMove(Vector(0, 5, 0)));
  script.roles = {mv::RoleNodes};
  script.groups = {groupAt(mv::RoleNodes, {2.0})};
  BaseObject* result = evaluate();
  ASSERT_NE(result, nullptr);
  EXPECT_EQ(result->GetMl().off, Vector(2, 5, 0));
}

TEST_F(Driver, eachInstanceCarriesItsPlacementInADataTag) {
  separate(true);
  addChild(quad("Leaf"));
  script.roles = {mv::RoleNodes};
  script.groups = {groupAt(mv::RoleNodes, {0.0, 1.0}, {4, 9})};
  BaseObject* result = evaluate();
  ASSERT_NE(result, nullptr);
  BaseObject* second = result->GetDown()->GetNext();
  BaseTag* tag = second->GetFirstTag();
  ASSERT_NE(tag, nullptr);
  EXPECT_EQ(tag->GetType(), ID_MORVO_TAG);
  EXPECT_EQ(second->GetTag(ID_MORVO_TAG, 1), nullptr) << "one data tag per instance";
  const BaseContainer* data = tag->GetDataInstance();
  EXPECT_DOUBLE_EQ(data->GetReal(mv::IdCarriedGrowth), 0.6);
  EXPECT_EQ(data->GetLong(mv::IdIndex), 9);
  EXPECT_EQ(data->GetLong(mv::IdCount), 2);
  EXPECT_DOUBLE_EQ(data->GetReal(mv::IdCarriedThickness), 1.0);
  EXPECT_DOUBLE_EQ(data->GetReal(mv::IdCarriedDensity), 1.0);
}

TEST_F(Driver, aPlacementWithoutAxesMakesNoInstanceButCountsInTheProgress) {
  separate(true);
  addChild(quad("Leaf"));
  script.roles = {mv::RoleNodes};
  mv::PlacementGroup group = groupAt(mv::RoleNodes, {0.0, 1.0, 2.0});
  group.placements[1].matrix = mv::Matrix4::scaling({0, 0, 0});
  script.groups = {group};
  EXPECT_EQ(childNames(evaluate()), (std::vector<String>{"Leaf.0", "Leaf.2"}));
  ASSERT_NE(InstanceProgress::current, nullptr);
  EXPECT_EQ(InstanceProgress::current->total, 3);
  EXPECT_EQ(InstanceProgress::current->done, 3);
  EXPECT_EQ(InstanceProgress::current->depth, 0);
}

TEST_F(Driver, unusedAndUnplacedChildrenMakeNothing) {
  separate(true);
  addChild(quad("Unused"));
  addChild(quad("Unplaced"));
  addChild(quad("Leaf"));
  script.roles = {mv::RoleUnused, mv::RoleEnd, mv::RoleNodes};
  script.groups = {groupAt(mv::RoleNodes, {0.0, 1.0}), groupAt(mv::RoleEnd, {5.0})};
  script.placedMask = mv::RoleNodes;
  EXPECT_EQ(childNames(evaluate()), (std::vector<String>{"Leaf.0", "Leaf.1"}));
}

TEST_F(Driver, mergedInstancesOfOneSurfaceBecomeOnePolygonObject) {
  addChild(quad("Leaf"));
  script.roles = {mv::RoleNodes};
  script.groups = {groupAt(mv::RoleNodes, {0.0, 10.0, 20.0})};
  BaseObject* result = evaluate();
  ASSERT_NE(result, nullptr);
  ASSERT_TRUE(result->IsInstanceOf(Opolygon));
  auto* merged = static_cast<PolygonObject*>(result);
  EXPECT_EQ(merged->GetPointCount(), 12);
  EXPECT_EQ(merged->GetPolygonCount(), 3);
  EXPECT_EQ(merged->GetPointR()[9], Vector(21, 0, 0)) << "third copy, its second point";
  EXPECT_EQ(merged->GetPolygonR()[2].a, 8);
  EXPECT_EQ(merged->GetTag(ID_MORVO_TAG), nullptr) << "merged geometry carries no data";
}

TEST_F(Driver, theGeneratorsOwnMeshIsTheResultAndTakesItsTags) {
  script.writesQuad = true;
  generator->MakeTag(Tphong);
  BaseObject* result = evaluate();
  ASSERT_NE(result, nullptr);
  ASSERT_TRUE(result->IsInstanceOf(Opolygon));
  EXPECT_EQ(result->GetName(), "Gen");
  EXPECT_EQ(static_cast<PolygonObject*>(result)->GetPolygonCount(), 2) << "two triangles";
  EXPECT_NE(result->GetTag(Tphong), nullptr);
  EXPECT_EQ(result->GetTag(Tphong, 1), nullptr);
}

TEST_F(Driver, aNodeThatClaimsGeometryButWritesNoneLeavesItsProfileUninstanced) {
  separate(true);
  addChild(quad("Profile"));
  addChild(quad("Leaf"));
  script.claimsGeometry = true;
  script.roles = {mv::RoleProfile, mv::RoleNodes};
  script.groups = {groupAt(mv::RoleProfile, {0.0, 1.0}), groupAt(mv::RoleNodes, {4.0})};
  BaseObject* result = evaluate();
  ASSERT_NE(result, nullptr);
  EXPECT_EQ(result->GetName(), "Leaf.0");
}

TEST_F(Driver, anUnchangedDocumentRunsOnlyTheRolesAgain) {
  addChild(quad("Leaf"));
  script.roles = {mv::RoleNodes};
  script.groups = {groupAt(mv::RoleNodes, {0.0, 1.0})};
  BaseObject* first = evaluate();
  BaseObject* second = evaluate();
  EXPECT_EQ(first, second);
  EXPECT_EQ(script.assignCalls, 2);
  EXPECT_EQ(script.evaluateCalls, 1);
}

TEST_F(Driver, aChangedChildOrParameterRebuilds) {
  BaseObject* leaf = addChild(quad("Leaf"));
  script.roles = {mv::RoleNodes};
  script.groups = {groupAt(mv::RoleNodes, {0.0})};
  evaluate();
  leaf->SetMl(MatrixMove(Vector(0, 1, 0)));
  evaluate();
  EXPECT_EQ(script.evaluateCalls, 2);
  generator->GetDataInstance()->SetReal(1500, 3.0);
  generator->SetDirty(DIRTYFLAGS_DATA);
  evaluate();
  EXPECT_EQ(script.evaluateCalls, 3);
}

TEST_F(Driver, aMovedLinkedObjectRebuilds) {
  BaseObject* clip = quad("Clip");
  document.InsertObject(clip, nullptr, nullptr);
  generator->GetDataInstance()->SetLink(ID_CLIP_OBJECT, clip);
  script.writesQuad = true;
  evaluate();
  evaluate();
  EXPECT_EQ(script.evaluateCalls, 1);
  clip->SetMl(MatrixMove(Vector(3, 0, 0)));
  evaluate();
  EXPECT_EQ(script.evaluateCalls, 2);
}

}  // namespace
