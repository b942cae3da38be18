// TemporaryFiles: the temporary files that writers have open, removed when the process is
// interrupted (SIGINT, SIGTERM, SIGHUP) so that an interrupted render leaves no file behind.
// The handlers are installed with the first registration, for the signals the process does not
// ignore; after removing the files they restore the previous handler and raise the signal again,
// so the process ends as it would have.
#pragma once

#include <string>

namespace mv {

class TemporaryFiles {
 public:
  // Remembers path until release; false when the table of open files is full or the path too long.
  static bool add(const std::string& path);
  static void release(const std::string& path);
  // Removes every remembered file; safe to call from a signal handler.
  static void removeAll();

 private:
  static void installHandlers();
  static void onSignal(int signal);
};

}  // namespace mv
