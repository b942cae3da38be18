// HyperFileCurveStream: the host's file as the stream that a stored curve is written to and read
// from.
#pragma once

#include "host/HyperFile.h"
#include "source/CurveStream.h"

class HyperFileCurveStream : public CurveStream {
 public:
  explicit HyperFileCurveStream(HyperFile& file) : file_(file) {}

  bool writeInt32(int32_t value) override;
  bool writeFloat64(double value) override;
  bool writeString(const std::string& text) override;
  bool readInt32(int32_t& value) override { return file_.ReadInt32(&value); }
  bool readFloat64(double& value) override { return file_.ReadFloat64(&value); }
  bool readString(std::string& text) override { return file_.ReadString(&text); }

 private:
  HyperFile& file_;
};
