#include "source/MvrLoader.h"

#include <cstdint>
#include <map>
#include <string>

#include "classic/SceneGraph.h"
#include "core/EHierarchyHelp.h"
#include "core/MathConstants.h"
#include "core/ProgressSink.h"
#include "curves/ParameterSetData.h"
#include "geometry/OPolygonStream.h"
#include "host/BaseContainer.h"
#include "host/BaseDocument.h"
#include "host/BaseList2D.h"
#include "host/BaseMaterial.h"
#include "host/Description.h"
#include "host/DescriptionResource.h"
#include "host/GeResource.h"
#include "host/HostConsole.h"
#include "host/HostIds.h"
#include "host/PluginRegistry.h"
#include "host/PolygonObject.h"
#include "host/SelectionTag.h"
#include "host/TextureTag.h"
#include "host/UVWTag.h"
#include "scene/MvrSceneLoader.h"
#include "source/C4dMvrLoader.h"
#include "source/C4dPolygonMesh.h"
#include "source/Main.h"

namespace {

constexpr double kPhongAngle = 89.0 * mv::kPi / 180.0;

// Keys of a description entry's settings beside its names.
enum : Int32 {
  DescKind = 10,
  DescMinimum = 11,
  DescMaximum = 12,
  DescStep = 13,
  DescUnit = 14,
  DescCycle = 15,
};
constexpr Int32 kUnitMetres = 0x66726561;

// Resource strings of the form.
enum : Int32 {
  StringImportMode = 10108,
  StringCompanionMode0 = 10109,
  StringCompanionMode1 = 10110,
  StringGenerators = 10111,
  StringPolygons = 10112,
  StringUnit = 10113,
};

BaseContainer* settingsOf(GeListNode* node) {
  auto* list = dynamic_cast<BaseList2D*>(node);
  return list ? list->GetDataInstance() : nullptr;
}

BaseContainer namedEntry(Int32 kind, Int32 nameString) {
  BaseContainer entry;
  entry.SetLong(DescKind, kind);
  entry.SetString(DESC_NAME, GeLoadString(nameString));
  entry.SetString(DESC_SHORT_NAME, GeLoadString(nameString));
  return entry;
}

// The selection tag of the object named after a material index, or null.
SelectionTag* selectionOfIndex(BaseObject* object, int index) {
  for (Int32 nr = 0;; ++nr) {
    auto* tag = static_cast<SelectionTag*>(object->GetTag(Tpolygonselection, nr));
    if (!tag) return nullptr;
    if (tag->GetName() == std::to_string(index)) return tag;
  }
}

// Moves the texture corners of the selected polygons into the material's texture frame.
void applyTextureTransform(BaseObject* object, const BaseSelect& selection,
                           const mv::MvrMaterial& material) {
  auto* uvw = static_cast<UVWTag*>(object->GetTag(Tuvw));
  if (!uvw) return;
  const mv::Vector3& scale = material.textureScale;
  const mv::Vector3& offset = material.textureOffset;
  const auto move = [&](Vector& corner) {
    corner.x = corner.x / scale.x - offset.x;
    corner.y = corner.y / scale.y - offset.y;
  };
  for (Int32 polygon : selection.GetSelected()) {
    if (polygon >= uvw->GetDataCount()) continue;
    UVWStruct corners = uvw->GetSlow(polygon);
    for (Vector* corner : {&corners.a, &corners.b, &corners.c, &corners.d}) move(*corner);
    uvw->SetSlow(polygon, corners);
  }
}

// Each material of the scene that the mesh uses: its selection renamed, its texture corners
// moved, a host material and a texture tag restricted to the selection.
void landMaterials(PolygonObject* object, BaseDocument* doc, const Filename& name,
                   const BaseContainer& data, const std::map<int, mv::MvrMaterial>& materials) {
  for (const auto& [index, material] : materials) {
    SelectionTag* selection = selectionOfIndex(object, index);
    if (!selection) continue;
    selection->SetName(material.name);
    applyTextureTransform(object, *selection->GetBaseSelect(), material);
    BaseMaterial* host = C4dMvrLoader::makeHostMaterial(name, &data, material);
    if (!host) continue;
    doc->InsertMaterial(host);
    if (TextureTag* tag = C4dMvrLoader::makeTextureTag(host, {0, 0, 0}, {1, -1, 1}, material.name))
      object->InsertTag(tag);
  }
}

}  // namespace

