#include "source/MGrassTag/MGrassTagData.h"

#include <string>

#include "core/MessageSink.h"
#include "host/BaseContainer.h"
#include "host/BaseObject.h"
#include "host/BaseTag.h"
#include "host/HairObject.h"
#include "host/HostConsole.h"
#include "host/Noise.h"
#include "host/PolygonObject.h"

namespace {

constexpr Int32 kHookVersion = 1000;
constexpr Int32 kHookSize = 128;
constexpr Int32 kRootOnPolygon = 2;
constexpr Float kBladeScatter = 5.0;  // scene units around the clump's root
constexpr Float kSag = 20.0;

void warn(const String& text) { mv::messageSink.warning("Grass: " + text); }

// The polygon object to grow on: the linked object itself, or the polygons a generator (a plane
// primitive, say) built as its cache; null for anything else.
PolygonObject* polygonsOf(BaseObject* linked) {
  if (linked && !linked->IsInstanceOf(Opolygon)) linked = linked->GetCache();
  return linked && linked->IsInstanceOf(Opolygon) ? static_cast<PolygonObject*>(linked) : nullptr;
}

}  // namespace

MGrassTagData::MGrassTagData() : hook() {
  hook.version = kHookVersion;
  hook.size = kHookSize;
  random.Init(100);
}

NodeData* MGrassTagData::Alloc() { return new MGrassTagData; }

Bool MGrassTagData::Init(GeListNode* node) {
  BaseContainer* data = static_cast<BaseList2D*>(node)->GetDataInstance();
  data->SetLink(MGRASS_SURFACE, nullptr);
  data->SetLong(MGRASS_HAIRCOUNT, 2000);
  data->SetLong(MGRASS_SEGMENTS, 6);
  data->SetReal(MGRASS_LENGTH, 10.0);
  data->SetReal(MGRASS_LENGTHVARIATION, 5.0);
  data->SetReal(MGRASS_NOISEAMOUNT, 0.1);
  data->SetLong(MGRASS_CLUMPSIZE, 20);
  return true;
}

Bool MGrassTagData::Message(GeListNode* node, Int32 type, void* data) {
  if (type == MSG_HAIR_GET_OBJECT_TYPE && data != nullptr) {
    hook.calc_generate = &MGrassTagData::generate;
    *static_cast<HairPluginObjectData**>(data) = &hook;
    return true;
  }
  return TagData::Message(node, type, data);
}

EXECUTIONRESULT MGrassTagData::Execute(BaseTag* /*tag*/, BaseDocument* /*doc*/, BaseObject* op,
                                       BaseThread* /*thread*/, Int32 /*priority*/,
                                       Int32 /*flags*/) {
  if (op != nullptr && op->GetType() == Ohair) GePrint("Do not use MGras with Hair Object!!!");
  return 0;
}

HairGuides* MGrassTagData::generate(BaseDocument* doc, BaseList2D* tag, HairObject* hair,
                                    BaseThread* /*thread*/, void* /*renderData*/, Int32 pass) {
  auto* self = tag == nullptr ? nullptr : dynamic_cast<MGrassTagData*>(tag->GetNodeData());
  if (self == nullptr) return nullptr;
  if (pass == 0) {
    if (!self->readParameters(tag, doc)) self->surface = nullptr;
    return nullptr;
  }
  return pass == 1 ? self->buildGuides(hair) : nullptr;
}

Int64 MGrassTagData::roundedHairCount(Int64 hairCount, Int64 clumpSize) {
  return hairCount + clumpSize - hairCount % clumpSize;
}

