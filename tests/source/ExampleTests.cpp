#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "host/BaseDocument.h"
#include "host/BaseTag.h"
#include "host/DocumentFile.h"
#include "host/DocumentPass.h"
#include "host/PolygonObject.h"
#include "source/PluginIds.h"

namespace {

struct Census {
  int polygons = 0;
  std::vector<String> instances;  // names of the objects inside caches
};

void count(BaseObject* first, Census& census, bool inCache) {
  for (BaseObject* object = first; object != nullptr; object = object->GetNext()) {
    if (object->IsInstanceOf(Opolygon)) {
      census.polygons += static_cast<PolygonObject*>(object)->GetPolygonCount();
    }
    if (inCache) census.instances.push_back(object->GetName());
    count(object->GetCache(), census, true);
    if ((object->GetInfo() & OBJECT_INPUT) == 0) count(object->GetDown(), census, inCache);
  }
}

Census evaluated(const std::string& name, bool separate) {
  BaseDocument* document = DocumentFile::Load(MORVO_SOURCE_DIR "/examples/" + name);
  Census census;
  if (document == nullptr) return census;
  for (BaseObject* o = document->GetFirstObject(); o != nullptr; o = o->GetNext()) {
    o->GetDataInstance()->SetBool(ID_SEPARATE_OBJECTS, separate);
  }
  DocumentPass::Run(document, nullptr);
  count(document->GetFirstObject(), census, false);
  BaseDocument::Free(document);
  return census;
}

// How many different names inside caches start with prefix (a primitive's own cache repeats its
// name).
int named(const Census& census, const std::string& prefix) {
  std::set<String> names;
  for (const String& name : census.instances) {
    if (name.rfind(prefix, 0) == 0) names.insert(name);
  }
  return static_cast<int>(names.size());
}

TEST(Examples, theTreeHasThreeLevelsWithLeaves) {
  const Census separate = evaluated("tree.morvo", true);
  EXPECT_EQ(named(separate, "Limb."), 8);
  EXPECT_GT(separate.polygons, 8 * 10 * 6 * 20) << "leaves on the twigs of every limb";
  EXPECT_EQ(evaluated("tree.morvo", false).polygons, separate.polygons)
      << "merging keeps every polygon";
}

TEST(Examples, theSunflowerHeadHoldsEverySeed) {
  EXPECT_EQ(named(evaluated("sunflower.morvo", true), "Seed."), 500);
}

TEST(Examples, theRosetteIsARingOfTwelvePetals) {
  EXPECT_EQ(named(evaluated("rosette.morvo", true), "Petal."), 12);
}

TEST(Examples, theVariationChoosesAmongAllItsLeaves) {
  const Census census = evaluated("variation.morvo", true);
  for (const char* leaf : {"Round.", "Narrow.", "Broad."})
    EXPECT_GT(named(census, leaf), 0) << leaf;
  EXPECT_EQ(named(census, "Leaves."), 16) << "one Variation at each node of the stem";
}

TEST(Examples, theBentStemCarriesItsLeaves) {
  const Census census = evaluated("bent.morvo", true);
  EXPECT_GT(named(census, "Leaf."), 0);
  EXPECT_GT(census.polygons, 100);
}

}  // namespace
