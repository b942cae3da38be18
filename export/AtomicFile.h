// AtomicFile: a file written under a short temporary name beside its target and renamed over it
// on commit, so that no reader ever sees a half-written file and a failed or interrupted write
// leaves any earlier file in place and no temporary file behind (see TemporaryFiles).
//
// A target that exists and is not a regular file (a directory, a device, a symbolic link) is
// refused unless replaceAnyFile is set; a symbolic link is then replaced, not followed. Writes
// are buffered; failures are reported through messageSink once, by open, close or commit.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace mv {

class AtomicFile {
 public:
  explicit AtomicFile(std::string path, bool replaceAnyFile = false);
  ~AtomicFile();  // removes the temporary file unless it was committed
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;

  // Checks the target and creates the temporary file; false with a message when either fails.
  bool open();
  void write(const char* data, size_t size);
  void write(const std::string& text) { write(text.data(), text.size()); }
  // Overwrites bytes already written, at offset from the start of the file.
  void writeAt(uint64_t offset, const char* data, size_t size);
  uint64_t size() const { return written_; }
  const std::string& path() const { return path_; }

  // Closes the temporary file and renames it to the target; false with a message when writing
  // or renaming failed.
  bool commit();
  // Commits both files or neither: when the second cannot be renamed, the first target gets its
  // earlier contents back (or disappears, if it had none).
  static bool commitPair(AtomicFile& first, AtomicFile& second);

 private:
  bool targetIsReplaceable() const;
  void flush();
  bool close();
  bool rename();

  std::string path_;
  std::string temporaryPath_;
  bool replaceAnyFile_;
  int descriptor_ = -1;
  std::vector<char> buffer_;
  uint64_t written_ = 0;
  bool failed_ = false;
  bool committed_ = false;
};

}  // namespace mv
