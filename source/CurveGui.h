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
  // A left press selects or adds a point and drags it (or a control point) while the button is
  // held; a right press shows the menu. The parent hears of every press it takes, but of a left
  // press on empty space. Any other event, or any event without a curve, is refused.
  Bool InputEvent(const BaseContainer& msg) override;

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

  // What a press hit: a point, or one of its control points.
  struct Hit {
    enum Part { None, Point, In, Out };
    Int32 id = 0;
    Part part = None;
  };

  static Edges edges();
  void notify();
  Hit hitTest(const CurveScreen& screen, Int32 x, Int32 y, bool withControls) const;
  Bool leftPress(const BaseContainer& msg, Int32 x, Int32 y);
  Bool rightPress(Int32 x, Int32 y);
  void drag(const Hit& hit, Int32 lastX, Int32 lastY);
  // One step of a drag for one point; true when the curve took a change.
  bool movePoint(Int32 id, Hit::Part part, double dx, double dy);
  bool storeMoved(mv::CurvePoint moved, Hit::Part part);
  void drawCurve(const CurveScreen& screen, const Edges& edges);
  void drawZeroLine(const CurveScreen& screen, const Edges& edges);
  void drawPoint(const CurveScreen& screen, const Edges& edges, int index);
  void drawDisabledPoint(const CurveScreen& screen, const Edges& edges, int index);
  void drawValueTag(const CurveScreen& screen);
  // A filled rectangle cut to the inner area.
  void fillClipped(const Edges& edges, int32_t x1, int32_t y1, int32_t x2, int32_t y2);
};
