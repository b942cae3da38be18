// CurveScreen: the mapping between a curve's (x, y) and the pixels of its editor's area. x runs
// over the inner width, y from maximum at the top to minimum at the bottom.
#pragma once

#include <cstdint>

class CurveScreen {
 public:
  // The area's size, the edges of its border and the curve's limits.
  CurveScreen(int32_t width, int32_t height, int32_t left, int32_t top, int32_t right,
              int32_t bottom, double minimum, double maximum);

  // Pixels, cut toward zero; values beyond any screen (or not a number) land far outside it.
  int32_t toScreenX(double x) const;
  int32_t toScreenY(double y) const;
  double fromScreenX(int32_t px) const;
  double fromScreenY(int32_t py) const;

  // The inner size, without the border.
  int32_t innerWidth() const { return innerWidth_; }
  int32_t innerHeight() const { return innerHeight_; }

 private:
  static int32_t toPixel(double value);

  int32_t left_, top_, bottom_;
  int32_t innerWidth_, innerHeight_;
  double minimum_, maximum_;
};
