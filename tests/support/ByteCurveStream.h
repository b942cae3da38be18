// ByteCurveStream: a curve stream over bytes in memory, little-endian int32 and float64, a text
// as an int32 length and its bytes, so that tests can write a stored curve by hand.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "source/CurveStream.h"

class ByteCurveStream : public CurveStream {
 public:
  ByteCurveStream() = default;
  explicit ByteCurveStream(std::vector<uint8_t> bytes) : bytes_(std::move(bytes)) {}

  bool writeInt32(int32_t value) override { return append(&value, sizeof value); }
  bool writeFloat64(double value) override { return append(&value, sizeof value); }
  bool writeString(const std::string& text) override {
    return writeInt32(static_cast<int32_t>(text.size())) && append(text.data(), text.size());
  }
  bool readInt32(int32_t& value) override { return take(&value, sizeof value); }
  bool readFloat64(double& value) override { return take(&value, sizeof value); }
  bool readString(std::string& text) override {
    int32_t size = 0;
    const size_t start = position_;
    if (!readInt32(size) || size < 0 || static_cast<size_t>(size) > bytes_.size() - position_) {
      position_ = start;
      return false;
    }
    text.assign(reinterpret_cast<const char*>(bytes_.data()) + position_, size);
    position_ += size;
    return true;
  }

  const std::vector<uint8_t>& bytes() const { return bytes_; }
  size_t position() const { return position_; }

 private:
  bool append(const void* data, size_t size) {
    const auto* begin = static_cast<const uint8_t*>(data);
    bytes_.insert(bytes_.end(), begin, begin + size);
    return true;
  }
  bool take(void* data, size_t size) {
    if (bytes_.size() - position_ < size) return false;
    std::memcpy(data, bytes_.data() + position_, size);
    position_ += size;
    return true;
  }

  std::vector<uint8_t> bytes_;
  size_t position_ = 0;
};
