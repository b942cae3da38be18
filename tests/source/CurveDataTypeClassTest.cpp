#include "source/CurveDataTypeClass.h"

#include <gtest/gtest.h>

#include "host/BaseContainer.h"
#include "host/CustomGuiLibrary.h"
#include "host/Description.h"
#include "host/GeData.h"
#include "host/HostIds.h"
#include "host/HyperFile.h"
#include "host/PluginRegistry.h"
#include "source/CurveComparison.h"
#include "source/CurveGuiData.h"
#include "source/CurveUnit.h"
#include "source/iCurveGui.h"
#include "support/CapturingMessageHandler.h"

using mv::CurveParam;
using mv::CurvePoint;

namespace {

struct Data {
  CurveDataTypeClass type;
  CustomDataType* data = type.AllocData();
  ~Data() { type.FreeData(data); }
  CurveParam& curve() { return *static_cast<CurveDataType*>(data); }
};

DescID sub(Int32 number) { return DescID(DescLevel(number)); }

}  // namespace

TEST(CurveDataTypeClass, allocatesADefaultCurveAndFreesNull) {
  Data d;
  ASSERT_NE(d.data, nullptr);
  const CurveParam fresh;
  EXPECT_EQ(CurveComparison::compare(&d.curve(), &fresh), 1);  // its own expression tree
  EXPECT_EQ(d.curve().getPointCount(), 2);
  d.type.FreeData(nullptr);
}

TEST(CurveDataTypeClass, copySharesTheExpressionSoTheCopyComparesEqual) {
  Data a, b;
  a.curve().addPoint(0.5, 0.7, mv::PointSmooth);
  a.curve().setExpression("u*x");
  EXPECT_TRUE(a.type.CopyData(a.data, b.data, nullptr));
  EXPECT_EQ(a.type.Compare(a.data, b.data), 0);
  EXPECT_FALSE(a.type.CopyData(nullptr, b.data, nullptr));
  EXPECT_FALSE(a.type.CopyData(a.data, nullptr, nullptr));
  EXPECT_EQ(a.type.Compare(nullptr, b.data), 0);
}

TEST(CurveDataTypeClass, writesAndReadsThroughTheHostFile) {
  Data a, b;
  a.curve().addPoint(0.25, 0.5, mv::PointSmooth);
  a.curve().setFixedLimits(3);
  HyperFile file;
  ASSERT_TRUE(a.type.WriteData(a.data, &file));
  EXPECT_EQ(file.GetValues().size(), 1u + 3 * 8 + 4);
  HyperFile readable;
  readable.SetValues(file.GetValues());
  ASSERT_TRUE(b.type.ReadData(b.data, &readable, 3));
  EXPECT_EQ(b.curve().getPointCount(), 3);
  EXPECT_EQ(b.curve().findPoint(3)->y, 0.5);
  EXPECT_EQ(b.curve().fixedLimits(), 3);
  EXPECT_FALSE(a.type.WriteData(nullptr, &file));
  EXPECT_FALSE(a.type.WriteData(a.data, nullptr));
  EXPECT_FALSE(a.type.ReadData(nullptr, &readable, 3));
}

TEST(CurveDataTypeClass, unknownLevelReportsKeepsTheCurveAndSucceeds) {
  CapturingMessageHandler messages;
  Data d;
  d.curve().setMaximum(4.0);
  HyperFile file;
  file.WriteInt32(2);
  EXPECT_TRUE(d.type.ReadData(d.data, &file, 4));
  EXPECT_EQ(d.curve().maximum(), 4.0);
  EXPECT_EQ(messages.errors, std::vector<std::string>{"Invalid Instance Data Version"});
}

