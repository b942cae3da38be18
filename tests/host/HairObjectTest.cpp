#include "host/HairObject.h"

#include <gtest/gtest.h>

#include <vector>

#include "host/BaseDocument.h"
#include "host/BaseTag.h"
#include "host/DocumentPass.h"
#include "host/HairLibrary.h"
#include "host/PluginRegistry.h"
#include "host/PolygonObject.h"
#include "host/TagData.h"

namespace {

constexpr Int32 kTestGuideTag = 990017;

// A generator tag of the tests' own: pass 1 makes two guides of one segment rooted on polygon 0
// at (0.25, 0.5) and on polygon 1 at (0.5, 0.25), each strand from its root along the normal.
// `refuse` makes pass 1 return null.
class GuideTag : public TagData {
 public:
  static NodeData* Alloc() { return new GuideTag; }
  Bool Message(GeListNode* node, Int32 type, void* data) override {
    if (type != MSG_HAIR_GET_OBJECT_TYPE || !data) return TagData::Message(node, type, data);
    hook.generate = &generate;
    static_cast<HairPluginMessageData*>(data)->data = &hook;
    return true;
  }
  static HairGuides* generate(BaseDocument*, BaseList2D* tag, HairObject* hair, BaseThread*, void*,
                              Int32 pass) {
    auto* self = static_cast<GuideTag*>(tag->GetNodeData());
    self->passes.push_back(pass);
    if (pass != 1 || self->refuse) return nullptr;
    hair->SetGuides(HairGuides::Alloc(2, 1), false);
    HairGuides* guides = hair->GetGuides();
    const HairRootData roots[2] = {{HAIR_ROOT_TYPE_POLY, 0, 0.25, 0.5},
                                   {HAIR_ROOT_TYPE_POLY, 1, 0.5, 0.25}};
    for (Int32 k = 0; k < 2; ++k) {
      guides->SetRoot(k, roots[k], false);
      Vector position, normal;
      guides->GetRootData(k, &position, &normal, nullptr, false);
      guides->GetPoints()[2 * k] = position;
      guides->GetPoints()[2 * k + 1] = position + normal;
    }
    return guides;
  }

  HairPluginObjectData hook;
  std::vector<Int32> passes;
  bool refuse = false;
};

void registerGuideTag() {
  static const bool registered =
      RegisterTagPlugin(kTestGuideTag, "Guides", TAG_VISIBLE, &GuideTag::Alloc, "", nullptr, 0);
  ASSERT_TRUE(registered);
}

// A quad in the xz plane facing +y and a triangle beside it, moved by (10, 0, 0).
PolygonObject* makeSurface() {
  PolygonObject* surface = PolygonObject::Alloc(6, 2);
  Vector* p = surface->GetPointW();
  p[0] = {0, 0, 0}, p[1] = {0, 0, 2}, p[2] = {4, 0, 2}, p[3] = {4, 0, 0};
  p[4] = {5, 0, 0}, p[5] = {5, 0, 4};
  surface->GetPolygonW()[0] = CPolygon(0, 3, 2, 1);
  surface->GetPolygonW()[1] = CPolygon(3, 4, 5);
  surface->SetMl(MatrixMove(Vector(10, 0, 0)));
  return surface;
}

struct Lawn {
  BaseDocument doc;
  PolygonObject* surface = makeSurface();
  HairObject* hair = static_cast<HairObject*>(BaseObject::Alloc(Ohair));
  BaseTag* tag = nullptr;

  Lawn() {
    registerGuideTag();
    doc.InsertObject(surface, nullptr, nullptr);
    doc.InsertObject(hair, nullptr, nullptr);
    hair->GetDataInstance()->SetLink(HAIR_LINK, surface);
    tag = hair->MakeTag(kTestGuideTag);
  }
  GuideTag* data() const { return static_cast<GuideTag*>(tag->GetNodeData()); }
};

}  // namespace

