#include "source/InterimCurveType.h"

#include <string>

#include "host/CustomDataTypeClass.h"
#include "host/PluginRegistry.h"
#include "source/PluginIds.h"

namespace {

class InterimCurveClass : public CustomDataTypeClass {
 public:
  Int32 GetId() override { return ID_CURVE_DATA_TYPE; }
  CustomDataType* AllocData() override { return new InterimCurve; }
  void FreeData(CustomDataType* data) override { delete data; }
  Bool CopyData(const CustomDataType* source, CustomDataType* target, AliasTrans*) override {
    if (source == nullptr || target == nullptr) return false;
    static_cast<mv::CurveParam&>(*static_cast<InterimCurve*>(target)) =
        *static_cast<const InterimCurve*>(source);
    return true;
  }
  Int32 Compare(const CustomDataType* a, const CustomDataType* b) override {
    return a == b ? 0 : 1;
  }
  Bool WriteData(const CustomDataType*, HyperFile*) override { return false; }
  Bool ReadData(CustomDataType*, HyperFile*, Int32) override { return false; }
};

}  // namespace

Bool RegisterInterimCurveType() {
  return RegisterCustomDataTypePlugin("Curve", 0, new InterimCurveClass, 3);
}
