#include "host/HyperFile.h"

#include <utility>

const HyperFile::Value* HyperFile::next() {
  if (!ok_ || position_ >= values_.size()) {
    ok_ = false;
    return nullptr;
  }
  return &values_[position_];
}

Bool HyperFile::ReadInt32(Int32* value) {
  const Value* v = next();
  if (!v || !std::holds_alternative<Int32>(*v)) return ok_ = false;
  if (value) *value = std::get<Int32>(*v);
  ++position_;
  return true;
}

Bool HyperFile::ReadFloat64(Float64* value) {
  const Value* v = next();
  if (!v || std::holds_alternative<String>(*v)) return ok_ = false;
  if (value) {
    *value = std::holds_alternative<Int32>(*v) ? std::get<Int32>(*v) : std::get<Float64>(*v);
  }
  ++position_;
  return true;
}

Bool HyperFile::ReadString(String* value) {
  const Value* v = next();
  if (!v || !std::holds_alternative<String>(*v)) return ok_ = false;
  if (value) *value = std::get<String>(*v);
  ++position_;
  return true;
}

void HyperFile::SetValues(std::vector<Value> values) {
  values_ = std::move(values);
  position_ = 0;
  ok_ = true;
}