// False, with a warning where the user set something that cannot grow, when pass 1 must give
// no guides.
Bool MGrassTagData::readParameters(BaseList2D* tag, BaseDocument* doc) {
  const BaseContainer* data = tag->GetDataInstance();
  surface = polygonsOf(data->GetObjectLink(MGRASS_SURFACE, doc));
  if (surface == nullptr) return false;
  hairCount = data->GetLong(MGRASS_HAIRCOUNT);
  clumpSize = data->GetLong(MGRASS_CLUMPSIZE);
  segments = data->GetLong(MGRASS_SEGMENTS);
  length = data->GetReal(MGRASS_LENGTH);
  lengthVariation = data->GetReal(MGRASS_LENGTHVARIATION);
  noiseAmount = data->GetReal(MGRASS_NOISEAMOUNT);
  if (clumpSize < 1 || segments < 1 || hairCount < 0) {
    warn("the blade count, the clump size and the segments must be positive");
    return false;
  }
  const Int64 rounded = roundedHairCount(hairCount, clumpSize);
  if (rounded * (Int64(segments) + 1) > kMaxGuidePoints) {
    warn(std::to_string(rounded) + " blades of " + std::to_string(Int64(segments)) +
         " segments are more than a lawn can hold");
    return false;
  }
  hairCount = Int32(rounded);
  return true;
}

HairGuides* MGrassTagData::buildGuides(HairObject* hair) {
  if (surface == nullptr || hair == nullptr) return nullptr;
  const Int32 polygonCount = surface->GetPolygonCount();
  if (surface->GetPointR() == nullptr || surface->GetPolygonR() == nullptr || polygonCount < 1) {
    warn("the surface " + surface->GetName() + " has no polygons to grow on");
    return nullptr;
  }
  HairGuides* built = HairGuides::Alloc(hairCount, Int32(segments));
  if (built == nullptr) {
    warn(std::to_string(hairCount) + " blades are more than the hair object can hold");
    return nullptr;
  }
  hair->SetGuides(built, false);
  HairGuides* guides = hair->GetGuides();
  Vector* points = guides->GetPoints();
  const Int32 pointsPerBlade = Int32(segments) + 1;
  random.Init(kSeed);
  for (Int32 clumpStart = 0; clumpStart < hairCount * pointsPerBlade;
       clumpStart += pointsPerBlade * clumpSize) {
    Int32 polygon = 0;
    Float s = 0.0, t = 0.0;
    chooseRoot(polygonCount, polygon, s, t);
    HairRootData root;
    root.m_Type = kRootOnPolygon;
    root.m_ID = polygon;
    root.m_S = s;
    root.m_T = t;
    guides->SetRoot(0, root, false);
    Vector position, normal;
    if (!guides->GetRootData(0, &position, &normal)) {
      warn("the hair object " + hair->GetName() + " must grow on the surface " +
           surface->GetName() + " as well");
      hair->SetGuides(nullptr, false);
      return nullptr;
    }
    Vector direction = normal;
    for (Int32 k = 0; k < clumpSize; ++k) {
      writeBlade(points + clumpStart + k * pointsPerBlade, polygon, s, t, k, position, direction);
    }
  }
  return guides;
}

// The last polygon is never chosen: the index is cut toward zero from a range one short.
void MGrassTagData::chooseRoot(Int32 polygonCount, Int32& polygon, Float& s, Float& t) {
  polygon = Int32(random.Get01() * (polygonCount - 1));
  const CPolygon& corners = surface->GetPolygonR()[polygon];
  do {
    s = random.Get01();
    t = random.Get01();
  } while (corners.c == corners.d && s + t > 1.0);
}

// Blade k of a clump. The direction carries over from the blade before, so the noise wanders
// from it and the clump fans out.
void MGrassTagData::writeBlade(Vector* points, Int32 polygon, Float s, Float t, Int32 k,
                               const Vector& position, Vector& direction) {
  direction.x += Noise(Vector(polygon, s, t)) * noiseAmount;
  direction.y += Noise(Vector(k, polygon, t)) * noiseAmount;
  direction.z += Noise(Vector(polygon, s, k)) * noiseAmount;
  const Float bladeLength = random.Get11() * lengthVariation + length;
  direction = direction.GetNormalized() * bladeLength;
  Vector sag;
  Vector offset;
  offset.x = random.Get11() * kBladeScatter;
  offset.y = random.Get11() * kBladeScatter;
  offset.z = random.Get11() * kBladeScatter;
  const Int32 pointsPerBlade = Int32(segments) + 1;
  const Float step = 1.0 / (pointsPerBlade - 1);
  for (Int32 j = 0; j < pointsPerBlade; ++j) {
    const Float f = j * step;
    points[j] = position + offset + direction * f + sag;
    sag.y -= f * f * step * kSag;
  }
}
