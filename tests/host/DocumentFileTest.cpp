#include "host/DocumentFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "TestDataType.h"
#include "TestPlugins.h"
#include "host/BaseDocument.h"
#include "host/BaseMaterial.h"
#include "host/GeResource.h"
#include "host/HostConsole.h"
#include "host/PolygonObject.h"
#include "host/SelectionTag.h"
#include "host/SplineObject.h"
#include "host/TextureTag.h"
#include "host/UVWTag.h"

namespace {

class CapturingConsole : public HostConsole {
 public:
  CapturingConsole() : before_(Install(this)) {}
  ~CapturingConsole() override { Install(before_); }
  void print(const String& line) override { lines.push_back(line); }
  void statusText(const String&) override {}
  void statusBar(Int32) override {}
  void statusSpin() override {}
  void statusClear() override {}
  void specialEvent(Int32, UInt64, UInt64) override {}
  std::vector<String> lines;

 private:
  HostConsole* before_;
};

struct Loaded {
  explicit Loaded(const String& text) : doc(DocumentFile::FromText(text, error)) {}
  ~Loaded() { BaseDocument::Free(doc); }
  String error;  // before doc: FromText writes it
  BaseDocument* doc;
};

BaseDocument* sampleDocument() {
  registerTestDataType();
  registerTestPlugins();
  BaseDocument* doc = BaseDocument::Alloc();
  doc->SetFps(25);
  BaseMaterial* bark = BaseMaterial::Alloc(Mmaterial);
  bark->SetName("Bark");
  bark->GetChannel(CHANNEL_COLOR)
      ->GetDataInstance()
      ->SetVector(CHANNEL_COLOR_VALUE, Vector(0.4, 0.3, 0.2));
  bark->SetChannelState(CHANNEL_LUMINANCE, true);
  doc->InsertMaterial(bark);
  BaseObject* tree = BaseObject::Alloc(kCloneGeneratorId);
  tree->SetName("Tree");
  tree->SetMl(MatrixMove(Vector(1, 2, 3)) * MatrixRotY(0.5));
  BaseContainer& bc = *tree->GetDataInstance();
  bc.SetVector(5, Vector(1.5, -2, 3));
  bc.SetMatrix(6, MatrixScale(Vector(2, 3, 4)));
  bc.SetString(7, "text \"quoted\"");
  bc.SetData(8, GeData(kTestDataTypeId, numberList({0.25, 1e-300, 7})));
  BaseContainer nested;
  nested.SetReal(1, 0.1);
  bc.SetContainer(9, nested);
  tree->SetRenderMode(MODE_OFF);
  doc->InsertObject(tree, nullptr, nullptr);
  PolygonObject* leaf = PolygonObject::Alloc(4, 2);
  leaf->SetName("Leaf");
  leaf->GetPointW()[2] = Vector(1, 1, 0);
  leaf->GetPolygonW()[0] = CPolygon(0, 1, 2);
  leaf->GetPolygonW()[1] = CPolygon(0, 1, 2, 3);
  auto* uvw = static_cast<UVWTag*>(leaf->MakeVariableTag(Tuvw, 2));
  uvw->SetSlow(1, {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}});
  auto* selection = static_cast<SelectionTag*>(leaf->MakeTag(Tpolygonselection, uvw));
  selection->SetName("Front");
  selection->GetBaseSelect()->Select(1);
  auto* texture = static_cast<TextureTag*>(leaf->MakeTag(Ttexture, selection));
  texture->SetMaterial(bark);
  texture->GetDataInstance()->SetString(TEXTURETAG_RESTRICTION, "Front");
  leaf->InsertUnderLast(tree);
  SplineObject* path = SplineObject::Alloc(3, SPLINETYPE_CUBIC);
  path->SetName("Path");
  path->ResizeObject(3, 2);
  path->GetSegmentW()[0] = {2, false};
  path->GetSegmentW()[1] = {1, true};
  path->InsertUnderLast(tree);
  bc.SetLink(10, leaf);
  BaseObject* instance = BaseObject::Alloc(Oinstance);
  instance->GetDataInstance()->SetLink(1001, tree);
  doc->InsertObject(instance, nullptr, tree);
  doc->SetActiveObject(leaf);
  return doc;
}

