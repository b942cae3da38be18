#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/ParameterSet.h"
#include "host/BaseDocument.h"
#include "host/BaseTag.h"
#include "host/DocumentPass.h"
#include "host/PolygonObject.h"
#include "support/PlantDocuments.h"

namespace {

// Every polygon object from first and its siblings down, caches included.
void collectPolygons(BaseObject* first, std::vector<PolygonObject*>& out) {
  for (BaseObject* object = first; object != nullptr; object = object->GetNext()) {
    if (object->IsInstanceOf(Opolygon)) out.push_back(static_cast<PolygonObject*>(object));
    collectPolygons(object->GetCache(), out);
    if ((object->GetInfo() & OBJECT_INPUT) == 0) collectPolygons(object->GetDown(), out);
  }
}

Int32 polygonTotal(BaseObject* root) {
  std::vector<PolygonObject*> objects;
  collectPolygons(root, objects);
  Int32 total = 0;
  for (PolygonObject* object : objects) total += object->GetPolygonCount();
  return total;
}

Float highestPoint(PolygonObject* object) {
  Float highest = -1e300;
  for (Int32 i = 0; i < object->GetPointCount(); ++i) {
    highest = std::max(highest, object->GetPointR()[i].y);
  }
  return highest;
}

// A tree of one trunk (radius 20, height 400) and a twig Branch (radius 5, length 100) at four
// nodes.
class TreeDocument : public testing::Test {
 protected:
  void SetUp() override {
    tree = branchWithSplines("Tree", 20, 400);
    tree->GetDataInstance()->SetReal(1301, 4.0);
    twig = branchWithSplines("Twig", 5, 100);
    twig->InsertUnderLast(tree);
    document.InsertObject(tree, nullptr, nullptr);
  }

  BaseObject* evaluate(bool separate) {
    tree->GetDataInstance()->SetBool(ID_SEPARATE_OBJECTS, separate);
    tree->SetDirty(DIRTYFLAGS_DATA);
    DocumentPass::Run(&document, nullptr);
    return tree->GetCache();
  }

  BaseDocument document;
  BaseObject* tree = nullptr;
  BaseObject* twig = nullptr;
};

TEST_F(TreeDocument, eachTwigInstanceGrowsByItsOwnCarriedGrowth) {
  BaseObject* result = evaluate(true);
  ASSERT_NE(result, nullptr);
  ASSERT_TRUE(result->IsInstanceOf(Opolygon)) << "the trunk's tube holds the instances";
  std::vector<String> names;
  for (BaseObject* instance = result->GetDown(); instance != nullptr;
       instance = instance->GetNext()) {
    names.push_back(instance->GetName());
    BaseTag* tag = instance->GetTag(ID_MORVO_TAG);
    ASSERT_NE(tag, nullptr);
    const Float growth = tag->GetDataInstance()->GetReal(mv::IdCarriedGrowth);
    EXPECT_EQ(tag->GetDataInstance()->GetLong(mv::IdCount), 4);
    BaseObject* tube = instance->GetCache();
    ASSERT_NE(tube, nullptr) << instance->GetName();
    ASSERT_TRUE(tube->IsInstanceOf(Opolygon));
    EXPECT_GT(growth, 0.0);
    EXPECT_LT(growth, 1.0);
    EXPECT_NEAR(highestPoint(static_cast<PolygonObject*>(tube)), 100.0 * growth, 1e-9)
        << instance->GetName();
  }
  EXPECT_EQ(names, (std::vector<String>{"Twig.0", "Twig.1", "Twig.2", "Twig.3"}));
}

TEST_F(TreeDocument, mergedTwigsKeepEveryPolygon) {
  const Int32 separateTotal = polygonTotal(evaluate(true));
  EXPECT_EQ(separateTotal, 32 + 2 * 24 + 2 * 16)
      << "8 sides times 4 spans of the trunk; twigs grown past 2 or 3 of their 4 spans";
  BaseObject* merged = evaluate(false);
  ASSERT_NE(merged, nullptr);
  EXPECT_EQ(polygonTotal(merged), separateTotal);
  std::vector<PolygonObject*> objects;
  collectPolygons(merged, objects);
  EXPECT_LE(objects.size(), 2u) << "one object per surface";
  EXPECT_EQ(merged->GetTag(ID_MORVO_TAG), nullptr);
}

TEST_F(TreeDocument, anUnchangedSecondPassKeepsEveryCache) {
  BaseObject* first = evaluate(true);
  BaseObject* firstTwig = first->GetDown()->GetCache();
  DocumentPass::Run(&document, nullptr);
  EXPECT_EQ(tree->GetCache(), first);
  EXPECT_EQ(tree->GetCache()->GetDown()->GetCache(), firstTwig);
  twig->GetDataInstance()->SetReal(1103, 0.5);
  twig->SetDirty(DIRTYFLAGS_DATA);
  DocumentPass::Run(&document, nullptr);
  EXPECT_NE(tree->GetCache(), first) << "a changed child rebuilds its parent";
}

// A path whose Tropism pulls it toward +x.
class BentPath : public testing::Test {
 protected:
  void SetUp() override {
    branch = branchWithSplines("Stem", 5, 200);
    tropism = BaseObject::Alloc(ID_TROPISM_OBJECT);
    tropism->InsertUnderLast(branch->GetDown()->GetNext());
    document.InsertObject(branch, nullptr, nullptr);
  }

  Float sideways() {
    DocumentPass::Run(&document, nullptr);
    auto* tube = static_cast<PolygonObject*>(branch->GetCache());
    Float most = 0.0;
    for (Int32 i = 0; i < tube->GetPointCount(); ++i) {
      most = std::max(most, tube->GetPointR()[i].x);
    }
    return most;
  }

  BaseDocument document;
  BaseObject* branch = nullptr;
  BaseObject* tropism = nullptr;
};

TEST_F(BentPath, aTropismBendsThePathItStandsUnder) {
  tropism->GetDataInstance()->SetLong(7000, 0);  // toward +x
  const Float bent = sideways();
  EXPECT_GT(bent, 20.0);
  tropism->Remove();
  BaseObject::Free(tropism);
  EXPECT_NEAR(sideways(), 5.0, 1e-9) << "only the profile's radius";
}

TEST_F(BentPath, aMovedTargetBendsThePathAgain) {
  BaseObject* target = BaseObject::Alloc(Onull);
  target->SetName("Sun");
  target->SetMl(MatrixMove(Vector(300, 100, 0)));
  document.InsertObject(target, nullptr, nullptr);
  tropism->GetDataInstance()->SetLong(1101, 1);
  tropism->GetDataInstance()->SetLink(7002, target);
  const Float towardSun = sideways();
  EXPECT_GT(towardSun, 20.0);
  target->SetMl(MatrixMove(Vector(-300, 100, 0)));
  EXPECT_LT(sideways(), towardSun) << "the stem turns away with the target";
}

}  // namespace