TEST(HairObject, buildsGuidesThroughItsTagsTwoPasses) {
  Lawn lawn;
  ASSERT_NE(lawn.hair, nullptr);
  ASSERT_NE(lawn.tag, nullptr);
  EXPECT_TRUE(lawn.hair->BuildGuides(&lawn.doc, nullptr));
  EXPECT_EQ(lawn.data()->passes, (std::vector<Int32>{0, 1}));
  const HairGuides* guides = lawn.hair->GetGuides();
  ASSERT_NE(guides, nullptr);
  EXPECT_EQ(guides->GetCount(), 2);
  EXPECT_EQ(guides->GetGuidePointCount(), 2);
  // Bilinear on the quad: (1-s)(1-t) a + s(1-t) b + st c + (1-s)t d at s 0.25, t 0.5, moved.
  EXPECT_EQ(guides->GetPoints()[0], Vector(11, 0, 1));
  EXPECT_EQ(guides->GetPoints()[1], Vector(11, 1, 1));
  // On the triangle (3, 4, 5): a + s (b - a) + t (c - a), and its normal faces +y as well.
  EXPECT_EQ(guides->GetPoints()[2], Vector(14.75, 0, 1));
  EXPECT_EQ(guides->GetPoints()[3], Vector(14.75, 1, 1));
}

TEST(HairObject, documentPassBuildsTheGuidesAndANullResultRemovesThem) {
  Lawn lawn;
  ASSERT_TRUE(DocumentPass::Run(&lawn.doc, nullptr));
  ASSERT_NE(lawn.hair->GetGuides(), nullptr);
  lawn.data()->refuse = true;
  ASSERT_TRUE(DocumentPass::Run(&lawn.doc, nullptr));
  EXPECT_EQ(lawn.hair->GetGuides(), nullptr);
}

TEST(HairObject, rootsAreGivenInTheHairObjectsSpace) {
  Lawn lawn;
  lawn.hair->SetMl(MatrixMove(Vector(0, -3, 0)));
  ASSERT_TRUE(lawn.hair->BuildGuides(&lawn.doc, nullptr));
  EXPECT_EQ(lawn.hair->GetGuides()->GetPoints()[0], Vector(11, 3, 1));
}

TEST(HairGuides, rootDataIsRefusedWhereThereIsNoPolygon) {
  Lawn lawn;
  lawn.hair->SetGuides(HairGuides::Alloc(3, 2), false);
  HairGuides* guides = lawn.hair->GetGuides();
  const HairRootData cases[] = {{HAIR_ROOT_TYPE_NONE, 0, 0, 0},
                                {HAIR_ROOT_TYPE_POLY, 2, 0, 0},
                                {HAIR_ROOT_TYPE_POLY, -1, 0, 0}};
  for (const HairRootData& root : cases) {
    guides->SetRoot(0, root, false);
    Vector position(7, 7, 7);
    EXPECT_FALSE(guides->GetRootData(0, &position, nullptr, nullptr, false)) << root.m_ID;
    EXPECT_EQ(position, Vector(7, 7, 7));
  }
  EXPECT_FALSE(guides->GetRootData(3, nullptr, nullptr, nullptr, false));
  lawn.hair->GetDataInstance()->SetLink(HAIR_LINK, nullptr);
  guides->SetRoot(0, {HAIR_ROOT_TYPE_POLY, 0, 0.5, 0.5}, false);
  EXPECT_FALSE(guides->GetRootData(0, nullptr, nullptr, nullptr, false));
}

TEST(HairGuides, allocRefusesEmptyAndRunawaySizes) {
  struct Case {
    Int32 count, segments;
  };
  for (const Case& c : {Case{0, 3}, Case{3, 0}, Case{-1, 3}, Case{100000000, 6}}) {
    EXPECT_EQ(HairGuides::Alloc(c.count, c.segments), nullptr) << c.count << " " << c.segments;
  }
  HairGuides* guides = HairGuides::Alloc(4, 3);
  ASSERT_NE(guides, nullptr);
  for (Int32 k = 0; k < 16; ++k) EXPECT_EQ(guides->GetPoints()[k], Vector());
  HairGuides::Free(guides);
  EXPECT_EQ(guides, nullptr);
}

TEST(HairObject, cloneCarriesACopyOfTheGuides) {
  Lawn lawn;
  ASSERT_TRUE(lawn.hair->BuildGuides(&lawn.doc, nullptr));
  BaseObject* clone = lawn.hair->GetClone(0, nullptr);
  auto* hairClone = dynamic_cast<HairObject*>(clone);
  ASSERT_NE(hairClone, nullptr);
  ASSERT_NE(hairClone->GetGuides(), lawn.hair->GetGuides());
  EXPECT_EQ(hairClone->GetGuides()->GetPoints()[3], lawn.hair->GetGuides()->GetPoints()[3]);
  BaseObject::Free(clone);
}
