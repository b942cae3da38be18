#include <gtest/gtest.h>

#include "host/BaseDocument.h"
#include "host/BaseTag.h"
#include "host/HairGuides.h"
#include "host/HairObject.h"
#include "host/LineObject.h"
#include "host/PluginRegistry.h"
#include "host/PolygonObject.h"
#include "host/TagData.h"

namespace {

constexpr Int32 kStubbleTagId = 1999200;

// A hair plug-in of the test's own: one guide of two segments standing on the middle of each
// polygon of the surface, along the polygon's normal.
class StubbleTag : public TagData {
 public:
  static NodeData* Alloc() { return new StubbleTag(); }
  Bool Message(GeListNode*, Int32 type, void* data) override {
    if (type != MSG_HAIR_GET_OBJECT_TYPE || !data) return true;
    hook_.version = 1000;
    hook_.size = 128;
    hook_.calc_generate = generate;
    *static_cast<HairPluginObjectData**>(data) = &hook_;
    return true;
  }
  static inline int passes = 0;

 private:
  static HairGuides* generate(BaseDocument*, BaseList2D*, HairObject* hair, BaseThread*, void*,
                              Int32 pass) {
    ++passes;
    auto* surface =
        dynamic_cast<PolygonObject*>(hair->GetDataInstance()->GetObjectLink(HAIRSTYLE_LINK));
    if (pass != 1 || !surface) return nullptr;
    hair->SetGuides(HairGuides::Alloc(surface->GetPolygonCount(), 2), false);
    HairGuides* guides = hair->GetGuides();
    for (Int32 g = 0; g < guides->GetCount(); ++g) {
      guides->SetRoot(g, {HAIR_ROOT_TYPE_POLY, g, 0.5, 0.5});
      Vector root, normal;
      guides->GetRootData(g, &root, &normal);
      for (Int32 j = 0; j < 3; ++j) guides->GetPoints()[g * 3 + j] = root + normal * j;
    }
    return guides;
  }
  HairPluginObjectData hook_;
};

TEST(Hair, APluginTagFillsTheGuidesThroughTheHook) {
  static const bool registered = RegisterTagPlugin(kStubbleTagId, "Stubble", TAG_VISIBLE,
                                                   StubbleTag::Alloc, "Tteststubble", nullptr, 0);
  ASSERT_TRUE(registered);
  BaseDocument doc;
  PolygonObject* ground = PolygonObject::Alloc(4, 1);
  // A square in xz whose corners run as the plane primitive's do, so its normal is +y.
  Vector corners[] = {{0, 0, 0}, {2, 0, 0}, {2, 0, 2}, {0, 0, 2}};
  std::copy(corners, corners + 4, ground->GetPointW());
  ground->GetPolygonW()[0] = CPolygon(0, 1, 2, 3);
  doc.InsertObject(ground, nullptr, nullptr);
  BaseObject* hair = BaseObject::Alloc(Ohair);
  hair->GetDataInstance()->SetLink(HAIRSTYLE_LINK, ground);
  hair->MakeTag(kStubbleTagId);
  doc.InsertObject(hair, nullptr, ground);
  doc.ExecutePasses(nullptr, true, true, true, 0);
  EXPECT_EQ(StubbleTag::passes, 2);
  auto* line = dynamic_cast<LineObject*>(hair->GetCache());
  ASSERT_NE(line, nullptr);
  ASSERT_EQ(line->GetPointCount(), 3);
  EXPECT_EQ(line->GetSegmentCount(), 1);
  EXPECT_EQ(line->GetPointR()[0], Vector(1, 0, 1));
  EXPECT_EQ(line->GetPointR()[2], Vector(1, 2, 1));
  doc.ExecutePasses(nullptr, true, true, true, 0);
  EXPECT_EQ(StubbleTag::passes, 2);  // nothing changed: no new build
  ground->GetPointW()[0] = Vector(0, 0, -2);
  ground->Message(MSG_UPDATE);
  doc.ExecutePasses(nullptr, true, true, true, 0);
  EXPECT_EQ(StubbleTag::passes, 4);
}

TEST(Hair, GuidesRefuseBadSizesAndRootsOffTheSurface) {
  EXPECT_EQ(HairGuides::Alloc(0, 3), nullptr);
  EXPECT_EQ(HairGuides::Alloc(10, 0), nullptr);
  EXPECT_EQ(HairGuides::Alloc(1 << 20, 1 << 10), nullptr);
  HairGuides* guides = HairGuides::Alloc(2, 3);
  EXPECT_EQ(guides->GetPointCount(), 8);
  guides->SetRoot(0, {HAIR_ROOT_TYPE_POLY, 5, 0.5, 0.5});
  Vector p;
  EXPECT_FALSE(guides->GetRootData(0, &p, nullptr));
  HairGuides::Free(guides);
}

}  // namespace
