#include "host/SceneLoading.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>

#include "host/BaseDocument.h"
#include "host/BaseObject.h"
#include "host/PluginRegistry.h"
#include "host/SceneLoaderData.h"

namespace {

// A loader of the test's own: files starting with "ROW n" become n null objects; its setting
// 1000 names them.
class RowLoader : public SceneLoaderData {
 public:
  static NodeData* Alloc() { return new RowLoader(); }
  Bool Init(GeListNode* node) override {
    static_cast<BaseList2D*>(node)->GetDataInstance()->SetString(1000, "Row");
    return true;
  }
  Bool Identify(BaseSceneLoader*, const Filename& name, UChar* probe, Int32 size) override {
    return name.CheckSuffix("row") && size >= 4 && std::memcmp(probe, "ROW ", 4) == 0;
  }
  Int32 Load(BaseSceneLoader* node, const Filename& name, BaseDocument* doc, Int32, String* error,
             BaseThread*) override {
    int count = 0;
    std::ifstream(name.GetString()).ignore(4) >> count;
    if (count <= 0) {
      *error = "no count";
      return FILEERROR_WRONG_VALUE;
    }
    for (int i = 0; i < count; ++i) {
      BaseObject* op = BaseObject::Alloc(Onull);
      op->SetName(node->GetDataInstance()->GetString(1000));
      doc->InsertObject(op, nullptr, nullptr);
    }
    return FILEERROR_NONE;
  }
};

std::string writeFile(const std::string& name, const std::string& text) {
  std::filesystem::create_directories(MORVO_TEST_OUTPUT_DIR);
  std::string path = std::string(MORVO_TEST_OUTPUT_DIR) + "/" + name;
  std::ofstream(path) << text;
  return path;
}

TEST(SceneLoading, FileGoesToTheLoaderThatIdentifiesIt) {
  static const bool registered =
      RegisterSceneLoaderPlugin(1999300, "Rows", 0, RowLoader::Alloc, "Ftestrow");
  ASSERT_TRUE(registered);
  BaseDocument* doc = LoadDocument(writeFile("three.row", "ROW 3"), SCENEFILTER_OBJECTS, nullptr);
  ASSERT_NE(doc, nullptr);
  int count = 0;
  for (BaseObject* op = doc->GetFirstObject(); op; op = op->GetNext()) {
    EXPECT_EQ(op->GetName(), "Row");
    ++count;
  }
  EXPECT_EQ(count, 3);
  BaseDocument::Free(doc);
  EXPECT_EQ(LoadDocument(writeFile("zero.row", "ROW 0"), 0, nullptr), nullptr);
  EXPECT_EQ(LoadDocument(writeFile("other.txt", "ROW 3"), 0, nullptr), nullptr);
  EXPECT_EQ(LoadDocument(Filename("/nonexistent/x.row"), 0, nullptr), nullptr);
}

}  // namespace
