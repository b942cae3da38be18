// CurveStream: the six operations of a binary file that a stored curve needs. The host's file
// object answers them in the data type; tests answer them over bytes in memory.
#pragma once

#include <cstdint>
#include <string>

class CurveStream {
 public:
  virtual ~CurveStream() = default;

  // Each append returns false when the value could not be written.
  virtual bool writeInt32(int32_t value) = 0;
  virtual bool writeFloat64(double value) = 0;
  virtual bool writeString(const std::string& text) = 0;
  // Each read returns false, with the out argument untouched, when the stream holds no further
  // value of that kind (end of data or a broken record).
  virtual bool readInt32(int32_t& value) = 0;
  virtual bool readFloat64(double& value) = 0;
  virtual bool readString(std::string& text) = 0;
};
