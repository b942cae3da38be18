// CustomGuiData: the base of a registered editor for parameters of custom data types: the host
// asks it for a dialog over a settings container and hands the dialog back to free it.
#pragma once

#include "host/CustomDataTypeClass.h"

class CDialog;

class CustomGuiData {
 public:
  virtual ~CustomGuiData() = default;
  virtual Int32 GetId() = 0;
  virtual CDialog* Alloc(const BaseContainer& settings) = 0;
  virtual void Free(CDialog* dialog, void* userdata) = 0;
  virtual const char* GetResourceSym() { return ""; }
  virtual CustomProperty* GetProperties() { return nullptr; }
  // The data types the editor shows: a table and its length.
  virtual Int32 GetResourceDataType(Int32*& table) {
    table = nullptr;
    return 0;
  }
};
