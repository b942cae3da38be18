// BaseTime: a moment of a document, in seconds.
#pragma once

#include <cmath>

#include "host/HostTypes.h"

class BaseTime {
 public:
  BaseTime() = default;
  explicit BaseTime(Float seconds) : seconds_(seconds) {}
  BaseTime(Float frame, Float fps) : seconds_(fps > 0.0 ? frame / fps : 0.0) {}
  Float Get() const { return seconds_; }
  // The frame at that rate, rounded down (a tiny tolerance keeps whole frames whole).
  Int32 GetFrame(Float fps) const { return static_cast<Int32>(std::floor(seconds_ * fps + 1e-9)); }
  bool operator==(const BaseTime& o) const { return seconds_ == o.seconds_; }

 private:
  Float seconds_ = 0.0;
};
