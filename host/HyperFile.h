// HyperFile: the host's file of typed values. Writes append an int32, a float64 or a string;
// reads take the next value of the asked kind in order. A read past the end or of another kind
// fails and leaves the file in error, so a broken record cannot be half read as something
// else. A float64 read accepts an int32 value, so that a person may write whole numbers plainly.
#pragma once

#include <variant>
#include <vector>

#include "host/HostTypes.h"

class HyperFile {
 public:
  using Value = std::variant<Int32, Float64, String>;

  void WriteInt32(Int32 value) { values_.emplace_back(value); }
  void WriteFloat64(Float64 value) { values_.emplace_back(value); }
  void WriteString(const String& value) { values_.emplace_back(value); }

  Bool ReadInt32(Int32* value);
  Bool ReadFloat64(Float64* value);
  Bool ReadString(String* value);

  // False once a read failed.
  Bool IsOk() const { return ok_; }
  const std::vector<Value>& GetValues() const { return values_; }
  // Replaces the content and starts reading from the first value.
  void SetValues(std::vector<Value> values);

 private:
  const Value* next();

  std::vector<Value> values_;
  size_t position_ = 0;
  bool ok_ = true;
};
