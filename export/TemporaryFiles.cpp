#include "export/TemporaryFiles.h"

#include <unistd.h>

#include <csignal>
#include <cstring>

namespace mv {

namespace {

// Fixed storage: the handler may neither allocate nor take locks. A render has at most two
// temporary files open at once (an OBJ and its MTL); the spare slots allow for nested writers.
constexpr int kSlots = 16;
constexpr size_t kPathBytes = 4096;
char paths[kSlots][kPathBytes];
volatile std::sig_atomic_t used[kSlots];

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};
struct sigaction previous[3];
bool installed = false;

}  // namespace

bool TemporaryFiles::add(const std::string& path) {
  if (path.size() >= kPathBytes) return false;
  installHandlers();
  for (int k = 0; k < kSlots; ++k) {
    if (used[k]) continue;
    std::memcpy(paths[k], path.c_str(), path.size() + 1);
    used[k] = 1;
    return true;
  }
  return false;
}

void TemporaryFiles::release(const std::string& path) {
  for (int k = 0; k < kSlots; ++k) {
    if (used[k] && path == paths[k]) used[k] = 0;
  }
}

void TemporaryFiles::removeAll() {
  for (int k = 0; k < kSlots; ++k) {
    if (!used[k]) continue;
    unlink(paths[k]);
    used[k] = 0;
  }
}

void TemporaryFiles::installHandlers() {
  if (installed) return;
  installed = true;
  struct sigaction action {};
  action.sa_handler = &TemporaryFiles::onSignal;
  sigemptyset(&action.sa_mask);
  for (int k = 0; k < 3; ++k) {
    // A signal the process ignores (SIGHUP under nohup) stays ignored.
    sigaction(kSignals[k], nullptr, &previous[k]);
    if (previous[k].sa_handler != SIG_IGN) sigaction(kSignals[k], &action, nullptr);
  }
}

void TemporaryFiles::onSignal(int signal) {
  removeAll();
  for (int k = 0; k < 3; ++k) {
    if (kSignals[k] == signal) sigaction(signal, &previous[k], nullptr);
  }
  raise(signal);
}

}  // namespace mv
