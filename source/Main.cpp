#include "source/Main.h"

#include <utility>
#include <vector>

#include "core/MessageSink.h"
#include "core/ProgressSink.h"
#include "host/GeResource.h"
#include "host/HostConsole.h"
#include "host/PluginLoader.h"
#include "host/PluginRegistry.h"
#include "source/About.h"
#include "source/BranchObject.h"
#include "source/C4dMessageHandler.h"
#include "source/C4dProgressHandler.h"
#include "source/CurvatureSplineData.h"
#include "source/CurveGuiData.h"
#include "source/DeviationObject.h"
#include "source/HydraObject.h"
#include "source/InstanceProgress.h"
#include "source/MGrassTag/MGrassTagData.h"
#include "source/MorvoTagData.h"
#include "source/MvrLoader.h"
#include "source/PhyllotaxisObject.h"
#include "source/PluginIds.h"
#include "source/Toolbar.h"
#include "source/TropismObject.h"
#include "source/VariationObject.h"
#include "source/Website.h"

namespace {

constexpr Int32 kMinimumHostVersion = 15000;
constexpr Int32 kPluginVersion = 5;
constexpr Int32 kPriority = 110;
constexpr Int32 kCompanionHello = 1011616;
constexpr Int32 kCompanionAnswer = 1011618;

C4dMessageHandler messageHandler;
C4dProgressHandler progressHandler;
Int32 contactCount = 0;
// False until a first contact from a host recent enough: nothing else is served before.
Bool accepted = false;
String path;
Bool companion = false;

// One class of the plug-in: what registers it, and the console line when that fails.
struct RegistrationRow {
  Bool (*registerClass)();
  const char* failure;
};

// An object or tag class: its description first, then the class under the menu name (a prefix
// that places it in the menu, then its resource string). A class whose string is empty counts as
// registered without being offered.
Bool registerNodeClass(Int32 id, PluginKind kind, const char* prefix, Int32 stringId, Int32 info,
                       DataAllocator* allocator, const char* description) {
  const String text = GeLoadString(stringId);
  if (text.empty()) return true;
  if (!RegisterDescription(id, description)) return false;
  const String name = String(prefix) + text;
  if (kind == PluginKind::Tag) {
    return RegisterTagPlugin(id, name, info, allocator, description, nullptr, 0);
  }
  return RegisterObjectPlugin(id, name, info, allocator, description, nullptr, 0);
}

// A menu command under its prefix and resource string, skipped like a node class when the
// string is empty; the registry takes the command.
Bool registerCommand(Int32 id, const char* prefix, Int32 stringId, CommandData* command) {
  const String text = GeLoadString(stringId);
  if (text.empty()) {
    delete command;
    return true;
  }
  return RegisterCommandPlugin(id, String(prefix) + text, 0, nullptr, String(), command);
}

// The commands of the menu and its separator lines, which are About objects named by their
// prefix alone.
Bool registerCommands() {
  Bool registered = registerCommand(ID_TOOLBAR, "#$06", 10013, new Toolbar);
  registered = registerCommand(ID_WEBSITE, "#$07", 10014, new Website) && registered;
  const std::pair<Int32, const char*> separators[] = {
      {ID_SEPARATOR_1, "#$08--"}, {ID_SEPARATOR_2, "#$13--"}, {ID_SEPARATOR_3, "#$15--"}};
  for (const auto& [id, prefix] : separators) {
    registered = RegisterCommandPlugin(id, prefix, 0, nullptr, String(), new About) && registered;
  }
  return registered;
}

constexpr Int32 kGeneratorInput = OBJECT_GENERATOR | OBJECT_INPUT;
constexpr Int32 kGrassTagInfo = TAG_VISIBLE | TAG_EXPRESSION;
constexpr Int32 kDataTagInfo = TAG_VISIBLE | TAG_HIERARCHICAL | PLUGINFLAG_HIDE;

const std::vector<RegistrationRow>& startRows() {
  static const std::vector<RegistrationRow> rows = {
      {&RegisterCurveDataType, "Morvo Error: no CurveDataType"},
      {[] {
         return registerNodeClass(ID_MORVO_TAG, PluginKind::Tag, "", 10008, kDataTagInfo,
                                  &MorvoTagData::Alloc, "Tmorvodata");
       },
       "Morvo Error: no MorvoTag"},
      {&registerCommands, "Morvo Error: no Commands"},
      {[] {
         return registerNodeClass(ID_BRANCH_OBJECT, PluginKind::Object, "#$09", 10000,
                                  kGeneratorInput, &BranchObject::Alloc, "Obranch");
       },
       "Morvo Error: no BranchObject"},
      {[] {
         return registerNodeClass(ID_PHYLLOTAXIS_OBJECT, PluginKind::Object, "#$10", 10001,
                                  kGeneratorInput, &PhyllotaxisObject::Alloc, "Ophyllotaxis");
       },
       "Morvo Error: no PhyllotaxisObject"},
      {[] {
         return registerNodeClass(ID_VARIATION_OBJECT, PluginKind::Object, "#$12", 10007,
                                  kGeneratorInput, &VariationObject::Alloc, "Ovariation");
       },
       "Morvo Error: no VariationObject"},
      {[] {
         return registerNodeClass(ID_HYDRA_OBJECT, PluginKind::Object, "#$11", 10003,
                                  kGeneratorInput, &HydraObject::Alloc, "Ohydra");
       },
       "Morvo Error: no HydraObject"},
      {[] {
         return registerNodeClass(ID_CURVATURE_SPLINE, PluginKind::Object, "#$13", 10002,
                                  OBJECT_ISSPLINE, &CurvatureSplineData::Alloc, "Ocurvature");
       },
       "Morvo Error: no CurvatureSpline"},
      {[] {
         return registerNodeClass(ID_TROPISM_OBJECT, PluginKind::Object, "#$15", 10005,
                                  OBJECT_MODIFIER, &TropismObject::Alloc, "Otropism");
       },
       "Morvo Error: no TropismObject"},
      {[] {
         return registerNodeClass(ID_DEVIATION_OBJECT, PluginKind::Object, "#$16", 10006,
                                  OBJECT_MODIFIER, &DeviationObject::Alloc, "Odeviation");
       },
       "Morvo Error: no DeviationObject"},
      {[] {
         return registerNodeClass(ID_GRASS_TAG, PluginKind::Tag, "", 10026, kGrassTagInfo,
                                  &MGrassTagData::Alloc, "TMGrassTag");
       },
       "Morvo Error: no MGrassTag"},
  };
  return rows;
}

// The scene loader: its description first (a failure is printed and the registration goes on),
// then the loader; an empty menu string counts as failure here.
Bool registerSceneLoader() {
  if (!RegisterDescription(MvrLoader::kDescriptionId, "Fmvrimport")) GePrint(" ! Fmvrimport ");
  const String text = GeLoadString(10009);
  if (text.empty()) return false;
  return RegisterSceneLoaderPlugin(ID_MVR_LOADER, text, 0, &MvrLoader::Alloc, "Fmvrimport");
}

// Rows after the loaded line: the first that fails stops the start.
const std::vector<RegistrationRow>& finalRows() {
  static const std::vector<RegistrationRow> rows = {
      {[] { return registerCommand(ID_ABOUT, "#$05", 10011, new About); }, ""},
      {&registerSceneLoader, ""},
  };
  return rows;
}

}  // namespace

