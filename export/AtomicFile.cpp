#include "export/AtomicFile.h"

#include <unistd.h>

#include <cstdio>
#include <utility>

#include "core/MessageSink.h"

namespace mv {

AtomicFile::AtomicFile(std::string path)
    : path_(std::move(path)), temporaryPath_(path_ + ".tmp" + std::to_string(getpid())) {}

AtomicFile::~AtomicFile() {
  if (committed_) return;
  if (stream_.is_open()) stream_.close();
  std::remove(temporaryPath_.c_str());
}

bool AtomicFile::open() {
  stream_.open(temporaryPath_, std::ios::binary | std::ios::trunc);
  if (!stream_) messageSink.error("Cannot write " + path_);
  return static_cast<bool>(stream_);
}

bool AtomicFile::commit() {
  stream_.close();
  if (!stream_) {
    messageSink.error("Writing " + path_ + " failed");
    return false;
  }
  if (std::rename(temporaryPath_.c_str(), path_.c_str()) != 0) {
    messageSink.error("Cannot replace " + path_);
    return false;
  }
  committed_ = true;
  return true;
}

}  // namespace mv
