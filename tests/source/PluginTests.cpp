#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "core/MathConstants.h"
#include "curves/CurveParam.h"
#include "growth/Branch.h"
#include "host/ActiveDocument.h"
#include "host/BaseDocument.h"
#include "host/BaseTag.h"
#include "host/DescriptionResource.h"
#include "host/DocumentPass.h"
#include "host/ObjectData.h"
#include "host/PluginLoader.h"
#include "host/PluginRegistry.h"
#include "host/PolygonObject.h"
#include "host/SplineObject.h"
#include "source/C4dParameterSet.h"
#include "source/Main.h"
#include "source/PluginIds.h"
#include "source/TropismObject.h"
#include "support/CapturingConsole.h"

namespace {

void* message(intptr_t id) { return reinterpret_cast<void*>(id); }

TEST(PluginEntry, answersItsVersionAndRefusesUnknownActions) {
  EXPECT_EQ(c4d_main(PLUGIN_ACTION_VERSION, nullptr, nullptr, nullptr), 5);
  EXPECT_EQ(c4d_main(5, nullptr, nullptr, nullptr), -1);
  EXPECT_EQ(c4d_main(99, nullptr, nullptr, nullptr), -1);
}

TEST(PluginEntry, aSecondContactChangesNothing) {
  HostFunctionTable table;
  String elsewhere = "/nowhere/";
  EXPECT_EQ(c4d_main(PLUGIN_ACTION_CONTACT, &table, nullptr, &elsewhere), 1);
  EXPECT_NE(pluginPath(), elsewhere);
  // Only the end that brings the count back to one contact keeps the plug-in alive.
  EXPECT_EQ(c4d_main(PLUGIN_ACTION_END, nullptr, nullptr, nullptr), 1);
  EXPECT_FALSE(pluginPath().empty());
}

TEST(PluginEntry, messagesAnswerAsTheirTableSays) {
  Int32 priority = 0;
  EXPECT_EQ(c4d_main(PLUGIN_ACTION_MESSAGE, message(C4DMSG_PRIORITY), &priority, nullptr), 1);
  EXPECT_EQ(priority, 110);
  EXPECT_EQ(c4d_main(PLUGIN_ACTION_MESSAGE, message(C4DPL_ENDACTIVITY), nullptr, nullptr), 1);
  EXPECT_EQ(c4d_main(PLUGIN_ACTION_MESSAGE, message(424242), nullptr, nullptr), -1);
}

TEST(PluginEntry, aCompanionIsAnsweredAndRemembered) {
  CapturingConsole console;
  EXPECT_TRUE(PluginMessage(1011616, nullptr));
  EXPECT_EQ(console.events, (std::vector<Int32>{1011618}));
  EXPECT_TRUE(companionPresent());
}

TEST(PluginEntry, everyClassIsRegisteredUnderItsIdWithItsFlags) {
  const struct {
    Int32 id;
    Int32 info;
    const char* description;
    const char* name;
  } rows[] = {
      {ID_MORVO_TAG, TAG_VISIBLE | TAG_HIERARCHICAL | PLUGINFLAG_HIDE, "Tmorvodata", "Morvo Data"},
      {ID_BRANCH_OBJECT, OBJECT_GENERATOR | OBJECT_INPUT, "Obranch", "#$09Branch"},
      {ID_PHYLLOTAXIS_OBJECT, OBJECT_GENERATOR | OBJECT_INPUT, "Ophyllotaxis", "#$10Phyllotaxis"},
      {ID_VARIATION_OBJECT, OBJECT_GENERATOR | OBJECT_INPUT, "Ovariation", "#$12Variation"},
      {ID_HYDRA_OBJECT, OBJECT_GENERATOR | OBJECT_INPUT, "Ohydra", "#$11Hydra"},
      {ID_CURVATURE_SPLINE, OBJECT_ISSPLINE, "Ocurvature", "#$13Curvature Spline"},
      {ID_TROPISM_OBJECT, OBJECT_MODIFIER, "Otropism", "#$15Tropism"},
      {ID_DEVIATION_OBJECT, OBJECT_MODIFIER, "Odeviation", "#$16Deviation"},
  };
  for (const auto& row : rows) {
    const PluginEntry* entry = PluginRegistry::Find(row.id);
    ASSERT_NE(entry, nullptr) << row.description;
    EXPECT_EQ(entry->info, row.info) << row.description;
    EXPECT_EQ(entry->description, row.description);
    EXPECT_EQ(entry->name, row.name);
    EXPECT_NE(PluginRegistry::FindDescription(row.id), nullptr) << row.description;
  }
  EXPECT_NE(PluginRegistry::FindCustomDataType(ID_CURVE_DATA_TYPE), nullptr);
}

TEST(PluginEntry, descriptionsNameTheParametersOfTheTables) {
  const struct {
    Int32 id;
    const char* name;
    Int32 parameter;
  } rows[] = {
      {ID_BRANCH_OBJECT, "nodeArrangement", 1349},   {ID_BRANCH_OBJECT, "thickness", 1104},
      {ID_PHYLLOTAXIS_OBJECT, "divergence", 1506},   {ID_HYDRA_OBJECT, "hydraSweep", 1603},
      {ID_VARIATION_OBJECT, "variationSeed", 1001},  {ID_TROPISM_OBJECT, "tropismTarget", 7002},
      {ID_DEVIATION_OBJECT, "deviationAngle", 7001}, {ID_CURVATURE_SPLINE, "curv_tran_z", 1207},
      {ID_MORVO_TAG, "carriedDensity", 6004}};
  for (const auto& row : rows) {
    const DescriptionResource* description = PluginRegistry::FindDescription(row.id);
    ASSERT_NE(description, nullptr);
    const DescriptionResource::Parameter* parameter = description->FindByName(row.name);
    ASSERT_NE(parameter, nullptr) << row.name;
    EXPECT_EQ(parameter->id, row.parameter);
  }
}

TEST(ObjectPlugins, initWritesTheDefaultsOfEachClass) {
  BaseObject* branch = BaseObject::Alloc(ID_BRANCH_OBJECT);
  BaseObject* variation = BaseObject::Alloc(ID_VARIATION_OBJECT);
  BaseObject* curvature = BaseObject::Alloc(ID_CURVATURE_SPLINE);
  EXPECT_EQ(branch->GetDataInstance()->GetLong(mv::Branch::nodeArrangement), 1);
  EXPECT_DOUBLE_EQ(branch->GetDataInstance()->GetReal(mv::Branch::nodeNumber), 10.0);
  EXPECT_FALSE(branch->GetDataInstance()->GetBool(ID_SEPARATE_OBJECTS, true));
  EXPECT_TRUE(variation->GetDataInstance()->GetBool(ID_SEPARATE_OBJECTS, false));
  EXPECT_EQ(curvature->GetDataInstance()->GetLong(SPLINEOBJECT_INTERPOLATION), 3);
  EXPECT_EQ(curvature->GetDataInstance()->GetLong(SPLINEOBJECT_SUB), 8);
  EXPECT_DOUBLE_EQ(curvature->GetDataInstance()->GetReal(SPLINEOBJECT_ANGLE), 5.0 * mt::kPi / 180);
  for (BaseObject* object : {branch, variation, curvature}) BaseObject::Free(object);
}

// Whether the control id of object is enabled after writing value under controlling.
bool enabledWith(BaseObject* object, Int32 controlling, const GeData& value, Int32 id) {
  object->GetDataInstance()->SetData(controlling, value);
  return object->GetEnabling(DescID(id), GeData(), 0, nullptr);
}

TEST(ObjectPlugins, controlsAreGreyedOutByTheirSwitches) {
  const struct {
    Int32 type, controlling;
    GeData value;
    Int32 id;
    bool enabled;
  } rows[] = {
      {ID_BRANCH_OBJECT, 1311, GeData(Int32(1)), 1308, false},
      {ID_BRANCH_OBJECT, 1311, GeData(Int32(0)), 1308, true},
      {ID_BRANCH_OBJECT, 1323, GeData(false), 1303, false},
      {ID_BRANCH_OBJECT, 1330, GeData(true), 1310, true},
      {ID_PHYLLOTAXIS_OBJECT, 1401, GeData(Int32(0)), 1406, false},
      {ID_PHYLLOTAXIS_OBJECT, 1401, GeData(Int32(1)), 1407, true},
      {ID_PHYLLOTAXIS_OBJECT, 1507, GeData(true), 1508, false},
      {ID_HYDRA_OBJECT, 1323, GeData(false), 1303, false},
      {ID_VARIATION_OBJECT, 1000, GeData(Int32(2)), 1001, true},
      {ID_VARIATION_OBJECT, 1000, GeData(Int32(2)), 1002, false},
      {ID_VARIATION_OBJECT, 1000, GeData(Int32(3)), 1002, true},
      {ID_TROPISM_OBJECT, 1101, GeData(Int32(1)), 7000, false},
      {ID_TROPISM_OBJECT, 1101, GeData(Int32(2)), 7000, true},
      {ID_CURVATURE_SPLINE, 1001, GeData(Int32(2)), 1003, true},
      {ID_CURVATURE_SPLINE, 1001, GeData(Int32(3)), 1003, false},
      {ID_CURVATURE_SPLINE, 1001, GeData(Int32(3)), 1004, true},
      {ID_CURVATURE_SPLINE, 1001, GeData(Int32(3)), 1500, true},
  };
  for (const auto& row : rows) {
    BaseObject* object = BaseObject::Alloc(row.type);
    EXPECT_EQ(enabledWith(object, row.controlling, row.value, row.id), row.enabled)
        << row.type << " control " << row.id;
    BaseObject::Free(object);
  }
}

double constantOf(BaseObject* object, Int32 id) {
  mv::CurveParam* curve = C4dParameterSet::curveIn(object->GetDataInstance(), id);
  return curve != nullptr ? curve->evaluate(0.5) : -1.0;
}

TEST(ObjectPlugins, theArrangementPresetWritesItsCurvesAndHandEditsDropIt) {
  BaseDocument document;
  BaseObject* branch = BaseObject::Alloc(ID_BRANCH_OBJECT);
  document.InsertObject(branch, nullptr, nullptr);
  branch->SetParameter(DescID(mv::Branch::nodeArrangement), GeData(Int32(6)), 0);
  EXPECT_EQ(branch->GetDataInstance()->GetLong(mv::Branch::nodeArrangement), 6);
  EXPECT_NEAR(constantOf(branch, mv::Branch::nodeFlap), mt::kPi / 2, 1e-12);
  EXPECT_NEAR(constantOf(branch, mv::Branch::nodeScrew), mt::kPi, 1e-12);
  EXPECT_EQ(branch->GetDataInstance()->GetLong(mv::Branch::nodeMode), 1);
  branch->SetParameter(DescID(mv::Branch::nodeWhorl), GeData(Int32(3)), 0);
  EXPECT_EQ(branch->GetDataInstance()->GetLong(mv::Branch::nodeArrangement), 0);
  EXPECT_EQ(branch->GetDataInstance()->GetLong(mv::Branch::nodeWhorl), 3);
  branch->SetParameter(DescID(mv::Branch::nodeArrangement), GeData(Int32(9)), 0);
  EXPECT_EQ(branch->GetDataInstance()->GetLong(mv::Branch::nodeMode), 1) << "9 writes nothing";
}

TEST(ObjectPlugins, theHydraHandleSetsTheRadiusAndStopsAtTheCentre) {
  BaseDocument document;
  BaseObject* hydra = BaseObject::Alloc(ID_HYDRA_OBJECT);
  document.InsertObject(hydra, nullptr, nullptr);
  ObjectData* data = hydra->GetObjectData();
  ASSERT_EQ(data->GetHandleCount(hydra), 1);
  HandleInfo info;
  data->GetHandle(hydra, 0, info);
  EXPECT_EQ(info.position, Vector(0, 50, 0)) << "half the size of 100";
  data->SetHandle(hydra, 0, Vector(3, 30, 4), info);
  EXPECT_DOUBLE_EQ(hydra->GetDataInstance()->GetReal(1501), 30.0);
  data->SetHandle(hydra, 0, Vector(0, -20, 0), info);
  EXPECT_DOUBLE_EQ(hydra->GetDataInstance()->GetReal(1501), 0.0);
}

TEST(ObjectPlugins, aHydraFromTheMenuWrapsTheActiveObject) {
  BaseDocument document;
  BaseObject* selected = BaseObject::Alloc(Onull);
  selected->SetName("Selected");
  document.InsertObject(selected, nullptr, nullptr);
  document.SetActiveObject(selected);
  SetActiveDocument(&document);
  BaseObject* hydra = BaseObject::Alloc(ID_HYDRA_OBJECT);
  EXPECT_TRUE(hydra->Message(MSG_MENUPREPARE));
  SetActiveDocument(nullptr);
  EXPECT_EQ(hydra->GetDown(), selected);
  EXPECT_EQ(document.GetFirstObject(), nullptr);
  BaseObject::Free(hydra);
}

// Runs CheckDirty of a Tropism and tells whether it marked itself.
bool tropismMarked(BaseObject* tropism, BaseDocument& document) {
  const UInt32 before = tropism->GetDirty(DIRTYFLAGS_DATA);
  tropism->GetObjectData()->CheckDirty(tropism, &document);
  return tropism->GetDirty(DIRTYFLAGS_DATA) != before;
}

TEST(ObjectPlugins, aTropismInAxisModeIgnoresAPureMoveOfItsParent) {
  BaseDocument document;
  BaseObject* path = BaseObject::Alloc(Onull);
  document.InsertObject(path, nullptr, nullptr);
  BaseObject* tropism = BaseObject::Alloc(ID_TROPISM_OBJECT);
  tropism->InsertUnderLast(path);
  tropismMarked(tropism, document);
  path->SetMl(MatrixMove(Vector(5, 0, 0)));
  EXPECT_FALSE(tropismMarked(tropism, document));
  path->SetMl(MatrixRotZ(0.3));
  EXPECT_TRUE(tropismMarked(tropism, document));
  tropism->GetDataInstance()->SetLong(1101, 1);
  path->SetMl(MatrixRotZ(0.3) * MatrixMove(Vector(1, 0, 0)));
  EXPECT_TRUE(tropismMarked(tropism, document)) << "target modes compare the whole matrix";
}

TEST(ObjectPlugins, aTropismBesideOtherObjectsFollowsOnlyItsTarget) {
  BaseDocument document;
  BaseObject* path = BaseObject::Alloc(Onull);
  BaseObject* target = BaseObject::Alloc(Onull);
  document.InsertObject(path, nullptr, nullptr);
  document.InsertObject(target, nullptr, nullptr);
  BaseObject* tropism = BaseObject::Alloc(ID_TROPISM_OBJECT);
  tropism->InsertUnderLast(path);
  BaseObject::Alloc(Onull)->InsertUnderLast(path);
  tropism->GetDataInstance()->SetLink(7002, target);
  tropismMarked(tropism, document);
  path->SetMl(MatrixRotZ(0.3));
  EXPECT_FALSE(tropismMarked(tropism, document));
  target->SetMl(MatrixMove(Vector(0, 9, 0)));
  EXPECT_TRUE(tropismMarked(tropism, document));
  EXPECT_FALSE(tropismMarked(tropism, document));
}

TEST(ObjectPlugins, aDeviationFollowsTheObjectTwoLevelsUp) {
  BaseDocument document;
  BaseObject* owner = BaseObject::Alloc(Onull);
  document.InsertObject(owner, nullptr, nullptr);
  BaseObject* path = BaseObject::Alloc(Onull);
  path->InsertUnderLast(owner);
  BaseObject* deviation = BaseObject::Alloc(ID_DEVIATION_OBJECT);
  deviation->InsertUnderLast(path);
  DocumentPass::Run(&document, nullptr);
  const UInt32 before = deviation->GetDirty(DIRTYFLAGS_DATA);
  owner->GetDataInstance()->SetReal(1301, 4.0);
  owner->SetDirty(DIRTYFLAGS_DATA);
  deviation->GetObjectData()->CheckDirty(deviation, &document);
  EXPECT_NE(deviation->GetDirty(DIRTYFLAGS_DATA), before);
}

}  // namespace

