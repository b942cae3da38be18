// PhaseTimes: the processor time that each phase of a run took, in the order the phases ran, and
// the process's peak memory when each phase first ended, so that a command can say where its
// time and memory went. A phase that runs again adds to its first entry.
#pragma once

#include <ctime>
#include <string>
#include <vector>

namespace mv {

class PhaseTimes {
 public:
  // Ends the phase that was running (if any) and starts the named one.
  void begin(const std::string& phase);
  // Ends the running phase.
  void end();
  // "load 0.120 s (peak 35 MB), evaluation 0.400 s (peak 410 MB), ..."
  std::string summary() const;

 private:
  struct Phase {
    std::string name;
    double seconds;
    long peakKiB;
  };
  std::vector<Phase> phases_;
  std::string running_;
  std::clock_t started_ = 0;
};

}  // namespace mv