void MvrLoader::initSettings(BaseContainer& settings) {
  settings.SetBool(IdTextureSampling, false);
  settings.SetBool(IdImportFlag1001, false);
  settings.SetBool(IdTextureMix, false);
  settings.SetBool(IdAlphaFromImage, true);
  settings.SetLong(IdImportMode, ModePolygons);
  settings.SetLong(IdImportOption2002, 1);
  settings.SetLong(IdCircleMode, 1);
  settings.SetBool(IdPerfectSpheres, false);
  settings.SetBool(IdFractionalCurvature, false);
  settings.SetBool(IdHornKnotPath, false);
  settings.SetBool(IdTreeKnotPath, false);
  settings.SetLong(IdImportOption2010, 0);
  settings.SetReal(IdUnit, 100.0);
}

void MvrLoader::copySettings(const BaseContainer& settings, mv::ParameterSetData& out) {
  for (Int32 id : {IdTextureSampling, IdImportFlag1001, IdTextureMix, IdAlphaFromImage,
                   IdPerfectSpheres, IdFractionalCurvature, IdHornKnotPath, IdTreeKnotPath})
    out.setBool(id, settings.GetBool(id));
  for (Int32 id : {IdImportMode, IdImportOption2002, IdCircleMode, IdImportOption2010})
    out.setInt(id, settings.GetLong(id));
  out.setDouble(IdUnit, settings.GetReal(IdUnit, 100.0));
  // Attractor values: nothing in the form sets them, an absent id reads as 0.
  out.setDouble(mv::MvrLoader::IdAttractorA, settings.GetReal(mv::MvrLoader::IdAttractorA));
  out.setDouble(mv::MvrLoader::IdAttractorB, settings.GetReal(mv::MvrLoader::IdAttractorB));
  out.setInt(mv::MvrLoader::IdAttractorMode, settings.GetLong(mv::MvrLoader::IdAttractorMode));
}

Bool MvrLoader::Init(GeListNode* node) {
  BaseContainer* settings = settingsOf(node);
  if (!settings) return false;
  initSettings(*settings);
  return true;
}

Bool MvrLoader::GetDDescription(GeListNode*, Description* description, DESCFLAGS_DESC& flags) {
  if (!description) return false;
  if (const DescriptionResource* resource = PluginRegistry::FindDescription(kDescriptionId)) {
    for (const DescriptionResource::Parameter& parameter : resource->GetParameters()) {
      BaseContainer entry;
      entry.SetString(DESC_NAME, parameter.name);
      entry.SetString(DESC_SHORT_NAME, parameter.name);
      description->SetParameter(DescID(parameter.id), entry, DescID(kSettingsGroup));
    }
  }
  BaseContainer mode = namedEntry(DA_LONG, StringImportMode);
  BaseContainer cycle;
  if (companionPresent()) {
    cycle.SetString(0, GeLoadString(StringCompanionMode0));
    cycle.SetString(1, GeLoadString(StringCompanionMode1));
  }
  cycle.SetString(ModePolygons, GeLoadString(StringPolygons));
  cycle.SetString(ModeGenerators, GeLoadString(StringGenerators));
  mode.SetContainer(DescCycle, cycle);
  description->SetParameter(DescID(IdImportMode), mode, DescID(kSettingsGroup));
  BaseContainer unit = namedEntry(DA_REAL, StringUnit);
  unit.SetReal(DescMinimum, 0.0);
  unit.SetReal(DescMaximum, 10000.0);
  unit.SetReal(DescStep, 1.0);
  unit.SetLong(DescUnit, kUnitMetres);
  description->SetParameter(DescID(IdUnit), unit, DescID(kSettingsGroup));
  flags |= DESCFLAGS_DESC_LOADED;
  return true;
}

