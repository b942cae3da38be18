#include "commands/CurvePicture.h"

#include <stdexcept>

#include "host/DrawingRaster.h"
#include "source/CurveGui.h"

void CurvePicture::draw(const mv::CurveParam& shown) const {
  mv::CurveParam curve = shown;
  curve.growLimits();
  CurveGui gui;
  gui.SetSize(width, height);
  gui.curve = &curve;
  gui.unit = unit;
  gui.showFormula = CurveGui::showsFormula(curve);
  gui.selection.insert(selection.begin(), selection.end());
  if (tag >= 0) {
    if (!curve.findPoint(tag)) throw std::runtime_error("no point with id " + std::to_string(tag));
    gui.dragging = 1;
    gui.activePoint = tag;
  }
  gui.Redraw();
  DrawingRaster raster(width, height);
  raster.draw(gui.drawing());
  if (!raster.writePng(path)) throw std::runtime_error("cannot write \"" + path + "\"");
}