namespace {

TEST(ObjectPlugins, aBranchFromTheMenuComesWithItsStarterPlant) {
  BaseDocument document;
  BaseObject* branch = BaseObject::Alloc(ID_BRANCH_OBJECT);
  ASSERT_TRUE(branch->Message(MSG_MENUPREPARE));
  document.InsertObject(branch, nullptr, nullptr);
  BaseObject* profile = branch->GetDown();
  ASSERT_NE(profile, nullptr);
  EXPECT_EQ(profile->GetType(), Osplinecircle);
  EXPECT_DOUBLE_EQ(profile->GetDataInstance()->GetReal(2012), 20.0);
  BaseObject* path = profile->GetNext();
  ASSERT_NE(path, nullptr);
  ASSERT_EQ(path->GetType(), Ospline);
  EXPECT_EQ(static_cast<SplineObject*>(path)->GetPointCount(), 3);
  EXPECT_EQ(static_cast<SplineObject*>(path)->GetPointR()[2], Vector(0, 400, 0));
  BaseTag* phong = branch->GetTag(Tphong);
  ASSERT_NE(phong, nullptr);
  EXPECT_NEAR(phong->GetDataInstance()->GetReal(1002), 80.0 * mt::kPi / 180, 1e-12);
  DocumentPass::Run(&document, nullptr);
  BaseObject* tube = branch->GetCache();
  ASSERT_NE(tube, nullptr);
  ASSERT_TRUE(tube->IsInstanceOf(Opolygon));
  EXPECT_GT(static_cast<PolygonObject*>(tube)->GetPolygonCount(), 0);
  EXPECT_NE(tube->GetTag(Tphong), nullptr) << "the object's Phong tag stands on its tube";
}

TEST(ObjectPlugins, aPhyllotaxisFromTheMenuComesWithAHalfCircleProfile) {
  BaseObject* phyllotaxis = BaseObject::Alloc(ID_PHYLLOTAXIS_OBJECT);
  ASSERT_TRUE(phyllotaxis->Message(MSG_MENUPREPARE));
  BaseObject* arc = phyllotaxis->GetDown();
  ASSERT_NE(arc, nullptr);
  EXPECT_EQ(arc->GetType(), Osplinearc);
  EXPECT_DOUBLE_EQ(arc->GetDataInstance()->GetReal(2001), 100.0);
  EXPECT_DOUBLE_EQ(arc->GetDataInstance()->GetReal(2005), -mt::kPi / 2);
  EXPECT_DOUBLE_EQ(arc->GetDataInstance()->GetReal(2006), mt::kPi / 2);
  BaseObject::Free(phyllotaxis);
}

TEST(ObjectPlugins, aHydraFromTheMenuOfAnEmptyDocumentHoldsASphere) {
  BaseDocument document;
  SetActiveDocument(&document);
  BaseObject* hydra = BaseObject::Alloc(ID_HYDRA_OBJECT);
  EXPECT_TRUE(hydra->Message(MSG_MENUPREPARE));
  SetActiveDocument(nullptr);
  ASSERT_NE(hydra->GetDown(), nullptr);
  EXPECT_EQ(hydra->GetDown()->GetType(), Osphere);
  EXPECT_NE(hydra->GetDown()->GetTag(Tphong), nullptr);
  BaseObject* alone = BaseObject::Alloc(ID_HYDRA_OBJECT);
  EXPECT_TRUE(alone->Message(MSG_MENUPREPARE));
  EXPECT_EQ(alone->GetDown(), nullptr) << "without a document nothing happens";
  BaseObject::Free(hydra);
  BaseObject::Free(alone);
}

}  // namespace
