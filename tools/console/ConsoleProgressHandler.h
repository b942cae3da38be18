// ConsoleProgressHandler: a progress bar on a terminal. On anything that is not a terminal it
// draws nothing, so that logs and pipes stay clean. Cancellation is not offered.
#pragma once

#include <iostream>

#include "core/ProgressHandler.h"

class ConsoleProgressHandler : public mv::ProgressHandler {
 public:
  // isTerminal: whether out is an interactive terminal; see isStandardErrorTerminal().
  ConsoleProgressHandler(std::ostream& out, bool isTerminal) : out_(out), active_(isTerminal) {}

  static bool isStandardErrorTerminal();

  // Draws nothing from now on (morvo -q).
  void hide();
  // Erases the bar so that a message can take the line; the next progress draws it again.
  void clearLine();

  void start() override {}
  void finish() override;
  void spin() override;
  void setProgress(double value) override;
  bool isCancelled() override { return false; }

 private:
  static constexpr int kBarWidth = 40;

  std::ostream& out_;
  bool active_;
  int shownPercent_ = -1;
  int spinPhase_ = 0;
  bool drawn_ = false;  // something of the bar or the spinner stands on the line
};
