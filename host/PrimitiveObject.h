// PrimitiveObject: the class data of the host's solid primitives, generators whose cache is
// one polygon object (see PrimitiveShapes). Parameters and the defaults Init writes:
//  cube 5159      1100 size (200, 200, 200); 1102, 1103, 1104 segments x, y, z (1)
//  sphere 5160    1110 radius 100; 1111 segments 24; 1113 perfect sphere (a render setting)
//  cone 5162      1130 top radius 0; 1131 bottom radius 100; 1132 height 200; 1133 height
//                 segments 8; 1134 cap segments 1; 1135 rotation segments 36
//  cylinder 5170  1180 radius 50; 1181 height 200; 1182 height segments 4; 1183 rotation
//                 segments 36; 1184 cap segments 1
//  disc 5164      1160 inner radius 0; 1161 outer radius 100; 1162 rings 1; 1163 rotation
//                 segments 36; 1300 orientation 2 (+y)
//  plane 5174     1270 width 400; 1271 depth 400; 1272 width segments 20; 1273 depth
//                 segments (0 takes the width segments); 1300 orientation 2 (+y)
// Orientations: 0 +x, 1 -x, 2 +y, 3 -y, 4 +z, 5 -z.
#pragma once

#include "host/ObjectData.h"

class PolygonObject;

class PrimitiveObject : public ObjectData {
 public:
  static NodeData* Alloc() { return new PrimitiveObject(); }
  Bool Init(GeListNode* node) override;
  BaseObject* GetVirtualObjects(BaseObject* op, HierarchyHelp* hh) override;

  // The mesh of a primitive object's current parameters; null for another type.
  static PolygonObject* BuildMesh(const BaseObject* op);
};
