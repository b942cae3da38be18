// Input of the curve area: clicks, drags and the right-click menu.
#include <cmath>

#include "host/InputIds.h"
#include "source/CurveGui.h"
#include "source/CurveLimits.h"
#include "source/CurveMenu.h"

using mv::CurveParam;
using mv::CurvePoint;

namespace {

constexpr double kDragThreshold = 0.0001;

bool hits(int32_t x, int32_t y, int32_t mx, int32_t my) {
  return std::abs(x - mx) < CurveGui::kHitTolerance && std::abs(y - my) < CurveGui::kHitTolerance;
}

bool userControlled(int32_t type) { return type == mv::PointMirrored || type == mv::PointFree; }

}  // namespace

Bool CurveGui::InputEvent(const BaseContainer& msg) {
  if (!curve || msg.GetLong(BFM_INPUT_DEVICE) != BFM_INPUT_MOUSE) return false;
  Int32 x = msg.GetLong(BFM_INPUT_X), y = msg.GetLong(BFM_INPUT_Y);
  Global2Local(&x, &y);
  switch (msg.GetLong(BFM_INPUT_CHANNEL)) {
    case BFM_INPUT_MOUSELEFT:
      return leftPress(msg, x, y);
    case BFM_INPUT_MOUSERIGHT:
      return rightPress(x, y);
    default:
      return false;
  }
}

void CurveGui::notify() {
  BaseContainer action(BFM_ACTION);
  action.SetLong(BFM_ACTION_ID, GetId());
  action.SetLong(BFM_ACTION_VALCHG, 1);
  SendParentMessage(action);
}

CurveGui::Hit CurveGui::hitTest(const CurveScreen& mapping, Int32 x, Int32 y,
                                bool withControls) const {
  for (int index = 0; index < curve->getPointCount(); ++index) {
    const CurvePoint& point = *curve->getPoint(index);
    if (withControls && userControlled(point.type) && selection.count(point.id)) {
      if (hits(mapping.toScreenX(point.inX), mapping.toScreenY(point.inY), x, y)) {
        return {point.id, Hit::In};
      }
      if (hits(mapping.toScreenX(point.outX), mapping.toScreenY(point.outY), x, y)) {
        return {point.id, Hit::Out};
      }
    }
    if (hits(mapping.toScreenX(point.x), mapping.toScreenY(point.y), x, y)) {
      return {point.id, Hit::Point};
    }
  }
  return {};
}

Bool CurveGui::leftPress(const BaseContainer& msg, Int32 x, Int32 y) {
  const CurveScreen mapping = screen();
  if (msg.GetLong(BFM_INPUT_QUALIFIER) & QCTRL) {
    curve->addPoint(mapping.fromScreenX(x), mapping.fromScreenY(y), mv::PointSmooth);
    Redraw();
    notify();
    return true;
  }
  if (msg.GetBool(BFM_INPUT_DOUBLECLICK)) return true;
  const Hit hit = hitTest(mapping, x, y, true);
  if (hit.part == Hit::None) return true;
  if (hit.part == Hit::Point) {
    BaseContainer key;
    if (!GetInputState(BFM_INPUT_KEYBOARD, KEY_EXTEND_SELECTION, key) ||
        !key.GetBool(BFM_INPUT_VALUE)) {
      selection.clear();
    }
    selection.insert(hit.id);
  }
  drag(hit, x, y);
  if (dragging) CurveLimits::growFree(*curve);
  dragging = 0;
  notify();
  return true;
}

// Follows the left button until it is up; each step moves what was grabbed by the mouse's way
// since the last step, point by point, so that a refused point stays while the others go on.
void CurveGui::drag(const Hit& hit, Int32 lastX, Int32 lastY) {
  dragging = hit.part == Hit::Point ? 1 : 0;
  activePoint = hit.id;
  const CurveScreen mapping = screen();
  if (mapping.innerWidth() < 2 || mapping.innerHeight() < 2) return;  // no room to move in
  BaseContainer state;
  while (GetInputState(BFM_INPUT_MOUSE, BFM_INPUT_MOUSELEFT, state) &&
         state.GetBool(BFM_INPUT_VALUE)) {
    Int32 x = state.GetLong(BFM_INPUT_X), y = state.GetLong(BFM_INPUT_Y);
    Global2Local(&x, &y);
    const double dx = static_cast<double>(x - lastX) / (mapping.innerWidth() - 1);
    const double dy = static_cast<double>(y - lastY) / (mapping.innerHeight() - 1);
    const std::set<Int32> moved = hit.part == Hit::Point ? selection : std::set<Int32>{hit.id};
    bool stored = false;
    for (Int32 id : moved) stored = movePoint(id, hit.part, dx, dy) || stored;
    if (stored) Redraw();
    lastX = x;
    lastY = y;
  }
}

bool CurveGui::movePoint(Int32 id, Hit::Part part, double dx, double dy) {
  bool stored = false;
  if (std::fabs(dx) > kDragThreshold) {
    const CurvePoint* point = curve->findPoint(id);
    if (!point) return false;
    CurvePoint moved = *point;
    if (part == Hit::Point) {
      moved.shiftX(dx);
    } else {
      (part == Hit::In ? moved.inX : moved.outX) += dx;
    }
    stored = storeMoved(moved, part);
  }
  if (std::fabs(dy) > kDragThreshold) {
    const CurvePoint* point = curve->findPoint(id);
    if (!point) return stored;
    CurvePoint moved = *point;
    double& grabbed = part == Hit::Point ? moved.y : part == Hit::In ? moved.inY : moved.outY;
    const double target =
        CurveLimits::clamp(*curve, grabbed + (curve->minimum() - curve->maximum()) * dy);
    if (part == Hit::Point) {
      moved.shiftY(target - grabbed);
    } else {
      grabbed = target;
    }
    stored = storeMoved(moved, part) || stored;
  }
  return stored;
}

// A grabbed control of a mirrored point carries the other one along.
bool CurveGui::storeMoved(CurvePoint moved, Hit::Part part) {
  if (part != Hit::Point && moved.type == mv::PointMirrored) {
    const bool in = part == Hit::In;
    (in ? moved.outX : moved.inX) = 2.0 * moved.x - (in ? moved.inX : moved.outX);
    (in ? moved.outY : moved.inY) = 2.0 * moved.y - (in ? moved.inY : moved.outY);
  }
  return curve->setPoint(moved, false);
}

Bool CurveGui::rightPress(Int32 x, Int32 y) {
  const CurveScreen mapping = screen();
  const Hit hit = hitTest(mapping, x, y, false);
  const BaseContainer menu = hit.part == Hit::None ? CurveMenu::forSpace(*curve)
                                                   : CurveMenu::forPoint(*curve, hit.id, unit);
  const Int32 choice = ShowPopupMenu(menu, x, y);
  if (CurveMenu::contains(menu, choice)) {
    CurveMenu::apply(*curve, choice, hit.id, mapping.fromScreenX(x), mapping.fromScreenY(y),
                     selection);
    Redraw();
  }
  notify();
  return true;
}
