// CurveGui: the graph of a curve parameter in the attribute panel. It draws the curve filled
// down to the lower edge, the zero line, the "f(x)" mark of an expression, the points (selected
// ones with their control points) and, while a point is dragged, a tag with its value; it takes
// clicks, drags and right-click menus that edit the curve.
#pragma once

#include <cstdint>
#include <set>

#include "curves/CurveParam.h"
#include "host/GeUserArea.h"
#include "source/CurveScreen.h"

class CurveGui : public GeUserArea {
 public:
  static constexpr int32_t kBorderStyle = 1;
  static constexpr int32_t kHitTolerance = 5;
  static constexpr int32_t kPointHalfSize = 2;

  void DrawMsg(int32_t x1, int32_t y1, int32_t x2, int32_t y2) override;

  // Whether a curve's expression earns the mark: a text other than the pass-through "id".
  static bool showsFormula(const mv::CurveParam& curve);

  // The mapping of the area as it stands now, with the curve's limits.
  CurveScreen screen() const;

  int32_t showFormula = 0;          // non-zero draws the mark "f(x)"
  int32_t mixedValues = 0;          // non-zero: the panel's objects hold different curves
  int32_t unit = 0;                 // a CurveUnit
  mv::CurveParam* curve = nullptr;  // not owned
  int32_t dragging = 0;             // non-zero while a point (not a control point) is dragged
  std::set<int32_t> selection;
  int32_t activePoint = 0;

 private:
  struct Edges {
    int32_t left, top, right, bottom;
  };

  static Edges edges();
  void drawCurve(const CurveScreen& screen, const Edges& edges);
  void drawZeroLine(const CurveScreen& screen, const Edges& edges);
  void drawPoint(const CurveScreen& screen, const Edges& edges, int index);
  void drawDisabledPoint(const CurveScreen& screen, const Edges& edges, int index);
  void drawValueTag(const CurveScreen& screen);
  // A filled rectangle cut to the inner area.
  void fillClipped(const Edges& edges, int32_t x1, int32_t y1, int32_t x2, int32_t y2);
};
