// CurveMenu: the right-click menu of the curve area and what its entries do. On a point: delete,
// point type and value presets; on empty space: add a point of a type; on both: expression to
// points, which limits are fixed, and fit limits. A text ending in "&d&" is greyed, in "&c&"
// checked; a nested container is a submenu with its title under key 1; key 0 is a separator.
#pragma once

#include <set>

#include "curves/CurveParam.h"
#include "host/BaseContainer.h"

class CurveMenu {
 public:
  static constexpr Int32 kDelete = 900000;
  static constexpr Int32 kValues = 900001;
  static constexpr Int32 kAddPoint = 900015;
  static constexpr Int32 kAddCorner = 900016;  // to 900019, one per point type
  static constexpr Int32 kPointType = 900021;
  static constexpr Int32 kTypeCorner = 900022;  // to 900025, one per point type
  static constexpr Int32 kToPoints = 900026;
  static constexpr Int32 kFixedLimits = 900027;
  static constexpr Int32 kFixedBoth = 900028;  // to 900031: fixed limits 3, 2, 1, 0
  static constexpr Int32 kFitLimits = 900035;

  // The menu on the point with that id, its presets in the given CurveUnit.
  static BaseContainer forPoint(const mv::CurveParam& curve, Int32 id, Int32 unit);
  // The menu on empty space.
  static BaseContainer forSpace(const mv::CurveParam& curve);
  // Whether choice is an entry of the menu or of one of its submenus.
  static bool contains(const BaseContainer& menu, Int32 choice);
  // Carries out a choice made on the point with that id (or on space at (x, y)).
  static void apply(mv::CurveParam& curve, Int32 choice, Int32 id, double x, double y,
                    std::set<Int32>& selection);

 private:
  static BaseContainer valuePresets(const mv::CurveParam& curve, Int32 unit);
  static void addCommonEntries(const mv::CurveParam& curve, BaseContainer& menu);
};
