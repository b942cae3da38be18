#include "source/CurveMenu.h"

#include <cmath>

#include "core/MathConstants.h"
#include "host/GeResource.h"
#include "source/CurveLimits.h"
#include "source/CurveUnit.h"

using mv::CurveParam;

namespace {

constexpr const char* kGreyed = "&d&";
constexpr const char* kChecked = "&c&";
constexpr Int32 kTitle = 1;
constexpr Int32 kSeparator = 0;
constexpr double kPhi = 3.8832221;  // 360 degrees less the golden angle
const std::string kDegree = "\xC2\xB0";

// One value preset: its entry, its value, its text in percent, meter, none and degree (empty:
// no entry in that unit).
struct Preset {
  Int32 id;
  double value;
  const char* percent;
  const char* meter;
  const char* none;
  const char* degree;
};

const Preset kPresets[] = {
    {900002, kPhi, "", "", "", "222.492 \xC2\xB0 (phi)"},
    {900003, mt::kPi, "", "", "", "180 \xC2\xB0"},
    {900004, mt::kPi / 2, "", "", "", "90 \xC2\xB0"},
    {900005, 2.0, "200 %", "200 m", "2.0", ""},
    {900006, 1.0, "100 %", "100 m", "1.0", ""},
    {900007, 0.5, "50 %", "50 m", "0.5", ""},
    {900008, 0.0, "0 %", "0 m", "0.0", "0 \xC2\xB0"},
    {900009, -0.5, "-50 %", "-50 m", "-0.5", ""},
    {900010, -1.0, "-100 %", "-100 m", "-1.0", ""},
    {900011, -2.0, "-200 %", "-200 m", "-2.0", ""},
    {900012, -mt::kPi / 2, "", "", "", "-90 \xC2\xB0"},
    {900013, -mt::kPi, "", "", "", "-180 \xC2\xB0"},
    {900014, -kPhi, "", "", "", "-222.492 \xC2\xB0 (phi)"},
};

const char* presetText(const Preset& preset, Int32 unit) {
  switch (curveUnitOf(unit)) {
    case UnitPercent:
      return preset.percent;
    case UnitMeter:
      return preset.meter;
    case UnitDegree:
      return preset.degree;
    default:
      return preset.none;
  }
}

const Preset* findPreset(Int32 id) {
  for (const Preset& preset : kPresets) {
    if (preset.id == id) return &preset;
  }
  return nullptr;
}

std::string mark(Int32 text, bool checked, bool greyed = false) {
  return GeLoadString(text) + (checked ? kChecked : "") + (greyed ? kGreyed : "");
}

// The fixed-limit settings of the entries 900028 to 900031.
constexpr Int32 kFixedSettings[] = {3, 2, 1, 0};

}  // namespace

BaseContainer CurveMenu::valuePresets(const CurveParam& curve, Int32 unit) {
  BaseContainer presets;
  presets.SetString(kTitle, GeLoadString(10075));
  for (const Preset& preset : kPresets) {
    const std::string text = presetText(preset, unit);
    if (text.empty()) continue;
    if (CurveLimits::clamp(curve, preset.value) != preset.value) continue;  // outside fixed limits
    presets.SetString(preset.id, text);
  }
  return presets;
}

BaseContainer CurveMenu::forPoint(const CurveParam& curve, Int32 id, Int32 unit) {
  BaseContainer menu;
  menu.SetString(kDelete, mark(10074, false, id < 2));
  BaseContainer types;
  types.SetString(kTitle, GeLoadString(10094));
  const Int32 type = curve.getPointType(id);
  for (Int32 kind = mv::PointCorner; kind <= mv::PointFree; ++kind) {
    types.SetString(kTypeCorner + kind,
                    mark(10095 + kind, type == kind, kind == mv::PointMirrored && id < 2));
  }
  menu.SetContainer(kPointType, types);
  menu.SetContainer(kValues, valuePresets(curve, unit));
  addCommonEntries(curve, menu);
  return menu;
}

BaseContainer CurveMenu::forSpace(const CurveParam& curve) {
  BaseContainer menu;
  BaseContainer add;
  add.SetString(kTitle, GeLoadString(10089));
  for (Int32 kind = mv::PointCorner; kind <= mv::PointFree; ++kind) {
    add.SetString(kAddCorner + kind, GeLoadString(10090 + kind));
  }
  menu.SetContainer(kAddPoint, add);
  addCommonEntries(curve, menu);
  return menu;
}

void CurveMenu::addCommonEntries(const CurveParam& curve, BaseContainer& menu) {
  menu.SetString(kSeparator, "");
  menu.SetString(kToPoints, mark(10099, false, !curve.hasExpression()));
  BaseContainer limits;
  limits.SetString(kTitle, GeLoadString(10100));
  for (Int32 row = 0; row < 4; ++row) {
    limits.SetString(kFixedBoth + row,
                     mark(10101 + row, curve.fixedLimits() == kFixedSettings[row]));
  }
  menu.SetContainer(kFixedLimits, limits);
  menu.SetString(kFitLimits, GeLoadString(10107));
}

bool CurveMenu::contains(const BaseContainer& menu, Int32 choice) {
  for (Int32 index = 0; index < menu.GetCount(); ++index) {
    const Int32 id = menu.GetIndexId(index);
    const GeData* data = menu.GetIndexData(index);
    if (data->GetType() == DA_CONTAINER) {
      if (contains(*data->GetContainer(), choice)) return true;
    } else if (id == choice && id != kTitle && id != kSeparator) {
      return true;
    }
  }
  return false;
}

void CurveMenu::apply(CurveParam& curve, Int32 choice, Int32 id, double x, double y,
                      std::set<Int32>& selection) {
  if (choice == kDelete) {
    curve.deletePoint(id);
    for (Int32 selected : selection) curve.deletePoint(selected);
    selection.clear();
  } else if (choice >= kTypeCorner && choice <= kTypeCorner + mv::PointFree) {
    curve.setPointType(id, choice - kTypeCorner);
  } else if (const Preset* preset = findPreset(choice)) {
    curve.setPointY(id, preset->value);
    CurveLimits::growFree(curve);
  } else if (choice >= kAddCorner && choice <= kAddCorner + mv::PointFree) {
    curve.addPoint(x, y, choice - kAddCorner);
  } else if (choice == kToPoints) {
    curve.resample(20, mv::PointCorner);
  } else if (choice >= kFixedBoth && choice < kFixedBoth + 4) {
    curve.setFixedLimits(kFixedSettings[choice - kFixedBoth]);
  } else if (choice == kFitLimits) {
    curve.fitLimits();
  }
}
