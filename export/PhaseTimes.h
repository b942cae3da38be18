// PhaseTimes: the processor time that each phase of a run took, in the order the phases ran, so
// that a command can say where its time went. A phase that runs again adds to its first entry.
#pragma once

#include <ctime>
#include <string>
#include <utility>
#include <vector>

namespace mv {

class PhaseTimes {
 public:
  // Ends the phase that was running (if any) and starts the named one.
  void begin(const std::string& phase);
  // Ends the running phase.
  void end();
  const std::vector<std::pair<std::string, double>>& seconds() const { return seconds_; }
  // "load 0.12 s, evaluation 0.40 s, ..."
  std::string summary() const;

 private:
  std::vector<std::pair<std::string, double>> seconds_;
  std::string running_;
  std::clock_t started_ = 0;
};

}  // namespace mv
