#include "source/CurveDataTypeClass.h"

#include <new>

#include "host/BaseContainer.h"
#include "host/Description.h"
#include "host/GeData.h"
#include "host/HostIds.h"
#include "source/CurveComparison.h"
#include "source/CurveDescription.h"
#include "source/CurveStorage.h"
#include "source/CurveSubParameters.h"
#include "source/HyperFileCurveStream.h"

namespace {

constexpr Int32 kPropertyInteger = 2;
constexpr Int32 kPropertyFlag = 1;
// Keys of a parameter's settings: its editor and whether it may be animated.
constexpr Int32 kKeyGui = 21;
constexpr Int32 kKeyAnimate = 10;
constexpr Int32 kKeyChoices = 14;

const mv::CurveParam* curveOf(const CustomDataType* data) {
  return static_cast<const CurveDataType*>(data);
}

mv::CurveParam* curveOf(CustomDataType* data) { return static_cast<CurveDataType*>(data); }

// The sub-parameter number: the first level of the id, 0 for the whole curve.
Int32 numberOf(const DescID& id) { return id.GetDepth() > 0 ? id[0].id : 0; }

CurveSubValue subValueOf(const GeData& value) {
  switch (value.GetType()) {
    case DA_LONG:
      return CurveSubValue::ofInteger(value.GetInt32());
    case DA_REAL:
      return CurveSubValue::ofReal(value.GetFloat());
    case DA_STRING:
      return CurveSubValue::ofText(value.GetString());
    default:
      return CurveSubValue();
  }
}

GeData geDataOf(const CurveSubValue& value) {
  switch (value.kind) {
    case CurveSubValue::Integer:
      return GeData(value.integer);
    case CurveSubValue::Text:
      return GeData(value.text);
    default:
      return GeData(value.real);
  }
}

// The settings of a description entry in the host's container.
BaseContainer settingsOf(const CurveDescriptionEntry& entry) {
  BaseContainer settings;
  settings.SetString(DESC_NAME, entry.name);
  settings.SetString(DESC_SHORT_NAME, entry.name);
  for (const auto& [key, value] : entry.reals) settings.SetReal(key, value);
  for (const auto& [key, value] : entry.integers) settings.SetLong(key, value);
  for (const auto& [key, value] : entry.flags) settings.SetBool(key, value);
  if (!entry.choices.empty()) {
    BaseContainer choices;
    for (const auto& [key, text] : entry.choices) choices.SetString(key, text);
    settings.SetContainer(kKeyChoices, choices);
  }
  return settings;
}

}  // namespace

CustomDataType* CurveDataTypeClass::AllocData() { return new (std::nothrow) CurveDataType(); }

void CurveDataTypeClass::FreeData(CustomDataType* data) {
  delete static_cast<CurveDataType*>(data);
}

Bool CurveDataTypeClass::CopyData(const CustomDataType* source, CustomDataType* target,
                                  AliasTrans*) {
  if (!source || !target) return false;
  *curveOf(target) = *curveOf(source);
  return true;
}

Int32 CurveDataTypeClass::Compare(const CustomDataType* a, const CustomDataType* b) {
  return CurveComparison::compare(a ? curveOf(a) : nullptr, b ? curveOf(b) : nullptr);
}

Bool CurveDataTypeClass::WriteData(const CustomDataType* data, HyperFile* file) {
  if (!data || !file) return false;
  HyperFileCurveStream stream(*file);
  return CurveStorage::write(*curveOf(data), stream);
}

Bool CurveDataTypeClass::ReadData(CustomDataType* data, HyperFile* file, Int32 level) {
  if (!data || !file) return false;
  HyperFileCurveStream stream(*file);
  return CurveStorage::read(*curveOf(data), stream, level);
}

CustomProperty* CurveDataTypeClass::GetProperties() {
  static CustomProperty properties[] = {
      {kPropertyInteger, CURVE_UNIT, "UNIT"},
      {kPropertyFlag, CURVE_FIXEDLIMITS, "FIXEDLIMITS"},
      {0, 0, nullptr},
  };
  return properties;
}

void CurveDataTypeClass::GetDefaultProperties(BaseContainer& data) {
  data.SetLong(kKeyGui, CURVE_GUI_ID);
  data.SetLong(kKeyAnimate, 1);
  data.SetLong(CURVE_UNIT, 0);
  data.SetBool(CURVE_FIXEDLIMITS, false);
}

Bool CurveDataTypeClass::GetDescription(const CustomDataType* data, Description& description,
                                        DESCFLAGS_DESC& flags, const BaseContainer& parent,
                                        DescID* single) {
  if (data) {
    const DescID root(DescLevel(CurveDescription::kRoot));
    for (const CurveDescriptionEntry& entry :
         CurveDescription::entries(*curveOf(data), parent.GetLong(CURVE_UNIT))) {
      description.SetParameter(DescID(DescLevel(entry.number, entry.kind, CURVE_TYPE_ID)),
                               settingsOf(entry), root);
    }
  }
  flags |= DESCFLAGS_DESC_LOADED;
  return CustomDataTypeClass::GetDescription(data, description, flags, parent, single);
}

Bool CurveDataTypeClass::GetParameter(const CustomDataType* data, const DescID& id, GeData& value,
                                      DESCFLAGS_GET& flags) {
  const Int32 number = numberOf(id);
  if (data && number == 0) {
    value = GeData(CURVE_TYPE_ID, *data);
    flags |= DESCFLAGS_GET_PARAM_GET;
  } else if (data) {
    CurveSubValue part;
    if (CurveSubParameters::get(*curveOf(data), number, part)) {
      value = geDataOf(part);
      flags |= DESCFLAGS_GET_PARAM_GET;
    }
  }
  return CustomDataTypeClass::GetParameter(data, id, value, flags);
}

Bool CurveDataTypeClass::SetDParameter(CustomDataType* data, const DescID& id, const GeData& value,
                                       DESCFLAGS_SET& flags) {
  const Int32 number = numberOf(id);
  if (data && number == 0) {
    if (const CustomDataType* curve = value.GetCustomDataType(CURVE_TYPE_ID)) {
      *curveOf(data) = *curveOf(curve);
    }
  } else if (data) {
    CurveSubParameters::set(*curveOf(data), number, subValueOf(value));
  }
  flags |= DESCFLAGS_SET_PARAM_SET;
  return CustomDataTypeClass::SetDParameter(data, id, value, flags);
}
