#include "export/PhaseTimes.h"

#include <sys/resource.h>

#include <cstdio>

namespace mv {

namespace {

long peakKiB() {
  struct rusage usage {};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

}  // namespace

void PhaseTimes::begin(const std::string& phase) {
  end();
  running_ = phase;
  started_ = std::clock();
}

void PhaseTimes::end() {
  if (running_.empty()) return;
  const double elapsed = double(std::clock() - started_) / CLOCKS_PER_SEC;
  auto entry = phases_.begin();
  while (entry != phases_.end() && entry->name != running_) ++entry;
  if (entry == phases_.end()) {
    phases_.push_back({running_, elapsed, peakKiB()});
  } else {
    entry->seconds += elapsed;
  }
  running_.clear();
}

std::string PhaseTimes::summary() const {
  std::string text;
  for (const Phase& phase : phases_) {
    char line[96];
    std::snprintf(line, sizeof line, "%s %.3f s (peak %ld MB)", phase.name.c_str(), phase.seconds,
                  phase.peakKiB / 1024);
    text += (text.empty() ? "" : ", ") + std::string(line);
  }
  return text;
}

}  // namespace mv
