// SweepObject: the class data of the host's sweep (5118): its first child spline is the
// profile, drawn in its own xy plane, its second the path; the profile's line is carried along
// the path's line with frames that turn as little as possible (parallel transport), x along
// the frame's normal and y along its binormal. Growth: 1001 start and 1002 end (0 to 1, by
// length along the path; defaults 0 and 1) cut the path. A closed profile on an open path gets
// caps (1003 start, 1004 end, both on by default), so that a profile counter-clockwise in its
// plane makes a closed surface with outward normals. Every profile segment makes a tube of its
// own; the path's first segment is used.
#pragma once

#include "host/ObjectData.h"

class SweepObject : public ObjectData {
 public:
  static NodeData* Alloc() { return new SweepObject(); }
  Bool Init(GeListNode* node) override;
  BaseObject* GetVirtualObjects(BaseObject* op, HierarchyHelp* hh) override;
};
