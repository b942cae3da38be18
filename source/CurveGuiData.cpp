#include "source/CurveGuiData.h"

#include <new>

#include "host/CustomGuiLibrary.h"
#include "host/GeResource.h"
#include "host/PluginRegistry.h"
#include "source/CurveDataType.h"
#include "source/CurveDataTypeClass.h"
#include "source/CurveStorage.h"
#include "source/iCurveGui.h"

namespace {

constexpr Int32 kTypeInfo = 7;
constexpr Int32 kGuiInfo = 1;
constexpr Int32 kTypeName = 10028;  // the resource string that names the type
constexpr Int32 kLibraryVersion = 1000;

}  // namespace

Int32 CurveGuiData::GetId() { return CURVE_GUI_ID; }

CDialog* CurveGuiData::Alloc(const BaseContainer& settings) {
  iCurveGui* gui = new (std::nothrow) iCurveGui(settings);
  return gui ? gui->Get() : nullptr;
}

void CurveGuiData::Free(CDialog* dialog, void* gui) {
  if (!dialog || !gui) return;
  delete static_cast<iCurveGui*>(gui);
}

Int32 CurveGuiData::GetResourceDataType(Int32*& table) {
  static Int32 types[] = {CURVE_TYPE_ID};
  table = types;
  return 1;
}

Bool RegisterCurveDataType() {
  const String name = GeLoadString(kTypeName);
  if (name.empty()) return true;
  RegisterDescription(CURVE_TYPE_ID, "Dcurve");
  if (!RegisterCustomDataTypePlugin(name, kTypeInfo, new CurveDataTypeClass,
                                    CurveStorage::kLevel)) {
    return false;
  }
  CustomGuiLibrary library;
  FillCustomGuiLibrary(library);
  if (!InstallLibrary(CURVE_GUI_ID, &library, kLibraryVersion, sizeof library)) return false;
  return RegisterCustomGuiPlugin("CurveGuiData", kGuiInfo, new CurveGuiData);
}
