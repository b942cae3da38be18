#include "source/MGrassTag/MGrassTagData.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "host/BaseDocument.h"
#include "host/BaseTag.h"
#include "host/DocumentPass.h"
#include "host/HairObject.h"
#include "host/PolygonObject.h"
#include "support/CapturingConsole.h"
#include "support/CapturingMessageHandler.h"

namespace {

constexpr Int32 kGrassTag = 1019021;

// Quads (corners a, b, c, d) and triangles (c repeated) as corner positions.
using Corners = std::vector<Vector>;

PolygonObject* makeSurface(const std::vector<Corners>& polygons) {
  PolygonObject* surface = PolygonObject::Alloc(Int32(4 * polygons.size()), Int32(polygons.size()));
  for (size_t k = 0; k < polygons.size(); ++k) {
    const Int32 first = Int32(4 * k);
    for (size_t c = 0; c < polygons[k].size(); ++c)
      surface->GetPointW()[first + c] = polygons[k][c];
    surface->GetPolygonW()[k] = polygons[k].size() == 3
                                    ? CPolygon(first, first + 1, first + 2)
                                    : CPolygon(first, first + 1, first + 2, first + 3);
  }
  return surface;
}

// A unit quad of the xz plane at (x, z), facing +y.
Corners quad(double x, double z) {
  return {{x, 0, z}, {x + 1, 0, z}, {x + 1, 0, z + 1}, {x, 0, z + 1}};
}
Corners triangle(double x, double z) { return {{x, 0, z}, {x + 2, 0, z}, {x, 0, z + 2}}; }

// A document with a surface and a hair object that carries a grass tag linked to it.
struct Lawn {
  BaseDocument doc;
  PolygonObject* surface;
  HairObject* hair = static_cast<HairObject*>(BaseObject::Alloc(Ohair));
  BaseTag* tag = nullptr;

  explicit Lawn(const std::vector<Corners>& polygons) : surface(makeSurface(polygons)) {
    doc.InsertObject(surface, nullptr, nullptr);
    doc.InsertObject(hair, nullptr, nullptr);
    hair->GetDataInstance()->SetLink(HAIRSTYLE_LINK, surface);
    tag = hair->MakeTag(kGrassTag);  // registered by the plug-in's start
    EXPECT_NE(tag, nullptr);
    parameters()->SetLink(MGrassTagData::MGRASS_SURFACE, surface);
  }
  BaseContainer* parameters() { return tag->GetDataInstance(); }
  // A document pass: the hair object runs the tag's passes when it or its tags changed.
  const HairGuides* build() {
    DocumentPass::Run(&doc, nullptr);
    return hair->GetGuides();
  }
};

// The draws of one clump as the tag must make them, replayed from the generator: the polygon,
// the root's s and t, and per blade the length's draw and the three of the scatter.
struct Clump {
  Int32 polygon;
  double s, t;
  std::vector<double> lengthDraws;
  std::vector<Vector> offsets;
};

std::vector<Clump> replay(Int32 clumps, Int32 clumpSize, const PolygonObject* surface) {
  Random random;
  random.Init(84564);
  std::vector<Clump> result;
  for (Int32 c = 0; c < clumps; ++c) {
    Clump clump;
    clump.polygon = Int32(random.Get01() * (surface->GetPolygonCount() - 1));
    const bool isTriangle = surface->GetPolygonR()[clump.polygon].IsTriangle();
    do {
      clump.s = random.Get01();
      clump.t = random.Get01();
    } while (isTriangle && clump.s + clump.t > 1.0);
    for (Int32 k = 0; k < clumpSize; ++k) {
      clump.lengthDraws.push_back(random.Get11());
      const double x = random.Get11(), y = random.Get11(), z = random.Get11();
      clump.offsets.push_back(Vector(x, y, z) * 5.0);
    }
    result.push_back(clump);
  }
  return result;
}

Vector rootOf(const PolygonObject* surface, const Clump& clump) {
  const CPolygon& p = surface->GetPolygonR()[clump.polygon];
  const Vector* v = surface->GetPointR();
  const double s = clump.s, t = clump.t;
  if (p.IsTriangle()) return v[p.a] + (v[p.b] - v[p.a]) * s + (v[p.c] - v[p.a]) * t;
  return v[p.a] * ((1 - s) * (1 - t)) + v[p.b] * (s * (1 - t)) + v[p.c] * (s * t) +
         v[p.d] * ((1 - s) * t);
}

// The sag of point j of a blade: sag.y falls by f * f * step * 20 after each point.
double sagAt(int j, int segments) {
  const double step = 1.0 / segments;
  double sag = 0.0;
  for (int i = 0; i < j; ++i) sag -= (i * step) * (i * step) * step * 20.0;
  return sag;
}

void expectNearVector(const Vector& actual, const Vector& expected, double tolerance) {
  EXPECT_NEAR(actual.x, expected.x, tolerance);
  EXPECT_NEAR(actual.y, expected.y, tolerance);
  EXPECT_NEAR(actual.z, expected.z, tolerance);
}

}  // namespace

