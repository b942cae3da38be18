#include "source/CurveGui.h"

#include <algorithm>

#include "source/CurveUnit.h"

using mv::CurvePoint;

CurveGui::Edges CurveGui::edges() {
  Edges result{};
  GetBorderSize(kBorderStyle, result.left, result.top, result.right, result.bottom);
  return result;
}

CurveScreen CurveGui::screen() const {
  const Edges e = edges();
  return CurveScreen(GetWidth(), GetHeight(), e.left, e.top, e.right, e.bottom,
                     curve ? curve->minimum() : 0.0, curve ? curve->maximum() : 1.0);
}

bool CurveGui::showsFormula(const mv::CurveParam& curve) {
  std::string text;
  curve.getExpression(text);
  return !text.empty() && text != "id" && text != "id(x)";
}

void CurveGui::DrawMsg(int32_t, int32_t, int32_t, int32_t) {
  if (!curve) return;
  const Edges e = edges();
  const CurveScreen mapping = screen();
  OffScreenOn();
  DrawSetPen(mixedValues ? PaletteMixedBackground : PaletteBackground);
  DrawRectangle(0, 0, GetWidth() - 1, GetHeight() - 1);
  if (!mixedValues) {
    drawCurve(mapping, e);
    drawZeroLine(mapping, e);
    if (showFormula) {
      DrawSetTextCol(
          IsEnabled() ? DrawColor::ofRgb(1.0, 0.0, 0.0) : DrawColor::ofPalette(PaletteDisabledText),
          DrawColor::ofPalette(PaletteTransparent));
      DrawText("f(x)", 3, 3);
    }
    for (int index = 0; index < curve->getPointCount(); ++index) {
      if (IsEnabled()) {
        drawPoint(mapping, e, index);
      } else {
        drawDisabledPoint(mapping, e, index);
      }
    }
    if (dragging) drawValueTag(mapping);
  }
  DrawBorder(kBorderStyle, 0, 0, GetWidth() - 1, GetHeight() - 1);
}

// The drawn curve without its expression, column by column: enabled, the area below it filled;
// disabled, an etched line (dark, then light one pixel lower right).
void CurveGui::drawCurve(const CurveScreen& mapping, const Edges& e) {
  const int passes = IsEnabled() ? 1 : 2;
  for (int pass = 0; pass < passes; ++pass) {
    if (IsEnabled()) {
      DrawSetPen(0.5, 0.5, 0.5);
    } else {
      DrawSetPen(pass == 0 ? PaletteEdgeDark : PaletteEdgeLight);
    }
    int32_t previous = 0;
    for (int32_t px = e.left - 1; px < GetWidth() - e.right; ++px) {
      const double u = static_cast<double>(px - e.left) / mapping.innerWidth();
      const int32_t sy = mapping.toScreenY(curve->evaluateCurve(u));
      if (px >= e.left) {
        if (IsEnabled()) {
          DrawLine(px, GetHeight() - e.bottom, px, sy);
        } else if (pass == 0) {
          DrawLine(px - 1, previous, px, sy);
        } else {
          DrawLine(px, previous + 1, px + 1, sy + 1);
        }
      }
      previous = sy;
    }
  }
}

void CurveGui::drawZeroLine(const CurveScreen& mapping, const Edges& e) {
  const int32_t sy = mapping.toScreenY(0.0);
  const int32_t height = mapping.innerHeight();
  if (sy > 0 && sy < height) {
    DrawSetPen(IsEnabled() ? PaletteZeroLine : PaletteEdgeDark);
    DrawLine(e.left, sy, GetWidth() - e.right, sy);
  }
  if (!IsEnabled() && sy >= 0 && sy + 1 < height) {
    DrawSetPen(PaletteEdgeLight);
    DrawLine(e.left, sy + 1, GetWidth() - e.right, sy + 1);
  }
}

void CurveGui::fillClipped(const Edges& e, int32_t x1, int32_t y1, int32_t x2, int32_t y2) {
  x1 = std::max(x1, e.left);
  y1 = std::max(y1, e.top);
  x2 = std::min(x2, GetWidth() - e.right);
  y2 = std::min(y2, GetHeight() - e.bottom);
  if (x1 <= x2 && y1 <= y2) DrawRectangle(x1, y1, x2, y2);
}

void CurveGui::drawPoint(const CurveScreen& mapping, const Edges& e, int index) {
  const CurvePoint& point = *curve->getPoint(index);
  const bool first = index == 0, last = index + 1 == curve->getPointCount();
  const bool selected = selection.count(point.id) != 0;
  const int32_t sx = mapping.toScreenX(point.x), sy = mapping.toScreenY(point.y);
  const int32_t ix = mapping.toScreenX(point.inX), iy = mapping.toScreenY(point.inY);
  const int32_t ox = mapping.toScreenX(point.outX), oy = mapping.toScreenY(point.outY);
  if (selected && point.type != mv::PointCorner) {
    DrawSetPen(0.0, 0.0, 0.0);
    if (!first) DrawLine(sx, sy, ix, iy);
    if (!last) DrawLine(sx, sy, ox, oy);
  }
  if (-2 < sx && sx < GetWidth() + 2 && -2 < sy && sy < GetHeight() + 2) {
    if (selected) {
      DrawSetPen(1.0, 0.4, 0.0);
    } else {
      DrawSetPen(0.0, 0.0, 0.0);
    }
    fillClipped(e, sx - 1, sy - kPointHalfSize, sx + 1, sy + kPointHalfSize);
    fillClipped(e, sx - kPointHalfSize, sy - 1, sx + kPointHalfSize, sy + 1);
  }
  if (selected && (point.type == mv::PointMirrored || point.type == mv::PointFree)) {
    DrawSetPen(0.0, 0.0, 0.0);
    if (!first) fillClipped(e, ix - 1, iy - 1, ix + 1, iy + 1);
    if (!last) fillClipped(e, ox - 1, oy - 1, ox + 1, oy + 1);
  }
}

void CurveGui::drawDisabledPoint(const CurveScreen& mapping, const Edges& e, int index) {
  const CurvePoint& point = *curve->getPoint(index);
  const int32_t sx = mapping.toScreenX(point.x), sy = mapping.toScreenY(point.y);
  if (!(-2 < sx && sx < GetWidth() + 1 && -2 < sy && sy < GetHeight() + 1)) return;
  DrawSetPen(PaletteEdgeLight);
  fillClipped(e, sx, sy, sx + 2, sy + 2);
  DrawSetPen(PaletteEdgeDark);
  fillClipped(e, sx - 1, sy - 1, sx + 1, sy + 1);
}

// "[x | y]" beside the dragged point, kept inside the area.
void CurveGui::drawValueTag(const CurveScreen& mapping) {
  const CurvePoint* point = curve->findPoint(activePoint);
  if (!point) return;
  const int32_t sx = mapping.toScreenX(point->x);
  int32_t sy = mapping.toScreenY(point->y);
  const std::string text =
      "[" + curveNumberText(point->x) + " | " + curveValueText(unit, point->y) + "]";
  DrawSetTextCol(DrawColor::ofPalette(PaletteText), DrawColor::ofPalette(PaletteTransparent));
  int32_t offset = 0;
  if (DrawGetFontHeight() + sy > mapping.innerHeight()) {
    sy -= DrawGetFontHeight();
  } else {
    offset = 10;
  }
  const int32_t width = DrawGetTextWidth(text);
  const int32_t x = width + sx + offset > mapping.innerWidth() ? sx - width : sx + offset;
  DrawText(text, x, sy);
}
