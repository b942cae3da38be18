// MGrassTagData: the grass tag. Hung on a hair object and linked to a polygon object, it fills
// the hair's guides with grass blades scattered in clumps over that object's polygons (or over
// the polygons of a linked generator's cache), the same lawn at every build. The hair system calls
// its generate function in two passes: pass 0 reads the parameters, pass 1 builds the guides.
#pragma once

#include "host/HairGuides.h"
#include "host/HairObject.h"
#include "host/Random.h"
#include "host/TagData.h"

class BaseDocument;
class PolygonObject;

class MGrassTagData : public TagData {
 public:
  // Parameter ids of the tag's container.
  enum : Int32 {
    MGRASS_SURFACE = 1000,
    MGRASS_HAIRCOUNT = 1001,
    MGRASS_SEGMENTS = 1002,
    MGRASS_LENGTH = 1003,
    MGRASS_LENGTHVARIATION = 1004,
    MGRASS_NOISEAMOUNT = 1005,
    MGRASS_CLUMPSIZE = 1006,
  };
  static constexpr Int32 kSeed = 84564;
  // Guards against runaway allocations: no lawn holds more guide points than the host's guides.
  static constexpr Int64 kMaxGuidePoints = Int64(1) << 24;

  MGrassTagData();
  static NodeData* Alloc();

  Bool Init(GeListNode* node) override;
  // Answers the hair system's request for the hook with the address of `hook`.
  Bool Message(GeListNode* node, Int32 type, void* data) override;
  EXECUTIONRESULT Execute(BaseTag* tag, BaseDocument* doc, BaseObject* op, BaseThread* thread,
                          Int32 priority, Int32 flags) override;

  // The hair system's entry: pass 0 reads the parameters and returns null, pass 1 returns the
  // guides it built (owned by the hair object), other passes null.
  static HairGuides* generate(BaseDocument* doc, BaseList2D* tag, HairObject* hair,
                              BaseThread* thread, void* renderData, Int32 pass);

  // The blade count for a count asked for: rounded up to the next multiple of clumpSize, a
  // multiple gaining a whole clump (2000 in clumps of 20 gives 2020).
  static Int64 roundedHairCount(Int64 hairCount, Int64 clumpSize);

 private:
  Bool readParameters(BaseList2D* tag, BaseDocument* doc);
  HairGuides* buildGuides(HairObject* hair);
  // The polygon index and the position in it of the next clump's root.
  void chooseRoot(Int32 polygonCount, Int32& polygon, Float& s, Float& t);
  void writeBlade(Vector* points, Int32 polygon, Float s, Float t, Int32 k, const Vector& position,
                  Vector& direction);

  HairPluginObjectData hook;
  PolygonObject* surface = nullptr;
  Int32 hairCount = 0;
  Int32 clumpSize = 0;
  Float segments = 0.0, length = 0.0, lengthVariation = 0.0, noiseAmount = 0.0;
  Random random;
};