Bool MvrLoader::GetDEnabling(GeListNode* node, const DescID& id, const GeData&, DESCFLAGS_ENABLE,
                             const BaseContainer*) {
  const BaseContainer* settings = settingsOf(node);
  const Int32 mode = settings ? settings->GetLong(IdImportMode) : 0;
  const Int32 which = id.GetDepth() > 0 ? id[0].id : 0;
  if (which == IdImportOption2002 || (which >= IdCircleMode && which <= IdImportOption2010))
    return mode == ModeGenerators;
  if (which == IdUnit) return mode == ModePolygons || mode == ModeGenerators;
  return true;
}

Bool MvrLoader::Identify(BaseSceneLoader* node, const Filename& name, UChar* probe, Int32 size) {
  BaseContainer* settings = node ? node->GetDataInstance() : nullptr;
  if (companionPresent() && settings && settings->GetLong(IdImportMode) < ModePolygons) {
    SpecialEventAdd(kCompanionEvent, reinterpret_cast<std::uintptr_t>(settings));
    return false;
  }
  if (!name.CheckSuffix("mvr")) return false;
  C4dMvrLoader test(name, nullptr, 0, settings);
  return test.identify(reinterpret_cast<const char*>(probe), size > 0 ? size : 0);
}

Int32 MvrLoader::Load(BaseSceneLoader* node, const Filename& name, BaseDocument* doc,
                      Int32 filterflags, String*, BaseThread*) {
  BaseContainer* data = node ? node->GetDataInstance() : nullptr;
  if (!data || !doc) return FILEERROR_OPEN;
  if (data->GetLong(IdImportMode) < ModePolygons && !companionPresent())
    data->SetLong(IdImportMode, ModePolygons);
  mv::ParameterSetData settings;
  copySettings(*data, settings);
  switch (data->GetLong(IdImportMode)) {
    case ModePolygons:
      return importPolygons(name, doc, *data, settings);
    case ModeGenerators:
      return importGenerators(name, doc, filterflags, *data, settings);
    default:
      GePrint("Morvo Import Error: Unknown Import Mode");
      return FILEERROR_NONE;
  }
}

// The classic scene evaluated once into one polygon object. A file that fails leaves an empty
// graph, and nothing is inserted.
Int32 MvrLoader::importPolygons(const Filename& name, BaseDocument* doc, const BaseContainer& data,
                                mv::ParameterSetData& settings) {
  mv::SceneGraph graph;
  mv::MvrSceneLoader loader(&graph);
  loader.load(settings, name.GetString());
  graph.printTree(0);
  C4dPolygonMesh mesh;
  {
    mv::OPolygonStream stream(&mesh, true);
    mv::EHierarchyHelp help;
    help.progress = mv::progressSink.handler;
    graph.evaluate(help, stream);
    stream.flush();
  }
  PolygonObject* object = mesh.detach();
  if (!object) return FILEERROR_NONE;
  landMaterials(object, doc, name, data, loader.materialsByIndex);
  object->SetName(name.GetFile().GetString());
  object->SetPhong(true, false, kPhongAngle);
  doc->InsertObject(object, nullptr, nullptr);
  return FILEERROR_NONE;
}

Int32 MvrLoader::importGenerators(const Filename& name, BaseDocument* doc, Int32 filterflags,
                                  BaseContainer& data, mv::ParameterSetData& settings) {
  C4dMvrLoader loader(name, doc, static_cast<std::uint32_t>(filterflags), &data);
  if (!loader.load(settings, name.GetString())) return FILEERROR_WRONG_VALUE;
  for (BaseObject* top = doc->GetFirstObject(); top; top = top->GetNext())
    C4dMvrLoader::fitDeformGrids(top, doc);
  return FILEERROR_NONE;
}
