// CurveEditScript: edits of a curve in its editor, recorded as text and played against the
// editor's area, so that edits can be scripted and repeated. One step a line; '#' starts a
// comment; pixels count from the area's top left corner:
//
//   size W H                          the area's size (default 280 45; 16 to 8192 each)
//   click X Y [ctrl] [extend]         a left press at (X, Y), let go at once
//   drag X Y X1 Y1 [X2 Y2 ...] [extend]  a left press at (X, Y), held through (X1, Y1), ...
//   menu X Y ENTRY                    a right press and the menu entry chosen (0: dismissed)
//
// "ctrl" holds the key that adds a point, "extend" the one that extends the selection. The
// selection carries from step to step, as in the editor.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "curves/CurveParam.h"
#include "host/HostTypes.h"

class CurveEditScript {
 public:
  static constexpr Int32 kMinSize = 16;
  static constexpr Int32 kMaxSize = 8192;
  static constexpr Int32 kMaxEntry = 1 << 30;
  static constexpr Int32 kMaxCoordinate = 100000;

  // False with a message that names the line when a line is not a step.
  bool parse(const std::string& text, std::string& error);
  // Plays the steps on the curve, the values shown in the given CurveUnit; the number of steps
  // that the area took.
  int play(mv::CurveParam& curve, Int32 unit) const;

 private:
  struct Step {
    enum Kind { Size, Click, Drag, Menu };
    Kind kind = Click;
    std::vector<std::pair<Int32, Int32>> points;
    Int32 entry = 0;
    bool ctrl = false, extend = false;
  };

  static bool parseLine(const std::vector<std::string>& words, Step& step, std::string& problem);
  static bool parseSize(const std::vector<std::string>& words, Step& step, std::string& problem);
  static bool parseMenu(const std::vector<std::string>& words, Step& step, std::string& problem);
  static bool parsePress(const std::vector<std::string>& words, Step& step, std::string& problem);
  static bool parseFlags(const std::vector<std::string>& words, size_t from, Step& step,
                         std::string& problem);

  std::vector<Step> steps_;
};
