// CustomDataType: the base of a value of a data type that a plug-in registers. The host keeps
// such values in containers and moves them only through their class (CustomDataTypeClass).
#pragma once

class CustomDataType {
 public:
  virtual ~CustomDataType() = default;
};
