#include "host/HostTypeTable.h"

#include <utility>

#include "host/DeformerGrid.h"
#include "host/HairGenerator.h"
#include "host/HostIds.h"
#include "host/InstanceObject.h"
#include "host/PluginRegistry.h"
#include "host/PrimitiveObject.h"
#include "host/SplinePrimitiveObject.h"
#include "host/SweepObject.h"

namespace {

void addType(Int32 id, PluginKind kind, const char* word, Int32 info,
             DataAllocator* allocator = nullptr) {
  PluginEntry entry;
  entry.id = id;
  entry.kind = kind;
  entry.name = word;
  entry.description = word;
  entry.info = info;
  entry.allocator = allocator;
  PluginRegistry::Add(entry);
}

}  // namespace

void HostTypeTable::AddAll() {
  const Int32 points = OBJECT_POINTOBJECT;
  addType(Onull, PluginKind::Object, "Onull", 0);
  addType(Opolygon, PluginKind::Object, "Opolygon", points | OBJECT_POLYGONOBJECT);
  addType(Ospline, PluginKind::Object, "Ospline", points | OBJECT_ISSPLINE);
  addType(Oline, PluginKind::Object, "Oline", points);
  for (auto [id, word] : {std::pair{Ocube, "Ocube"},
                          {Osphere, "Osphere"},
                          {Ocone, "Ocone"},
                          {Ocylinder, "Ocylinder"},
                          {Odisc, "Odisc"},
                          {Oplane, "Oplane"}}) {
    addType(id, PluginKind::Object, word, OBJECT_GENERATOR, PrimitiveObject::Alloc);
  }
  for (auto [id, word] : {std::pair{Osplinecircle, "Osplinecircle"},
                          {Osplinenside, "Osplinenside"},
                          {Osplinearc, "Osplinearc"}}) {
    addType(id, PluginKind::Object, word, OBJECT_ISSPLINE, SplinePrimitiveObject::Alloc);
  }

  addType(Osweep, PluginKind::Object, "Osweep", OBJECT_GENERATOR | OBJECT_INPUT,
          SweepObject::Alloc);
  addType(Oinstance, PluginKind::Object, "Oinstance", OBJECT_GENERATOR, InstanceObject::Alloc);
  addType(Offd, PluginKind::Object, "Offd", points | OBJECT_GENERATOR | OBJECT_INPUT,
          DeformerGrid::Alloc);

  addType(Ohair, PluginKind::Object, "Ohair", OBJECT_GENERATOR, HairGenerator::Alloc);

  addType(Tphong, PluginKind::Tag, "Tphong", TAG_VISIBLE);
  addType(Tdisplay, PluginKind::Tag, "Tdisplay", TAG_VISIBLE | TAG_HIERARCHICAL);
  addType(Ttexture, PluginKind::Tag, "Ttexture", TAG_VISIBLE | TAG_MULTIPLE | TAG_HIERARCHICAL);
  addType(Tuvw, PluginKind::Tag, "Tuvw", TAG_VISIBLE);
  addType(Tsegment, PluginKind::Tag, "Tsegment", 0);
  addType(Tline, PluginKind::Tag, "Tline", 0);
  addType(Tpolygonselection, PluginKind::Tag, "Tpolygonselection", TAG_VISIBLE | TAG_MULTIPLE);
  addType(Tpointselection, PluginKind::Tag, "Tpointselection", TAG_VISIBLE | TAG_MULTIPLE);

  addType(Mmaterial, PluginKind::Material, "Mmaterial", 0);
}
