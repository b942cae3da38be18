// DeformerGrid: the class data of the host's deformer grid (5108), a lattice that bends what
// stands below it. Its points are the lattice, nx * ny * nz of them (1001, 1002, 1003, 3 each
// by default), point i + j nx + k nx ny at rest on a regular grid filling the box of size 1000
// (250 on each axis by default) centred on the object. Its cache holds the current state of
// each child, whose points inside the box move by the trilinear blend of the displacements
// (point minus rest place) of the eight lattice points of their cell; points outside the box
// stay. A lattice whose point count does not match its counts deforms nothing.
#pragma once

#include <vector>

#include "host/ObjectData.h"

class PointObject;

class DeformerGrid : public ObjectData {
 public:
  static NodeData* Alloc() { return new DeformerGrid(); }
  Bool Init(GeListNode* node) override;
  BaseObject* GetVirtualObjects(BaseObject* op, HierarchyHelp* hh) override;

  // Places the lattice points of `grid` at rest for its size and counts.
  static Bool ResetLattice(PointObject* grid);
  // Where a point of the grid's own space goes.
  static Vector Deform(const PointObject* grid, const Vector& p);

 private:
  static void deformTree(const PointObject* grid, BaseObject* op, const Matrix& toGrid);
};