const String& pluginPath() { return path; }

Bool companionPresent() { return companion; }

Bool PluginStart() {
  mv::messageSink.handler = &messageHandler;
  mv::progressSink.handler = &progressHandler;
  InstanceProgress::current = new InstanceProgress;
  for (const RegistrationRow& row : startRows()) {
    if (!row.registerClass()) GePrint(row.failure);
  }
  GePrint("// Morvo 5.0 (Dec 16 2013) loaded.");
  for (const RegistrationRow& row : finalRows()) {
    if (!row.registerClass()) return false;
  }
  return true;
}

Bool PluginMessage(Int32 id, void* data) {
  switch (id) {
    case C4DMSG_PRIORITY:
      if (data != nullptr) *static_cast<Int32*>(data) = kPriority;
      return true;
    case C4DPL_INIT_SYS:
      return GeResource::Init(Filename(path) + "res");
    case kCompanionHello:
      SpecialEventAdd(kCompanionAnswer, 0);
      companion = true;
      return true;
    case C4DPL_ENDACTIVITY:
      return true;
    default:
      return false;
  }
}

void PluginEnd() {
  delete InstanceProgress::current;
  InstanceProgress::current = nullptr;
}

Int32 c4d_main(Int32 action, void* p1, void* p2, void* p3) {
  switch (action) {
    case PLUGIN_ACTION_CONTACT: {
      if (++contactCount > 1) return accepted ? 1 : -3;
      const auto* table = static_cast<const HostFunctionTable*>(p1);
      if (table == nullptr || table->version < kMinimumHostVersion || p3 == nullptr) return -3;
      path = *static_cast<const String*>(p3);
      accepted = true;
      return 1;
    }
    case PLUGIN_ACTION_START:
      return accepted && PluginStart() ? 1 : 0;
    case PLUGIN_ACTION_END:
      if (contactCount > 0 && --contactCount == 0) {
        accepted = false;
        PluginEnd();
        path.clear();
      }
      return 1;
    case PLUGIN_ACTION_VERSION:
      return kPluginVersion;
    case PLUGIN_ACTION_MESSAGE:
      if (!accepted) return -1;
      return PluginMessage(static_cast<Int32>(reinterpret_cast<intptr_t>(p1)), p2) ? 1 : -1;
    default:
      return -1;
  }
}