TEST(MGrassTagData, hairCountIsRoundedUpToWholeClumpsAndAMultipleGainsOne) {
  struct Case {
    Int64 count, clump, blades;
  };
  const Case cases[] = {{19, 20, 20}, {40, 20, 60}, {2000, 20, 2020}, {0, 20, 20},
                        {1, 1, 2},    {21, 20, 40}, {99, 7, 105}};
  for (const Case& c : cases) {
    EXPECT_EQ(MGrassTagData::roundedHairCount(c.count, c.clump), c.blades) << c.count;
  }
}

TEST(MGrassTagData, defaultsGive2020BladesIn101ClumpsOfSixSegments) {
  Lawn lawn({quad(0, 0), quad(1, 0), quad(0, 1), quad(1, 1)});
  const HairGuides* guides = lawn.build();
  ASSERT_NE(guides, nullptr);
  EXPECT_EQ(guides->GetCount(), 2020);
  EXPECT_EQ(guides->GetSegmentCount(), 6);
  // Each blade starts at its clump's root plus its scatter, clump after clump.
  const std::vector<Clump> clumps = replay(101, 20, lawn.surface);
  for (size_t c = 0; c < clumps.size(); ++c) {
    for (size_t k = 0; k < 20; ++k) {
      const Vector start = guides->GetPoints()[(c * 20 + k) * 7];
      expectNearVector(start, rootOf(lawn.surface, clumps[c]) + clumps[c].offsets[k], 1e-12);
    }
  }
}

// The last polygon lies far away; a generator that could reach it would put a root there.
TEST(MGrassTagData, rootsLieInsideTheirPolygonAndNeverOnTheLast) {
  Lawn lawn({quad(0, 0), triangle(3, 0), quad(0, 4), triangle(6, 6), quad(1000, 1000)});
  lawn.parameters()->SetLong(MGrassTagData::MGRASS_HAIRCOUNT, 3000);
  lawn.parameters()->SetLong(MGrassTagData::MGRASS_CLUMPSIZE, 3);
  const HairGuides* guides = lawn.build();
  ASSERT_NE(guides, nullptr);
  const std::vector<Clump> clumps = replay(1001, 3, lawn.surface);
  std::vector<int> chosen(5, 0);
  for (size_t c = 0; c < clumps.size(); ++c) {
    ++chosen[size_t(clumps[c].polygon)];
    const Vector root = guides->GetPoints()[c * 3 * 7] - clumps[c].offsets[0];
    const Corners box = clumps[c].polygon % 2 == 0 ? quad(0, 0) : triangle(0, 0);
    const Vector origin = lawn.surface->GetPointR()[4 * clumps[c].polygon];
    const Vector local = root - origin;
    ASSERT_NEAR(local.y, 0.0, 1e-9);
    ASSERT_GE(local.x, -1e-9);
    ASSERT_GE(local.z, -1e-9);
    if (box.size() == 3) {
      ASSERT_LE(local.x + local.z, 2.0 + 1e-9) << "outside the triangle, clump " << c;
    } else {
      ASSERT_LE(local.x, 1.0 + 1e-9);
      ASSERT_LE(local.z, 1.0 + 1e-9);
    }
  }
  EXPECT_EQ(chosen[4], 0);
  for (int k = 0; k < 4; ++k) EXPECT_GT(chosen[size_t(k)], 150) << "polygon " << k;
  for (Int32 p = 0; p < guides->GetCount() * 7; ++p) ASSERT_LT(guides->GetPoints()[p].x, 100.0);
}

