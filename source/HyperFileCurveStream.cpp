#include "source/HyperFileCurveStream.h"

bool HyperFileCurveStream::writeInt32(int32_t value) {
  file_.WriteInt32(value);
  return true;
}

bool HyperFileCurveStream::writeFloat64(double value) {
  file_.WriteFloat64(value);
  return true;
}

bool HyperFileCurveStream::writeString(const std::string& text) {
  file_.WriteString(text);
  return true;
}