TEST(DocumentFile, RoundTripKeepsObjectsContainersTagsMaterialsAndLinks) {
  BaseDocument* original = sampleDocument();
  String text = DocumentFile::ToText(original);
  Loaded loaded(text);
  ASSERT_NE(loaded.doc, nullptr) << loaded.error;
  EXPECT_EQ(DocumentFile::ToText(loaded.doc), text);  // the second save is the same bytes
  BaseObject* tree = loaded.doc->GetFirstObject();
  BaseObject* orig = original->GetFirstObject();
  EXPECT_EQ(tree->GetName(), "Tree");
  EXPECT_EQ(tree->GetType(), kCloneGeneratorId);
  EXPECT_EQ(tree->GetMl(), orig->GetMl());
  EXPECT_EQ(tree->GetRenderMode(), MODE_OFF);
  BaseContainer read = *tree->GetDataInstance(), written = *orig->GetDataInstance();
  read.RemoveData(10);  // a link names its own document's object; checked below
  written.RemoveData(10);
  EXPECT_EQ(read, written);
  auto* leaf = static_cast<PolygonObject*>(tree->GetDown());
  EXPECT_EQ(tree->GetDataInstance()->GetObjectLink(10), leaf);
  EXPECT_EQ(leaf->GetPolygonR()[0], CPolygon(0, 1, 2));
  EXPECT_EQ(leaf->GetPointR()[2], Vector(1, 1, 0));
  EXPECT_EQ(static_cast<UVWTag*>(leaf->GetTag(Tuvw))->GetSlow(1).c, Vector(1, 1, 0));
  EXPECT_TRUE(
      static_cast<SelectionTag*>(leaf->GetTag(Tpolygonselection))->GetBaseSelect()->IsSelected(1));
  auto* texture = static_cast<TextureTag*>(leaf->GetTag(Ttexture));
  ASSERT_NE(texture->GetMaterial(), nullptr);
  EXPECT_EQ(texture->GetMaterial()->GetName(), "Bark");
  EXPECT_TRUE(texture->GetMaterial()->GetChannelState(CHANNEL_LUMINANCE));
  auto* path = static_cast<SplineObject*>(leaf->GetNext());
  EXPECT_TRUE(path->GetSegmentR()[1].closed);
  EXPECT_EQ(tree->GetNext()->GetDataInstance()->GetObjectLink(1001), tree);
  EXPECT_EQ(loaded.doc->GetActiveObject(), leaf);
  EXPECT_EQ(loaded.doc->GetFps(), 25);
  BaseDocument::Free(original);
}

TEST(DocumentFile, SaveWritesAFileThatLoadsBack) {
  BaseDocument* doc = sampleDocument();
  std::string path = std::string(MORVO_TEST_OUTPUT_DIR) + "/host-roundtrip.morvo";
  std::filesystem::create_directories(MORVO_TEST_OUTPUT_DIR);
  ASSERT_TRUE(DocumentFile::Save(doc, path));
  BaseDocument* loaded = DocumentFile::Load(path);
  ASSERT_NE(loaded, nullptr);
  EXPECT_EQ(DocumentFile::ToText(loaded), DocumentFile::ToText(doc));
  EXPECT_FALSE(std::filesystem::exists(path + ".tmp"));
  CapturingConsole console;
  EXPECT_FALSE(DocumentFile::Save(doc, "/nonexistent/folder/x.morvo"));
  EXPECT_EQ(DocumentFile::Load("/nonexistent/x.morvo"), nullptr);
  EXPECT_EQ(console.lines.size(), 2u);
  BaseDocument::Free(loaded);
  BaseDocument::Free(doc);
}

TEST(DocumentFile, HandWrittenDocumentUsesNamesFromTheDescription) {
  registerTestPlugins();
  std::string folder = std::string(MORVO_TEST_OUTPUT_DIR) + "/res-documents";
  std::filesystem::create_directories(folder + "/description");
  std::ofstream(folder + "/strings.str") << "10000 \"Clone\"\n";
  std::ofstream(folder + "/description/Otesthand.res") << "LONG 1000 copies\nREAL 1001 spacing\n";
  ASSERT_TRUE(GeResource::Init(folder));
  ASSERT_TRUE(RegisterObjectPlugin(1999150, "Hand", OBJECT_GENERATOR | OBJECT_INPUT,
                                   CloneGenerator::Alloc, "Otesthand", nullptr, 0));
  Loaded loaded(R"({"format": "morvo document", "version": 1, "objects": [
      {"type": "Otesthand", "name": "Row", "parameters": {"copies": 3, "spacing": 2.5, "77": true},
       "children": [{"type": "Ocube", "name": "Box", "parameters": {"1100": {"vector": [1, 2, 3]}}}]}]})");
  ASSERT_NE(loaded.doc, nullptr) << loaded.error;
  BaseObject* row = loaded.doc->GetFirstObject();
  EXPECT_EQ(row->GetDataInstance()->GetLong(1000), 3);
  EXPECT_EQ(row->GetDataInstance()->GetReal(1001), 2.5);
  EXPECT_TRUE(row->GetDataInstance()->GetBool(77));
  EXPECT_EQ(row->GetDown()->GetDataInstance()->GetVector(1100), Vector(1, 2, 3));
  String text = DocumentFile::ToText(loaded.doc);
  EXPECT_NE(text.find("\"copies\": 3"), String::npos);
  EXPECT_NE(text.find("\"spacing\": 2.5"), String::npos);
}

