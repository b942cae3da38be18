// CustomDataTypeClass: what a plug-in registers to make a value kind of its own: how the host
// allocates, frees, copies, compares and stores a value of it, and how its parts show as
// sub-parameters. The host calls these operations; a container holding such a value owns it.
#pragma once

#include "host/CustomDataType.h"
#include "host/DescID.h"
#include "host/HostTypes.h"

class AliasTrans;
class BaseContainer;
class Description;
class GeData;
class HyperFile;

// One row of a type's property table; a row of zeros ends the table.
struct CustomProperty {
  Int32 type = 0;
  Int32 id = 0;
  const char* ident = nullptr;
};

class CustomDataTypeClass {
 public:
  virtual ~CustomDataTypeClass() = default;
  virtual Int32 GetId() = 0;
  virtual CustomDataType* AllocData() = 0;
  virtual void FreeData(CustomDataType* data) = 0;
  virtual Bool CopyData(const CustomDataType* source, CustomDataType* target,
                        AliasTrans* aliastrans) = 0;
  // 0 when equal, 1 when different.
  virtual Int32 Compare(const CustomDataType* a, const CustomDataType* b) = 0;
  virtual Bool WriteData(const CustomDataType* data, HyperFile* file) = 0;
  virtual Bool ReadData(CustomDataType* data, HyperFile* file, Int32 level) = 0;
  virtual const char* GetResourceSym() { return ""; }
  virtual CustomProperty* GetProperties() { return nullptr; }
  virtual void GetDefaultProperties(BaseContainer& /*data*/) {}
  virtual Bool GetDescription(const CustomDataType* /*data*/, Description& /*description*/,
                              DESCFLAGS_DESC& /*flags*/, const BaseContainer& /*parent*/,
                              DescID* /*single*/) {
    return true;
  }
  virtual Bool GetParameter(const CustomDataType* /*data*/, const DescID& /*id*/, GeData& /*value*/,
                            DESCFLAGS_GET& /*flags*/) {
    return true;
  }
  virtual Bool SetDParameter(CustomDataType* /*data*/, const DescID& /*id*/,
                             const GeData& /*value*/, DESCFLAGS_SET& /*flags*/) {
    return true;
  }

  // The level that WriteData writes, given at registration.
  Int32 GetDiskLevel() const { return diskLevel_; }
  void SetDiskLevel(Int32 level) { diskLevel_ = level; }

 private:
  Int32 diskLevel_ = 0;
};
