#include "export/PhaseTimes.h"

#include <cstdio>

namespace mv {

void PhaseTimes::begin(const std::string& phase) {
  end();
  running_ = phase;
  started_ = std::clock();
}

void PhaseTimes::end() {
  if (running_.empty()) return;
  const double elapsed = double(std::clock() - started_) / CLOCKS_PER_SEC;
  auto entry = seconds_.begin();
  while (entry != seconds_.end() && entry->first != running_) ++entry;
  if (entry == seconds_.end()) {
    seconds_.emplace_back(running_, elapsed);
  } else {
    entry->second += elapsed;
  }
  running_.clear();
}

std::string PhaseTimes::summary() const {
  std::string text;
  for (const auto& [phase, time] : seconds_) {
    char number[32];
    std::snprintf(number, sizeof number, "%.3f", time);
    text += (text.empty() ? "" : ", ") + phase + " " + number + " s";
  }
  return text;
}

}  // namespace mv
