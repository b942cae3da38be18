// CountingGeomStream: the smallest concrete geometry stream. It runs the protocol state machine
// and counts the points it is given, for tests of the protocol and for benchmarks.
#pragma once

#include "geometry/OBaseGeomStream.h"

class CountingGeomStream : public mv::OBaseGeomStream {
 public:
  using mv::OBaseGeomStream::operator<<;
  OGeomStream& operator<<(const mv::Vector3& point) override {
    ++pointCount;
    putPoint(point);
    return *this;
  }
  long pointCount = 0;
};
