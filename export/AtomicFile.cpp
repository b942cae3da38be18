#include "export/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

#include "core/MessageSink.h"
#include "export/TemporaryFiles.h"

namespace mv {

namespace {

constexpr size_t kBufferBytes = size_t(1) << 20;

std::string directoryOf(const std::string& path) {
  const size_t slash = path.find_last_of('/');
  return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

// A short name in the target's folder, so that any legal target name works, unique within the
// process by a counter and across processes by the process id.
std::string temporaryName(const std::string& path) {
  static std::atomic<unsigned> counter{0};
  char name[48];
  std::snprintf(name, sizeof name, ".mv%x-%x.tmp", unsigned(getpid()), counter++);
  return directoryOf(path) + name;
}

bool writeAll(int descriptor, const char* data, size_t size, off_t offset, bool positioned) {
  while (size > 0) {
    const ssize_t done =
        positioned ? pwrite(descriptor, data, size, offset) : ::write(descriptor, data, size);
    if (done < 0 && errno == EINTR) continue;
    if (done <= 0) return false;
    data += done;
    size -= size_t(done);
    offset += done;
  }
  return true;
}

const char* kindOf(const struct stat& status) {
  if (S_ISLNK(status.st_mode)) return "a symbolic link";
  if (S_ISDIR(status.st_mode)) return "a directory";
  return "a device or special file";
}

}  // namespace

AtomicFile::AtomicFile(std::string path, bool replaceAnyFile)
    : path_(std::move(path)),
      temporaryPath_(temporaryName(path_)),
      replaceAnyFile_(replaceAnyFile) {}

AtomicFile::~AtomicFile() {
  if (descriptor_ >= 0) ::close(descriptor_);
  if (committed_ || temporaryPath_.empty()) return;
  unlink(temporaryPath_.c_str());
  TemporaryFiles::release(temporaryPath_);
}

bool AtomicFile::targetIsReplaceable() const {
  struct stat status;
  if (lstat(path_.c_str(), &status) != 0 || S_ISREG(status.st_mode) || replaceAnyFile_) {
    return true;
  }
  messageSink.error("Not replacing " + path_ + ", which is " + kindOf(status) +
                    " (use --force to replace it)");
  return false;
}

bool AtomicFile::open() {
  if (!targetIsReplaceable()) return false;
  if (!TemporaryFiles::add(temporaryPath_)) {
    messageSink.error("Cannot write " + path_);
    return false;
  }
  descriptor_ = ::open(temporaryPath_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (descriptor_ < 0) {
    TemporaryFiles::release(temporaryPath_);
    messageSink.error("Cannot write " + path_);
    return false;
  }
  buffer_.reserve(kBufferBytes);
  return true;
}

void AtomicFile::write(const char* data, size_t size) {
  written_ += size;
  if (buffer_.size() + size > kBufferBytes) flush();
  if (size >= kBufferBytes) {
    failed_ = failed_ || !writeAll(descriptor_, data, size, 0, false);
    return;
  }
  buffer_.insert(buffer_.end(), data, data + size);
}

void AtomicFile::writeAt(uint64_t offset, const char* data, size_t size) {
  flush();
  failed_ = failed_ || !writeAll(descriptor_, data, size, off_t(offset), true);
}

void AtomicFile::flush() {
  if (buffer_.empty()) return;
  failed_ = failed_ || !writeAll(descriptor_, buffer_.data(), buffer_.size(), 0, false);
  buffer_.clear();
}

bool AtomicFile::close() {
  if (descriptor_ < 0) return false;
  flush();
  failed_ = ::close(descriptor_) != 0 || failed_;
  descriptor_ = -1;
  if (failed_) messageSink.error("Writing " + path_ + " failed");
  return !failed_;
}

bool AtomicFile::rename() {
  if (std::rename(temporaryPath_.c_str(), path_.c_str()) != 0) {
    messageSink.error("Cannot replace " + path_);
    return false;
  }
  TemporaryFiles::release(temporaryPath_);
  committed_ = true;
  return true;
}

bool AtomicFile::commit() { return close() && rename(); }

bool AtomicFile::commitPair(AtomicFile& first, AtomicFile& second) {
  if (!first.close() || !second.close()) return false;
  const std::string backup = temporaryName(first.path_);
  const bool hadEarlier = link(first.path_.c_str(), backup.c_str()) == 0;
  if (hadEarlier) TemporaryFiles::add(backup);
  const bool both = first.rename() && second.rename();
  if (!both && first.committed_) {
    if (hadEarlier) {
      std::rename(backup.c_str(), first.path_.c_str());
    } else {
      unlink(first.path_.c_str());
    }
  } else if (hadEarlier) {
    unlink(backup.c_str());
  }
  TemporaryFiles::release(backup);
  return both;
}

}  // namespace mv