struct BadDocument {
  const char* text;
  const char* error;  // empty: the document loads with what it can
  int objects;
  int warnings;
};

TEST(DocumentFile, BrokenDocumentsLoadWhatTheyCanOrFailWithOneMessage) {
  const BadDocument cases[] = {
      {"{\"format\": \"morvo document\", \"version\": 1, \"objects\": [", "not valid JSON", 0, 0},
      {"[1, 2, 3]", "not a Morvo document", 0, 0},
      {R"({"format": "morvo document", "version": 99})", "version", 0, 0},
      {R"({"format": "morvo document", "version": 1, "objects": [{"type": "Ofancy"}, {"type": "Onull"}]})",
       "", 1, 1},
      {R"({"format": "morvo document", "version": 1, "objects": [{"type": "Onull", "parameters": {"5": [1, 2]}, "matrix": [1]}]})",
       "", 1, 2},
      {R"({"format": "morvo document", "version": 1, "objects": [{"type": "Opolygon", "points": [[0,0,0]], "polygons": [[0, 0, 9]]}]})",
       "", 1, 1},
      {R"({"format": "morvo document", "version": 1, "objects": [{"type": "Ospline", "points": [[0,0,0]], "segments": [[2000000000, false]]}]})",
       "", 1, 1},
      {R"({"format": "morvo document", "version": 1, "objects": [{"type": "Oinstance", "id": 1, "parameters": {"1001": {"link": 1}}}]})",
       "", 1, 0},
      {R"({"format": "morvo document", "version": 1, "objects": [{"type": "Onull", "parameters": {"1": {"link": "Nowhere"}, "2": {"data": "NOPE", "level": 1, "values": []}}}]})",
       "", 1, 2},
      {R"({"format": "morvo document", "version": 1, "objects": "many", "materials": [3]})", "", 0,
       1},
  };
  for (const BadDocument& c : cases) {
    SCOPED_TRACE(c.text);
    CapturingConsole console;
    Loaded loaded(c.text);
    if (*c.error) {
      EXPECT_EQ(loaded.doc, nullptr);
      EXPECT_NE(loaded.error.find(c.error), String::npos) << loaded.error;
      continue;
    }
    ASSERT_NE(loaded.doc, nullptr) << loaded.error;
    int objects = 0;
    for (BaseObject* op = loaded.doc->GetFirstObject(); op; op = op->GetNext()) ++objects;
    EXPECT_EQ(objects, c.objects);
    EXPECT_EQ(static_cast<int>(console.lines.size()), c.warnings);
    loaded.doc->ExecutePasses(nullptr, true, true, true, 0);  // and evaluates without harm
  }
}

TEST(DocumentFile, DeepNestingIsCutAndTheRestLoads) {
  String text = R"({"format": "morvo document", "version": 1, "objects": [)";
  for (int i = 0; i < 400; ++i) text += R"({"type": "Onull", "children": [)";
  for (int i = 0; i < 400; ++i) text += "]}";
  text += "]}";
  CapturingConsole console;
  Loaded loaded(text);
  ASSERT_NE(loaded.doc, nullptr);
  int depth = 0;
  for (BaseObject* op = loaded.doc->GetFirstObject(); op; op = op->GetDown()) ++depth;
  EXPECT_EQ(depth, DocumentFile::kMaxDepth);
  EXPECT_EQ(console.lines.size(), 1u);
}

TEST(DocumentFile, CustomDataIsStoredThroughItsClass) {
  registerTestDataType();
  Loaded loaded(R"({"format": "morvo document", "version": 1, "objects": [{"type": "Onull",
      "parameters": {"3": {"data": "NUMBERS", "level": 1, "values": [2, 0.5, 4]}}}]})");
  ASSERT_NE(loaded.doc, nullptr);
  auto* list = static_cast<NumberList*>(
      loaded.doc->GetFirstObject()->GetDataInstance()->GetCustomDataType(3, kTestDataTypeId));
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->values, (std::vector<Float>{0.5, 4.0}));
}

}  // namespace
