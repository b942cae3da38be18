#include "classic/detail/CountLimit.h"

#include <cmath>

#include "core/MessageSink.h"

namespace mv {

int limitedCount(double value, int cap, const std::string& what) {
  if (!(value >= 0.0)) return 0;
  if (value > cap) {
    messageSink.warning(what + " " + std::to_string(value) + " limited to " + std::to_string(cap));
    return cap;
  }
  return static_cast<int>(std::floor(value));
}

}  // namespace mv
