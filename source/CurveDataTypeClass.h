// CurveDataTypeClass: tells the host how to allocate, copy, compare and store a curve, and shows
// the curve's parts (limits, expression, each point with its control points) as sub-parameters
// that the host can list, read and set one by one.
#pragma once

#include "host/CustomDataTypeClass.h"
#include "source/CurveDataType.h"

class CurveDataTypeClass : public CustomDataTypeClass {
 public:
  Int32 GetId() override { return CURVE_TYPE_ID; }
  // A default curve, or null when memory runs out.
  CustomDataType* AllocData() override;
  void FreeData(CustomDataType* data) override;
  Bool CopyData(const CustomDataType* source, CustomDataType* target,
                AliasTrans* aliastrans) override;
  Int32 Compare(const CustomDataType* a, const CustomDataType* b) override;
  // Level 3; false when either argument is null.
  Bool WriteData(const CustomDataType* data, HyperFile* file) override;
  // Levels 1 to 3; any other level reports and keeps the curve (true).
  Bool ReadData(CustomDataType* data, HyperFile* file, Int32 level) override;
  const char* GetResourceSym() override { return "CURVE"; }
  CustomProperty* GetProperties() override;
  void GetDefaultProperties(BaseContainer& data) override;
  Bool GetDescription(const CustomDataType* data, Description& description, DESCFLAGS_DESC& flags,
                      const BaseContainer& parent, DescID* single) override;
  Bool GetParameter(const CustomDataType* data, const DescID& id, GeData& value,
                    DESCFLAGS_GET& flags) override;
  Bool SetDParameter(CustomDataType* data, const DescID& id, const GeData& value,
                     DESCFLAGS_SET& flags) override;
};
