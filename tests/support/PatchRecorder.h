// PatchRecorder: a geometry stream that keeps the patches written to it, each with its point
// counts along u and v and its points in stream order, for tests of generators of patches.
#pragma once

#include <vector>

#include "geometry/OBaseGeomStream.h"

class PatchRecorder : public mv::OBaseGeomStream {
 public:
  struct Patch {
    int countU = 0;
    int countV = 0;
    std::vector<mv::Vector3> points;  // v outer, u inner
    const mv::Vector3& at(int u, int v) const { return points[v * countU + u]; }
  };

  using mv::OBaseGeomStream::operator<<;
  OGeomStream& operator<<(const mv::Vector3& point) override {
    if (lastCommand() == mv::CmdPatch && state() == mv::StateParamValues && !patches.empty()) {
      patches.back().points.push_back(point);
    }
    putPoint(point);
    return *this;
  }
  void putCommand(mv::GeomCommand command) override {
    if (command == mv::CmdPatch) patches.emplace_back();
    mv::OBaseGeomStream::putCommand(command);
  }
  void putInt(int value) override {
    if (lastCommand() == mv::CmdPatch && state() == mv::StateUCount) patches.back().countU = value;
    if (lastCommand() == mv::CmdPatch && state() == mv::StateVCount) patches.back().countV = value;
    mv::OBaseGeomStream::putInt(value);
  }

  std::vector<Patch> patches;
};