TEST(CurveDataTypeClass, propertiesAndDefaults) {
  CurveDataTypeClass type;
  EXPECT_EQ(type.GetId(), 1010405);
  EXPECT_STREQ(type.GetResourceSym(), "CURVE");
  const CustomProperty* properties = type.GetProperties();
  EXPECT_EQ(properties[0].type, 2);
  EXPECT_EQ(properties[0].id, 1000);
  EXPECT_STREQ(properties[0].ident, "UNIT");
  EXPECT_EQ(properties[1].type, 1);
  EXPECT_EQ(properties[1].id, 1001);
  EXPECT_STREQ(properties[1].ident, "FIXEDLIMITS");
  EXPECT_EQ(properties[2].type, 0);
  EXPECT_EQ(properties[2].ident, nullptr);
  BaseContainer settings;
  type.GetDefaultProperties(settings);
  EXPECT_EQ(settings.GetLong(21), 1010406);
  EXPECT_EQ(settings.GetLong(10), 1);
  EXPECT_EQ(settings.GetLong(1000, -1), 0);
  EXPECT_FALSE(settings.GetBool(1001, true));
}

TEST(CurveDataTypeClass, subParametersThroughTheHostsValues) {
  Data d;
  d.curve().addPoint(0.5, 0.25, mv::PointCorner);  // id 3
  GeData value;
  DESCFLAGS_GET getFlags = 0;
  EXPECT_TRUE(d.type.GetParameter(d.data, sub(1231), value, getFlags));
  EXPECT_EQ(value.GetType(), DA_REAL);
  EXPECT_EQ(value.GetFloat(), 0.25);
  EXPECT_EQ(getFlags, DESCFLAGS_GET_PARAM_GET);
  getFlags = 0;
  EXPECT_TRUE(d.type.GetParameter(d.data, sub(1232), value, getFlags));
  EXPECT_EQ(value.GetType(), DA_LONG);
  EXPECT_TRUE(d.type.GetParameter(d.data, sub(1000), value, getFlags));
  EXPECT_EQ(value.GetString(), "id(x)");
  getFlags = 0;
  EXPECT_TRUE(d.type.GetParameter(d.data, sub(1299), value, getFlags));
  EXPECT_EQ(getFlags, 0);

  DESCFLAGS_SET setFlags = 0;
  EXPECT_TRUE(d.type.SetDParameter(d.data, sub(1232), GeData(7), setFlags));
  EXPECT_EQ(d.curve().getPointType(3), mv::PointFree);
  EXPECT_EQ(setFlags, DESCFLAGS_SET_PARAM_SET);
  EXPECT_TRUE(d.type.SetDParameter(d.data, sub(1002), GeData(Float(3.5)), setFlags));
  EXPECT_EQ(d.curve().maximum(), 3.5);
  EXPECT_TRUE(d.type.SetDParameter(d.data, sub(1000), GeData(String("u")), setFlags));
  EXPECT_EQ(d.curve().evaluate(0.75), 0.75);
}

// The test program loads the plug-in, whose start registers the curve type with its resources.
TEST(CurveDataTypeClass, pluginStartRegistersTypeEditorAndLibraryOnce) {
  Data d;
  EXPECT_NE(dynamic_cast<CurveDataTypeClass*>(PluginRegistry::FindCustomDataType(CURVE_TYPE_ID)),
            nullptr);
  const PluginEntry* type = PluginRegistry::Find(CURVE_TYPE_ID);
  ASSERT_NE(type, nullptr);
  EXPECT_EQ(type->kind, PluginKind::CustomDataType);
  EXPECT_EQ(type->name, "Curve");
  EXPECT_EQ(type->info, 7);
  EXPECT_EQ(type->diskLevel, 3);
  const PluginEntry* gui = PluginRegistry::Find(CURVE_GUI_ID);
  ASSERT_NE(gui, nullptr);
  EXPECT_EQ(gui->kind, PluginKind::CustomGui);
  EXPECT_EQ(gui->name, "CurveGuiData");
  EXPECT_EQ(gui->info, 1);
  // The editor's library reaches the panel behind a dialog handle.
  const CustomGuiLibrary* library = CheckLib(CURVE_GUI_ID, 1000);
  ASSERT_NE(library, nullptr);
  EXPECT_EQ(CheckLib(CURVE_GUI_ID, 1001), nullptr);
  BaseContainer settings;
  CDialog* dialog = gui->gui->Alloc(settings);
  ASSERT_NE(dialog, nullptr);
  CurveDataType curve(CurveParam(0.0, 2.0, 1.0, 0.5, "u"));
  EXPECT_TRUE(library->setData(dialog, GeData(CURVE_TYPE_ID, curve), 0));
  Int32 state = 5;
  const GeData back = library->getData(dialog, &state);
  EXPECT_EQ(state, 0);
  ASSERT_NE(back.GetCustomDataType(CURVE_TYPE_ID), nullptr);
  EXPECT_EQ(d.type.Compare(back.GetCustomDataType(CURVE_TYPE_ID), &curve), 0);
  EXPECT_FALSE(library->setData(nullptr, GeData(CURVE_TYPE_ID, curve), 0));
  gui->gui->Free(dialog, &dynamic_cast<iCurveGui&>(dialog->dialog()));
  // The ids are taken now: a second registration fails.
  EXPECT_FALSE(RegisterCurveDataType());
}

