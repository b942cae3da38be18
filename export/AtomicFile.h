// AtomicFile: a file written under a temporary name beside its target and renamed over it on
// commit, so that no reader ever sees a half-written file and a failed write leaves any earlier
// file in place. Failures are reported through messageSink.
#pragma once

#include <fstream>
#include <string>

namespace mv {

class AtomicFile {
 public:
  explicit AtomicFile(std::string path);
  ~AtomicFile();  // removes the temporary file unless it was committed
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;

  // Creates the temporary file; false with a message when that is not possible.
  bool open();
  std::ofstream& stream() { return stream_; }
  // Closes the temporary file and renames it to the target; false with a message when writing
  // or renaming failed.
  bool commit();

 private:
  std::string path_;
  std::string temporaryPath_;
  std::ofstream stream_;
  bool committed_ = false;
};

}  // namespace mv