TEST(MGrassTagData, onePolygonTakesEveryClump) {
  Lawn lawn({triangle(0, 0)});
  const HairGuides* guides = lawn.build();
  ASSERT_NE(guides, nullptr);
  const std::vector<Clump> clumps = replay(101, 20, lawn.surface);
  for (size_t c = 0; c < clumps.size(); ++c) {
    EXPECT_EQ(clumps[c].polygon, 0);
    expectNearVector(guides->GetPoints()[c * 20 * 7],
                     rootOf(lawn.surface, clumps[c]) + clumps[c].offsets[0], 1e-12);
  }
}

// Without noise every blade stands along the normal with its drawn length, and sags.
TEST(MGrassTagData, bladesRiseAlongTheNormalAndSag) {
  Lawn lawn({quad(0, 0), quad(2, 0)});
  BaseContainer* p = lawn.parameters();
  p->SetReal(MGrassTagData::MGRASS_NOISEAMOUNT, 0.0);
  p->SetLong(MGrassTagData::MGRASS_SEGMENTS, 4);
  p->SetLong(MGrassTagData::MGRASS_HAIRCOUNT, 10);
  p->SetLong(MGrassTagData::MGRASS_CLUMPSIZE, 5);
  const HairGuides* guides = lawn.build();
  ASSERT_NE(guides, nullptr);
  ASSERT_EQ(guides->GetCount(), 15);
  // Closed form: the sum of 20 f^2 step over f = 0, 1/4, 2/4, 3/4 is 20 * 14 / 64.
  EXPECT_DOUBLE_EQ(sagAt(4, 4), -20.0 * 14.0 / 64.0);
  const std::vector<Clump> clumps = replay(3, 5, lawn.surface);
  for (size_t c = 0; c < 3; ++c) {
    for (size_t k = 0; k < 5; ++k) {
      const double length = clumps[c].lengthDraws[k] * 5.0 + 10.0;
      const Vector base = rootOf(lawn.surface, clumps[c]) + clumps[c].offsets[k];
      for (int j = 0; j <= 4; ++j) {
        const Vector expected = base + Vector(0, length * j / 4.0 + sagAt(j, 4), 0);
        expectNearVector(guides->GetPoints()[(c * 5 + k) * 5 + size_t(j)], expected, 1e-12);
      }
    }
  }
}

// With noise the direction wanders, but each blade keeps its drawn length from first point to
// last, less the sag.
TEST(MGrassTagData, noiseTurnsBladesButKeepsTheirLength) {
  Lawn lawn({quad(0, 0), quad(1, 0), quad(2, 0)});
  lawn.parameters()->SetReal(MGrassTagData::MGRASS_NOISEAMOUNT, 2.0);
  const HairGuides* guides = lawn.build();
  ASSERT_NE(guides, nullptr);
  const std::vector<Clump> clumps = replay(101, 20, lawn.surface);
  int turned = 0;
  for (size_t c = 0; c < clumps.size(); ++c) {
    for (size_t k = 0; k < 20; ++k) {
      const Vector* blade = guides->GetPoints() + (c * 20 + k) * 7;
      const Vector span = blade[6] - blade[0] - Vector(0, sagAt(6, 6), 0);
      const double length = clumps[c].lengthDraws[k] * 5.0 + 10.0;
      ASSERT_NEAR(span.GetLength(), std::abs(length), 1e-9);
      if (span.y < 0.999 * span.GetLength()) ++turned;
    }
  }
  EXPECT_GT(turned, 1000);
}

TEST(MGrassTagData, everyBuildGivesTheSameGuides) {
  Lawn lawn({quad(0, 0), triangle(2, 0), quad(5, 5)});
  const HairGuides* first = lawn.build();
  ASSERT_NE(first, nullptr);
  const std::vector<Vector> before(first->GetPoints(), first->GetPoints() + 2020 * 7);
  lawn.parameters()->SetReal(MGrassTagData::MGRASS_LENGTH, 3.0);
  lawn.build();
  lawn.parameters()->SetReal(MGrassTagData::MGRASS_LENGTH, 10.0);
  const HairGuides* again = lawn.build();
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(std::vector<Vector>(again->GetPoints(), again->GetPoints() + 2020 * 7), before);
}