TEST(CurveDataTypeClass, wholeCurveTravelsAsAHostValue) {
  Data d;
  d.curve().addPoint(0.5, 0.75, mv::PointSmooth);
  GeData value;
  DESCFLAGS_GET getFlags = 0;
  EXPECT_TRUE(d.type.GetParameter(d.data, DescID(), value, getFlags));
  EXPECT_EQ(getFlags, DESCFLAGS_GET_PARAM_GET);
  const CustomDataType* held = value.GetCustomDataType(CURVE_TYPE_ID);
  ASSERT_NE(held, nullptr);
  EXPECT_EQ(d.type.Compare(held, d.data), 0);

  Data other;
  DESCFLAGS_SET setFlags = 0;
  EXPECT_TRUE(other.type.SetDParameter(other.data, sub(0), value, setFlags));
  EXPECT_EQ(other.type.Compare(other.data, d.data), 0);
  // A value that holds no curve leaves the curve alone.
  EXPECT_TRUE(other.type.SetDParameter(other.data, sub(0), GeData(Float(1.0)), setFlags));
  EXPECT_EQ(other.curve().getPointCount(), 3);
}

TEST(CurveDataTypeClass, descriptionEntriesCarryTheirIdsSettingsAndRoot) {
  Data d;
  d.curve().setPoint(CurvePoint::at(0.5, 0.5, mv::PointFree, 2), true);
  Description description;
  BaseContainer parent;
  parent.SetLong(CURVE_UNIT, UnitMeter);
  DESCFLAGS_DESC flags = 0;
  EXPECT_TRUE(d.type.GetDescription(d.data, description, flags, parent, nullptr));
  EXPECT_EQ(flags, DESCFLAGS_DESC_LOADED);
  const auto& entries = description.GetEntries();
  ASSERT_EQ(entries.size(), 3u + 2 + 2 + 7);
  EXPECT_EQ(entries[0].id[0].id, 1002);
  EXPECT_EQ(entries[0].id[0].dtype, DA_REAL);
  EXPECT_EQ(entries[0].id[0].creator, CURVE_TYPE_ID);
  EXPECT_EQ(entries[0].parent[0].id, 1000491);
  EXPECT_EQ(entries[0].settings.GetLong(12), fourCharCode("fmet"));
  EXPECT_EQ(entries[2].id[0].dtype, DA_STRING);
  const BaseContainer& x = entries[7].settings;
  EXPECT_EQ(entries[7].id[0].id, 1220);
  EXPECT_EQ(x.GetString(DESC_NAME), "[1] X");
  EXPECT_EQ(x.GetString(DESC_SHORT_NAME), "[1] X");
  EXPECT_EQ(x.GetReal(6), 1.0);
  EXPECT_TRUE(x.GetBool(7));
  const BaseContainer& type = entries[9].settings;
  EXPECT_EQ(entries[9].id[0].dtype, DA_LONG);
  EXPECT_EQ(type.GetContainer(14).GetString(3), "Free");
}
