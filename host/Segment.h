// Segment: one run of points of a spline or line object: how many, and whether it closes.
#pragma once

#include "host/HostTypes.h"

struct Segment {
  Int32 cnt = 0;
  Bool closed = false;
  bool operator==(const Segment& o) const { return cnt == o.cnt && closed == o.closed; }
};