TEST(MGrassTagData, whatCannotGrowGivesNoGuidesAndSaysWhy) {
  struct Case {
    const char* what;
    Int32 parameter;
    Int32 value;
  };
  const Case cases[] = {{"clump size 0", MGrassTagData::MGRASS_CLUMPSIZE, 0},
                        {"segments 0", MGrassTagData::MGRASS_SEGMENTS, 0},
                        {"a negative count", MGrassTagData::MGRASS_HAIRCOUNT, -5},
                        {"a runaway count", MGrassTagData::MGRASS_HAIRCOUNT, 2000000000}};
  for (const Case& c : cases) {
    Lawn lawn({quad(0, 0), quad(1, 0)});
    lawn.parameters()->SetLong(c.parameter, c.value);
    CapturingMessageHandler messages;
    EXPECT_EQ(lawn.build(), nullptr) << c.what;
    EXPECT_EQ(messages.warnings.size(), 1u) << c.what;
  }
  Lawn bare({});
  CapturingMessageHandler messages;
  EXPECT_EQ(bare.build(), nullptr);
  ASSERT_EQ(messages.warnings.size(), 1u);
  EXPECT_NE(messages.warnings[0].find("has no polygons"), std::string::npos);

  // Roots are placed on the hair object's surface: without one there is nowhere to grow.
  Lawn loose({quad(0, 0), quad(1, 0)});
  loose.hair->GetDataInstance()->SetLink(HAIRSTYLE_LINK, nullptr);
  CapturingMessageHandler looseMessages;
  EXPECT_EQ(loose.build(), nullptr);
  ASSERT_EQ(looseMessages.warnings.size(), 1u);
  EXPECT_NE(looseMessages.warnings[0].find("must grow on the surface"), std::string::npos);

  Lawn unlinked({quad(0, 0), quad(1, 0)});
  unlinked.parameters()->SetLink(MGrassTagData::MGRASS_SURFACE, nullptr);
  EXPECT_EQ(unlinked.build(), nullptr);
  unlinked.parameters()->SetLink(MGrassTagData::MGRASS_SURFACE, unlinked.hair);
  EXPECT_EQ(unlinked.build(), nullptr);
}

TEST(MGrassTagData, answersTheHairSystemWithItsHook) {
  Lawn lawn({quad(0, 0), quad(1, 0)});
  HairPluginObjectData* hook = nullptr;
  ASSERT_TRUE(lawn.tag->Message(MSG_HAIR_GET_OBJECT_TYPE, &hook));
  ASSERT_NE(hook, nullptr);
  EXPECT_EQ(hook->version, 1000);
  EXPECT_EQ(hook->size, 128);
  EXPECT_EQ(hook->calc_generate, &MGrassTagData::generate);
  // Passes other than 0 and 1 build nothing.
  EXPECT_EQ(hook->calc_generate(&lawn.doc, lawn.tag, lawn.hair, nullptr, nullptr, 2), nullptr);
  EXPECT_EQ(lawn.hair->GetGuides(), nullptr);
}

TEST(MGrassTagData, executeWarnsOnAHairObjectOnly) {
  Lawn lawn({quad(0, 0), quad(1, 0)});
  auto* grass = static_cast<TagData*>(lawn.tag->GetNodeData());
  CapturingConsole console;
  EXPECT_EQ(grass->Execute(lawn.tag, &lawn.doc, lawn.hair, nullptr, 0, 0), 0);
  EXPECT_EQ(grass->Execute(lawn.tag, &lawn.doc, lawn.surface, nullptr, 0, 0), 0);
  EXPECT_EQ(console.lines, std::vector<String>{"Do not use MGras with Hair Object!!!"});
}

// A generator (here a plane primitive) lends the polygons of its cache once a pass built it.
TEST(MGrassTagData, growsOnTheCacheOfALinkedGenerator) {
  Lawn lawn({quad(0, 0)});
  BaseObject* plane = BaseObject::Alloc(Oplane);
  ASSERT_NE(plane, nullptr);
  lawn.doc.InsertObject(plane, nullptr, nullptr);  // first, so its cache exists for the hair
  lawn.hair->GetDataInstance()->SetLink(HAIRSTYLE_LINK, plane);
  lawn.parameters()->SetLink(MGrassTagData::MGRASS_SURFACE, plane);
  const HairGuides* guides = lawn.build();
  ASSERT_NE(guides, nullptr);
  EXPECT_EQ(guides->GetCount(), 2020);
  const PolygonObject* cache = static_cast<const PolygonObject*>(plane->GetCache());
  ASSERT_NE(cache, nullptr);
  const std::vector<Clump> clumps = replay(101, 20, cache);
  expectNearVector(guides->GetPoints()[0], rootOf(cache, clumps[0]) + clumps[0].offsets[0], 1e-9);
}
