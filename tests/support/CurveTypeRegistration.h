// registerCurveTypeForTests: makes the curve a value kind of the host for the life of the test
// program, so that containers and values can hold curves.
#pragma once

#include "host/PluginRegistry.h"
#include "source/CurveDataTypeClass.h"
#include "source/CurveStorage.h"

inline void registerCurveTypeForTests() {
  static const bool registered =
      PluginRegistry::FindCustomDataType(CURVE_TYPE_ID) ||
      RegisterCustomDataTypePlugin("Curve", 7, new CurveDataTypeClass, CurveStorage::kLevel);
  (void)registered;
}
