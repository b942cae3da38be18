#include "curves/ExprConstant.h"

#include <cstdio>

namespace mv {

std::string ExprConstant::format(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%g", value);
  return text;
}

}  // namespace mv
