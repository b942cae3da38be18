#include "console/ConsoleProgressHandler.h"

#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <string>

bool ConsoleProgressHandler::isStandardErrorTerminal() { return isatty(STDERR_FILENO) == 1; }

void ConsoleProgressHandler::hide() {
  clearLine();
  active_ = false;
}

void ConsoleProgressHandler::clearLine() {
  if (!active_ || !drawn_) return;
  out_ << '\r' << std::string(kBarWidth + 8, ' ') << '\r';
  out_.flush();
  shownPercent_ = -1;
  drawn_ = false;
}

void ConsoleProgressHandler::finish() { clearLine(); }

void ConsoleProgressHandler::spin() {
  if (!active_) return;
  static const char kPhases[] = {'|', '/', '-', '\\'};
  out_ << '\r' << kPhases[spinPhase_++ % 4];
  out_.flush();
  drawn_ = true;
}

// Redraws only when the whole percent changes, so that tight loops do not flood the terminal.
void ConsoleProgressHandler::setProgress(double value) {
  if (!active_ || std::isnan(value)) return;
  const double clamped = std::clamp(value, 0.0, 1.0);
  const int percent = static_cast<int>(clamped * 100.0);
  if (percent == shownPercent_) return;
  shownPercent_ = percent;
  const int filled = static_cast<int>(clamped * kBarWidth);
  out_ << "\r[" << std::string(filled, '#') << std::string(kBarWidth - filled, ' ') << "] "
       << percent << '%';
  out_.flush();
  drawn_ = true;
}
