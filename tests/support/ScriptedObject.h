// ScriptedObject: a generator for driver tests whose node answers from a script: fixed roles,
// an optional quad of geometry, and placement groups given by the test. It counts the node calls
// so that tests can tell a rebuild from an answered cache.
#pragma once

#include <vector>

#include "core/ChildRole.h"
#include "core/ParameterSet.h"
#include "core/PlacementGroup.h"
#include "geometry/OGeomStream.h"
#include "host/PluginRegistry.h"
#include "source/MorvoObjectData.h"

struct Script {
  std::vector<int> roles;
  bool writesQuad = false;
  bool claimsGeometry = false;
  int placedMask = -1;  // -1: the OR of the groups' roles
  mv::PlacementList groups;
  int assignCalls = 0;
  int evaluateCalls = 0;
};

class ScriptedObject : public MorvoObjectData {
 public:
  static constexpr Int32 kId = 1999001;
  static Script script;

  static NodeData* Alloc() { return new ScriptedObject; }
  static void registerOnce() {
    static const bool registered = RegisterObjectPlugin(
        kId, "Scripted", OBJECT_GENERATOR | OBJECT_INPUT, &Alloc, "", nullptr, 0);
    (void)registered;
  }

  bool hasGeometry(mv::ParameterSet&) override { return script.claimsGeometry; }
  bool assignRoles(mv::ParameterSet&, std::vector<int>& roles, int childCount) override {
    ++script.assignCalls;
    for (int i = 0; i < childCount; ++i) {
      roles.push_back(i < static_cast<int>(script.roles.size()) ? script.roles[i] : 0);
    }
    return true;
  }
  int evaluate(mv::ParameterSet&, mv::OGeomStream& stream, int, mv::PlacementList& placements,
               double) override {
    ++script.evaluateCalls;
    if (script.writesQuad) {
      stream << mv::CmdPolygon << 1 << '[' << 4 << ']';
      stream.param(mv::ParamPoints) << '[' << mv::Vector3(0, 0, 0) << mv::Vector3(1, 0, 0)
                                    << mv::Vector3(1, 1, 0) << mv::Vector3(0, 1, 0) << ']';
    }
    int mask = 0;
    for (const mv::PlacementGroup& group : script.groups) {
      placements.push_back(group);
      mask |= group.role;
    }
    return script.placedMask >= 0 ? script.placedMask : mask;
  }
};

inline Script ScriptedObject::script;

// A group of placements of one role, translated along x by the given offsets, indices as given.
inline mv::PlacementGroup groupAt(int role, const std::vector<double>& offsets,
                                  const std::vector<int>& indices = {}) {
  mv::PlacementGroup group;
  group.role = role;
  for (size_t i = 0; i < offsets.size(); ++i) {
    mv::Placement placement;
    placement.matrix = mv::Matrix4::translation({offsets[i], 0, 0});
    placement.index = i < indices.size() ? indices[i] : static_cast<int>(i);
    placement.wantsData = true;
    placement.carriedGrowth = 0.5 + 0.1 * static_cast<double>(i);
    group.placements.push_back(placement);
  }
  return group;
}
