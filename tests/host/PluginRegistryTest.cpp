#include "host/PluginRegistry.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "host/BaseObject.h"
#include "host/CommandData.h"
#include "host/DescriptionResource.h"
#include "host/GeResource.h"
#include "host/ObjectData.h"

namespace {

class PlainObject : public ObjectData {
 public:
  static NodeData* Alloc() { return new PlainObject(); }
};

class FailingInit : public ObjectData {
 public:
  static NodeData* Alloc() { return new FailingInit(); }
  Bool Init(GeListNode*) override { return false; }
};

TEST(PluginRegistry, RegistrationsAreUniqueAndKeepTheirFlags) {
  ASSERT_TRUE(RegisterObjectPlugin(1999400, "#$09Plain", OBJECT_GENERATOR | OBJECT_INPUT,
                                   PlainObject::Alloc, "Otestplain", nullptr, 0));
  EXPECT_FALSE(RegisterObjectPlugin(1999400, "Again", 0, PlainObject::Alloc, "", nullptr, 0));
  EXPECT_FALSE(RegisterObjectPlugin(Onull, "Null", 0, PlainObject::Alloc, "", nullptr, 0));
  EXPECT_FALSE(RegisterObjectPlugin(1999401, "No allocator", 0, nullptr, "", nullptr, 0));
  EXPECT_FALSE(RegisterCommandPlugin(1999402, "No command", 0, nullptr, "", nullptr));
  BaseObject* op = BaseObject::Alloc(1999400);
  ASSERT_NE(op, nullptr);
  EXPECT_EQ(op->GetInfo(), OBJECT_GENERATOR | OBJECT_INPUT);
  EXPECT_NE(op->GetObjectData(), nullptr);
  EXPECT_EQ(PluginRegistry::WordOf(1999400), "Otestplain");
  EXPECT_EQ(PluginRegistry::FindByWord(PluginKind::Object, "Otestplain")->id, 1999400);
  EXPECT_EQ(PluginRegistry::FindByWord(PluginKind::Tag, "Otestplain"), nullptr);
  BaseObject::Free(op);
}

TEST(PluginRegistry, AFailedInitGivesNoObject) {
  ASSERT_TRUE(RegisterObjectPlugin(1999403, "Failing", 0, FailingInit::Alloc, "", nullptr, 0));
  EXPECT_EQ(BaseObject::Alloc(1999403), nullptr);
  EXPECT_EQ(BaseObject::Alloc(1999404), nullptr);  // never registered
}

TEST(GeResource, StringsByNumberFromTheFolder) {
  std::string folder = std::string(MORVO_TEST_OUTPUT_DIR) + "/res-strings";
  std::filesystem::create_directories(folder);
  std::ofstream(folder + "/strings.str")
      << "# comment\n10025 \"Growing \\\"#\\\"\"\n\n10020 \"\"\n";
  ASSERT_TRUE(GeResource::Init(folder));
  EXPECT_EQ(GeLoadString(10025), "Growing \"#\"");
  EXPECT_EQ(GeLoadString(10020), "");
  EXPECT_EQ(GeLoadString(4), "");
  std::ofstream(folder + "/strings.str") << "10025 Growing\n";
  EXPECT_FALSE(GeResource::Init(folder));
  EXPECT_FALSE(GeResource::Init(folder + "/missing"));
}

struct DescriptionCase {
  const char* text;
  bool ok;
  size_t parameters;
};

TEST(DescriptionResource, ParsesKindIdNameLines) {
  const DescriptionCase cases[] = {
      {"REAL 1103 growth\n# note\n\nBOOL 1115 separateObjects  # trailing\n", true, 2},
      {"REAL growth 1103\n", false, 0},
      {"REAL 1103\n", false, 0},
      {"REAL 1 a\nLONG 1 b\n", false, 0},
      {"REAL 1 a\nLONG 2 a\n", false, 0},
      {"REAL 1 a extra\n", false, 0},
  };
  for (const DescriptionCase& c : cases) {
    DescriptionResource description;
    String error;
    EXPECT_EQ(DescriptionResource::Parse(c.text, description, error), c.ok) << c.text;
    if (c.ok) {
      EXPECT_EQ(description.GetParameters().size(), c.parameters);
    } else {
      EXPECT_NE(error.find("line"), String::npos);
    }
  }
}

}  // namespace
