// CurvePicture: a curve drawn as its editor shows it, written as a PNG, for the commands that
// show curves.
#pragma once

#include <string>
#include <vector>

#include "curves/CurveParam.h"

struct CurvePicture {
  std::string path;
  int width = 280, height = 120;
  int unit = 0;                // a CurveUnit, for the value tag
  std::vector<int> selection;  // ids of the points drawn selected
  int tag = -1;                // id of the point whose value tag is drawn, or -1

  static constexpr int kMinSize = 16;

  // Draws the curve, its limits grown around its points as after an edit; throws with a
  // message when the tagged point does not exist or the file cannot be written.
  void draw(const mv::CurveParam& curve) const;
};
