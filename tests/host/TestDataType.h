// TestDataType: a custom data type of the tests' own, a list of numbers, registered once under
// kTestDataTypeId so that containers, parameters and files can carry it.
#pragma once

#include <vector>

#include "host/CustomDataTypeClass.h"
#include "host/GeData.h"
#include "host/HyperFile.h"
#include "host/PluginRegistry.h"

constexpr Int32 kTestDataTypeId = 1999001;

struct NumberList : CustomDataType {
  std::vector<Float> values;
};

class NumberListClass : public CustomDataTypeClass {
 public:
  Int32 GetId() override { return kTestDataTypeId; }
  CustomDataType* AllocData() override { return new NumberList(); }
  void FreeData(CustomDataType* data) override { delete data; }
  Bool CopyData(const CustomDataType* source, CustomDataType* target, AliasTrans*) override {
    if (!source || !target) return false;
    static_cast<NumberList*>(target)->values = static_cast<const NumberList*>(source)->values;
    return true;
  }
  Int32 Compare(const CustomDataType* a, const CustomDataType* b) override {
    return static_cast<const NumberList*>(a)->values == static_cast<const NumberList*>(b)->values
               ? 0
               : 1;
  }
  // Level 1: count, then each value.
  Bool WriteData(const CustomDataType* data, HyperFile* file) override {
    const auto& values = static_cast<const NumberList*>(data)->values;
    file->WriteInt32(static_cast<Int32>(values.size()));
    for (Float v : values) file->WriteFloat64(v);
    return true;
  }
  Bool ReadData(CustomDataType* data, HyperFile* file, Int32 level) override {
    Int32 count = 0;
    if (level != 1 || !file->ReadInt32(&count) || count < 0 || count > 1000) return false;
    auto& values = static_cast<NumberList*>(data)->values;
    values.assign(count, 0.0);
    for (Float& v : values) {
      if (!file->ReadFloat64(&v)) return false;
    }
    return true;
  }
  const char* GetResourceSym() override { return "NUMBERS"; }
  // Sub-parameter n (from 1) is the n-th value.
  Bool SetDParameter(CustomDataType* data, const DescID& id, const GeData& value,
                     DESCFLAGS_SET& flags) override {
    auto& values = static_cast<NumberList*>(data)->values;
    Int32 index = id[0].id - 1;
    if (index < 0 || index >= static_cast<Int32>(values.size())) return true;
    values[index] = value.GetFloat();
    flags |= DESCFLAGS_SET_PARAM_SET;
    return true;
  }
};

inline void registerTestDataType() {
  static const bool registered =
      RegisterCustomDataTypePlugin("Numbers", 0, new NumberListClass(), 1);
  (void)registered;
}

inline NumberList numberList(std::vector<Float> values) {
  NumberList list;
  list.values = std::move(values);
  return list;
}
