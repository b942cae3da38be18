#include "source/CurveEditScript.h"

#include <sstream>

#include "host/InputIds.h"
#include "source/CurveGui.h"

namespace {

constexpr Int32 kDefaultWidth = 280, kDefaultHeight = 45;

// integer := ['-'] digits, within -limit to limit.
bool integer(const std::string& word, Int32 limit, Int32& value) {
  size_t used = 0;
  long long parsed = 0;
  try {
    parsed = std::stoll(word, &used);
  } catch (const std::exception&) {
    return false;
  }
  if (used != word.size() || parsed < -limit || parsed > limit) return false;
  value = static_cast<Int32>(parsed);
  return true;
}

bool coordinates(const std::vector<std::string>& words, size_t from, size_t count,
                 std::vector<std::pair<Int32, Int32>>& points) {
  for (size_t i = from; i + 1 < from + count; i += 2) {
    Int32 x = 0, y = 0;
    if (!integer(words[i], CurveEditScript::kMaxCoordinate, x) ||
        !integer(words[i + 1], CurveEditScript::kMaxCoordinate, y)) {
      return false;
    }
    points.emplace_back(x, y);
  }
  return true;
}

BaseContainer pressAt(Int32 channel, const std::pair<Int32, Int32>& at, bool ctrl) {
  BaseContainer event;
  event.SetLong(BFM_INPUT_DEVICE, BFM_INPUT_MOUSE);
  event.SetLong(BFM_INPUT_CHANNEL, channel);
  event.SetLong(BFM_INPUT_VALUE, 1);
  event.SetLong(BFM_INPUT_QUALIFIER, ctrl ? QCTRL : 0);
  event.SetLong(BFM_INPUT_X, at.first);
  event.SetLong(BFM_INPUT_Y, at.second);
  return event;
}

}  // namespace

// flags := { "ctrl" | "extend" }
bool CurveEditScript::parseFlags(const std::vector<std::string>& words, size_t from, Step& step,
                                 std::string& problem) {
  for (size_t i = from; i < words.size(); ++i) {
    if (words[i] == "ctrl" && step.kind == Step::Click) {
      step.ctrl = true;
    } else if (words[i] == "extend") {
      step.extend = true;
    } else {
      problem = "unexpected \"" + words[i] + "\"";
      return false;
    }
  }
  return true;
}

// step := size W H | click X Y flags | drag X Y X Y {X Y} flags | menu X Y ENTRY
bool CurveEditScript::parseLine(const std::vector<std::string>& words, Step& step,
                                std::string& problem) {
  if (words[0] == "size") return parseSize(words, step, problem);
  if (words[0] == "menu") return parseMenu(words, step, problem);
  if (words[0] == "click" || words[0] == "drag") return parsePress(words, step, problem);
  problem = "unknown step \"" + words[0] + "\" (size, click, drag, menu)";
  return false;
}

bool CurveEditScript::parseSize(const std::vector<std::string>& words, Step& step,
                                std::string& problem) {
  step.kind = Step::Size;
  Int32 width = 0, height = 0;
  if (words.size() != 3 || !integer(words[1], kMaxSize, width) ||
      !integer(words[2], kMaxSize, height) || width < kMinSize || height < kMinSize) {
    problem = "size is W H, each " + std::to_string(kMinSize) + " to " + std::to_string(kMaxSize);
    return false;
  }
  step.points.emplace_back(width, height);
  return true;
}

bool CurveEditScript::parseMenu(const std::vector<std::string>& words, Step& step,
                                std::string& problem) {
  step.kind = Step::Menu;
  problem = "menu is X Y ENTRY";
  return words.size() == 4 && coordinates(words, 1, 2, step.points) &&
         integer(words[3], kMaxEntry, step.entry);
}

// A click takes one pixel, a drag two or more; the flags follow them.
bool CurveEditScript::parsePress(const std::vector<std::string>& words, Step& step,
                                 std::string& problem) {
  step.kind = words[0] == "click" ? Step::Click : Step::Drag;
  size_t end = 1;
  while (end < words.size() && words[end] != "ctrl" && words[end] != "extend") ++end;
  const size_t numbers = end - 1;
  const bool counted = step.kind == Step::Click ? numbers == 2 : numbers >= 4 && numbers % 2 == 0;
  problem = step.kind == Step::Click ? "click is X Y [ctrl] [extend]"
                                     : "drag is X Y X1 Y1 [X2 Y2 ...] [extend]";
  return counted && coordinates(words, 1, numbers, step.points) &&
         parseFlags(words, end, step, problem);
}

bool CurveEditScript::parse(const std::string& text, std::string& error) {
  steps_.clear();
  std::istringstream lines(text);
  std::string line;
  for (int number = 1; std::getline(lines, line); ++number) {
    line = line.substr(0, line.find('#'));
    std::istringstream in(line);
    std::vector<std::string> words;
    for (std::string word; in >> word;) words.push_back(word);
    if (words.empty()) continue;
    Step step;
    std::string problem;
    if (!parseLine(words, step, problem)) {
      error = "line " + std::to_string(number) + ": " + problem;
      steps_.clear();
      return false;
    }
    steps_.push_back(std::move(step));
  }
  return true;
}

int CurveEditScript::play(mv::CurveParam& curve, Int32 unit) const {
  CurveGui gui;
  gui.SetSize(kDefaultWidth, kDefaultHeight);
  gui.curve = &curve;
  gui.unit = unit;
  int taken = 0;
  for (const Step& step : steps_) {
    if (step.kind == Step::Size) {
      gui.SetSize(step.points[0].first, step.points[0].second);
      continue;
    }
    gui.setKeyDown(KEY_EXTEND_SELECTION, step.extend);
    gui.scriptMousePath({step.points.begin() + 1, step.points.end()});
    if (step.kind == Step::Menu) gui.scriptMenuChoice(step.entry);
    const Int32 channel = step.kind == Step::Menu ? BFM_INPUT_MOUSERIGHT : BFM_INPUT_MOUSELEFT;
    taken += gui.InputEvent(pressAt(channel, step.points[0], step.ctrl)) ? 1 : 0;
  }
  return taken;
}
