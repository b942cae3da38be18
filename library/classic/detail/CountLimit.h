// CountLimit: turns a count that a scene file gives as a real into an int that is safe to
// allocate for. Files can hold NaN, negative or astronomically large counts; none of them may
// crash or exhaust memory.
#pragma once

#include <string>

namespace mv {

// floor(value) as an int: 0 for NaN and negative values, cap (with a warning naming what) above
// cap.
int limitedCount(double value, int cap, const std::string& what);

}  // namespace mv
