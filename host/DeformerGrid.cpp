#include "host/DeformerGrid.h"

#include <algorithm>
#include <cmath>

#include "host/BaseDocument.h"
#include "host/HierarchyHelp.h"
#include "host/ModelingCommand.h"
#include "host/PointObject.h"

namespace {

struct Lattice {
  Int32 n[3];
  Vector size;
};

Lattice latticeOf(const PointObject* grid) {
  const BaseContainer& bc = *grid->GetDataInstance();
  return {{bc.GetLong(1001), bc.GetLong(1002), bc.GetLong(1003)}, bc.GetVector(1000)};
}

bool usable(const Lattice& l, const PointObject* grid) {
  for (Int32 count : l.n) {
    if (count < 2 || count > 64) return false;
  }
  return grid->GetPointCount() == l.n[0] * l.n[1] * l.n[2];
}

Vector restPlace(const Lattice& l, Int32 i, Int32 j, Int32 k) {
  return {l.size.x * (Float(i) / (l.n[0] - 1) - 0.5), l.size.y * (Float(j) / (l.n[1] - 1) - 0.5),
          l.size.z * (Float(k) / (l.n[2] - 1) - 0.5)};
}

Int32 indexOf(const Lattice& l, Int32 i, Int32 j, Int32 k) {
  return i + j * l.n[0] + k * l.n[0] * l.n[1];
}

}  // namespace

Bool DeformerGrid::Init(GeListNode* node) {
  auto* grid = static_cast<PointObject*>(node);
  BaseContainer& bc = *grid->GetDataInstance();
  bc.SetVector(1000, Vector(250.0));
  for (Int32 id : {1001, 1002, 1003}) bc.SetLong(id, 3);
  return ResetLattice(grid);
}

Bool DeformerGrid::ResetLattice(PointObject* grid) {
  Lattice l = latticeOf(grid);
  for (Int32 count : l.n) {
    if (count < 2 || count > 64) return false;
  }
  if (!grid->ResizePoints(l.n[0] * l.n[1] * l.n[2])) return false;
  for (Int32 k = 0; k < l.n[2]; ++k) {
    for (Int32 j = 0; j < l.n[1]; ++j) {
      for (Int32 i = 0; i < l.n[0]; ++i)
        grid->GetPointW()[indexOf(l, i, j, k)] = restPlace(l, i, j, k);
    }
  }
  grid->Message(MSG_UPDATE);
  return true;
}

Vector DeformerGrid::Deform(const PointObject* grid, const Vector& p) {
  Lattice l = latticeOf(grid);
  if (!usable(l, grid)) return p;
  Float at[3] = {p.x / l.size.x + 0.5, p.y / l.size.y + 0.5, p.z / l.size.z + 0.5};
  Int32 cell[3];
  Float f[3];
  for (int a = 0; a < 3; ++a) {
    if (!(at[a] >= 0.0 && at[a] <= 1.0)) return p;  // outside the box, or a zero size
    Float u = at[a] * (l.n[a] - 1);
    cell[a] = std::min(static_cast<Int32>(std::floor(u)), l.n[a] - 2);
    f[a] = u - cell[a];
  }
  Vector moved = p;
  for (int corner = 0; corner < 8; ++corner) {
    Int32 i = cell[0] + (corner & 1), j = cell[1] + ((corner >> 1) & 1),
          k = cell[2] + (corner >> 2);
    Float w = ((corner & 1) ? f[0] : 1 - f[0]) * (((corner >> 1) & 1) ? f[1] : 1 - f[1]) *
              ((corner >> 2) ? f[2] : 1 - f[2]);
    moved += (grid->GetPointR()[indexOf(l, i, j, k)] - restPlace(l, i, j, k)) * w;
  }
  return moved;
}

void DeformerGrid::deformTree(const PointObject* grid, BaseObject* op, const Matrix& toGrid) {
  Matrix local = toGrid * op->GetMl();
  if (auto* points = dynamic_cast<PointObject*>(op)) {
    Matrix back = Invert(local);
    for (Int32 i = 0; i < points->GetPointCount(); ++i) {
      points->GetPointW()[i] = back * Deform(grid, local * points->GetPointR()[i]);
    }
    points->Message(MSG_UPDATE);
  }
  for (BaseObject* child = op->GetDown(); child; child = child->GetNext()) {
    deformTree(grid, child, local);
  }
}

BaseObject* DeformerGrid::GetVirtualObjects(BaseObject* op, HierarchyHelp* hh) {
  Bool dirty = op->CheckCache(hh) || op->IsDirty(DIRTYFLAGS_DATA);
  for (BaseObject* child = op->GetDown(); child && !dirty; child = child->GetNext()) {
    op->GetHierarchyClone(hh, child, HIERARCHYCLONEFLAGS_ASIS, &dirty, nullptr);
  }
  if (!dirty) return op->GetCache(hh);
  BaseObject* result = BaseObject::Alloc(Onull);
  if (!result) return nullptr;
  result->SetName(op->GetName());
  for (BaseObject* child = op->GetDown(); child; child = child->GetNext()) {
    ModelingCommandData cd;
    cd.doc = hh->GetDocument();
    cd.op = op->GetHierarchyClone(hh, child, HIERARCHYCLONEFLAGS_ASIS, nullptr, nullptr);
    if (cd.op && SendModelingCommand(MCOMMAND_CURRENTSTATETOOBJECT, cd)) {
      auto* state = static_cast<BaseObject*>(cd.result->GetIndex(0));
      deformTree(static_cast<PointObject*>(op), state, Matrix());
      state->InsertUnderLast(result);
    }
    BaseObject::Free(cd.op);
  }
  return result;
}
