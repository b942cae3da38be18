// MvrRange: a scene-file value that runs from start to end through a named function, with the
// limits min and max; it becomes a curve parameter when a scene is loaded. The function text is
// in the classic syntax ("id", "cos", "frame(x)*2", ...).
#pragma once

#include <string>
#include <utility>

namespace mv {

struct MvrRange {
  double start = 0.0;
  double end = 0.0;
  double min = 0.0;
  double max = 1.0;
  std::string function = "id";

  MvrRange() = default;
  // Arguments in the order of the file: start,end,"function",min,max.
  MvrRange(double startValue, double endValue, std::string functionText, double minValue,
           double maxValue)
      : start(startValue),
        end(endValue),
        min(minValue),
        max(maxValue),
        function(std::move(functionText)) {}
};

}  // namespace mv
