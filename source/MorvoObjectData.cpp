#include "source/MorvoObjectData.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "core/ChildRole.h"
#include "core/MathConstants.h"
#include "geometry/OPolygonStream.h"
#include "host/AliasTrans.h"
#include "host/BaseDocument.h"
#include "host/BaseTag.h"
#include "host/BaseThread.h"
#include "host/HierarchyHelp.h"
#include "host/HostConsole.h"
#include "host/HostIds.h"
#include "host/LineObject.h"
#include "host/PolygonObject.h"
#include "host/SplineObject.h"
#include "host/TextureTag.h"
#include "source/C4dObject.h"
#include "source/C4dParameterSet.h"
#include "source/C4dPolygonMesh.h"
#include "source/CurrentState.h"
#include "source/InstanceProgress.h"
#include "source/MatrixConversion.h"
#include "source/PluginIds.h"

namespace {

constexpr Float kZeroBlock = 1e-6;

std::vector<BaseObject*> childrenOf(BaseObject* op) {
  std::vector<BaseObject*> children;
  for (BaseObject* child = op->GetDown(); child != nullptr; child = child->GetNext()) {
    children.push_back(child);
  }
  return children;
}

bool isSpline(BaseObject* object) { return (object->GetInfo() & OBJECT_ISSPLINE) != 0; }

// A placement whose axes all vanish makes no instance.
bool hasZeroBlock(const mv::Matrix4& matrix) {
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) {
      if (std::abs(matrix.at(row, column)) > kZeroBlock) return false;
    }
  }
  return true;
}

void progressStep() {
  if (InstanceProgress::current != nullptr) InstanceProgress::current->step();
}

bool cancelled(BaseThread* thread) { return thread != nullptr && thread->TestBreak(); }

// The five numbers of a placement, written into a data tag's container.
void writePlacementData(BaseTag* tag, const mv::Placement& placement, Int32 count) {
  BaseContainer* data = tag->GetDataInstance();
  data->SetReal(mv::IdCarriedGrowth, placement.carriedGrowth);
  data->SetReal(mv::IdCarriedThickness, placement.carriedThickness);
  data->SetReal(mv::IdCarriedDensity, placement.carriedDensity);
  data->SetLong(mv::IdIndex, placement.index);
  data->SetLong(mv::IdCount, count);
}

// A result object made of op alone: its name and its own tags, the Phong tag among them.
void takeIdentityOf(BaseObject* op, BaseObject* result) {
  result->SetName(op->GetName());
  result->KillTag(Tphong, 0);
  op->CopyTagsTo(result, true, false, false, nullptr);
}

bool isDataTag(BaseTag* tag) { return tag->GetType() == ID_MORVO_TAG; }

bool isHierarchicalTag(BaseTag* tag) { return (tag->GetInfo() & TAG_HIERARCHICAL) != 0; }

}  // namespace

bool isLineObject(BaseObject* object) { return object != nullptr && object->IsInstanceOf(Oline); }

Bool MorvoObjectData::Init(GeListNode* node) {
  auto* op = static_cast<BaseObject*>(node);
  op->GetDataInstance()->SetBool(ID_SEPARATE_OBJECTS, false);
  C4dParameterSet params(op, nullptr);
  initParameters(params, 100.0);
  return true;
}

BaseObject* MorvoObjectData::GetVirtualObjects(BaseObject* op, HierarchyHelp* hh) {
  const std::vector<BaseObject*> children = childrenOf(op);
  const Int32 childCount = static_cast<Int32>(children.size());
  std::vector<BaseObject*> clones(children.size(), nullptr);
  std::vector<Matrix> childMatrices(children.size());
  C4dParameterSet params(op, hh->GetDocument());

  bool linkChanged = false;
  if (BaseObject* link = op->GetDataInstance()->GetObjectLink(ID_CLIP_OBJECT, hh->GetDocument())) {
    params.setSlot(ID_CLIP_OBJECT, new C4dObject(link, hh->GetDocument()));
    const Int32 dirty = static_cast<Int32>(link->GetDirty(DIRTYFLAGS_DATA | DIRTYFLAGS_MATRIX));
    linkChanged = dirty != linkDirty;
    linkDirty = dirty;
  }

  std::vector<int> roles;
  assignRoles(params, roles, childCount);
  roles.resize(children.size(), 0);
  const std::vector<Int32> childRoles(roles.begin(), roles.end());

  if (!op->CheckCache(hh) && !op->IsDirty(DIRTYFLAGS_DATA) &&
      cachedResultStands(op, hh, clones, childMatrices, linkChanged)) {
    return op->GetCache(hh);
  }
  collectChildren(op, hh, childRoles, clones, childMatrices);
  const Int32 roleMask = fillSplineSlots(op, params, childRoles, clones, childMatrices);

  const bool withGeometry = hasGeometry(params);
  C4dPolygonMesh mesh;
  mv::PlacementList placements;
  Int32 placedMask = 0;
  {
    mv::OPolygonStream stream(&mesh, true);
    placedMask = evaluate(params, stream, roleMask, placements, hh->GetLOD());
    stream.flush();
  }
  BaseObject* result = mesh.detach();
  if (result != nullptr) takeIdentityOf(op, result);

  if (!instanceChildren(op, hh, result, childRoles, clones, placements, placedMask, withGeometry)) {
    params.deleteSlot(mv::IdProfileNode);
    params.deleteSlot(mv::IdPathNode);
    return nullptr;
  }
  if (result != nullptr && result->IsInstanceOf(Onull) && result->GetDown() != nullptr &&
      result->GetDown()->GetNext() == nullptr) {
    BaseObject* only = result->GetDown();
    only->Remove();
    BaseObject::Free(result);
    result = only;
  }
  params.deleteSlot(mv::IdProfileNode);
  params.deleteSlot(mv::IdPathNode);
  if (result == nullptr) return nullptr;
  result->Message(MSG_UPDATE, nullptr);
  return result;
}

// The cache test: splines are fetched as line objects (and kept for the rebuild), every other
// child only reports whether it changed.
bool MorvoObjectData::cachedResultStands(BaseObject* op, HierarchyHelp* hh,
                                         std::vector<BaseObject*>& clones,
                                         std::vector<Matrix>& childMatrices, bool linkChanged) {
  bool dirty = false;
  op->NewDependenceList();
  const std::vector<BaseObject*> children = childrenOf(op);
  for (size_t i = 0; i < children.size(); ++i) {
    BaseObject* child = children[i];
    if (isSpline(child)) {
      clones[i] = op->GetVirtualLineObject(child, hh, child->GetMl(), false, false,
                                           &childMatrices[i], &dirty);
      if (clones[i] != nullptr) op->AddDependence(hh, clones[i]);
    } else {
      op->GetHierarchyClone(hh, child, HIERARCHYCLONEFLAGS_ASIS, &dirty, nullptr);
    }
  }
  if (dirty || !op->CompareDependenceList() || linkChanged) return false;
  op->TouchDependenceList();
  return true;
}

void MorvoObjectData::collectChildren(BaseObject* op, HierarchyHelp* hh,
                                      const std::vector<Int32>& roles,
                                      std::vector<BaseObject*>& clones,
                                      std::vector<Matrix>& childMatrices) {
  bool dirty = true;
  op->NewDependenceList();
  const std::vector<BaseObject*> children = childrenOf(op);
  for (size_t i = 0; i < children.size(); ++i) {
    BaseObject* child = children[i];
    if (isSpline(child) && (roles[i] == mv::RoleProfile || roles[i] == mv::RolePath)) {
      if (clones[i] == nullptr) {
        clones[i] = op->GetVirtualLineObject(child, hh, child->GetMl(), false, false,
                                             &childMatrices[i], &dirty);
      }
      if (clones[i] != nullptr) {
        op->AddDependence(hh, clones[i]);
        child->Touch();
      }
    } else {
      clones[i] = op->GetHierarchyClone(hh, child, HIERARCHYCLONEFLAGS_ASIS, nullptr, nullptr);
    }
  }
}

// Profile and path nodes over the line objects of role-1 and role-2 children; the OR of all
// roles.
Int32 MorvoObjectData::fillSplineSlots(BaseObject* op, C4dParameterSet& params,
                                       const std::vector<Int32>& roles,
                                       const std::vector<BaseObject*>& clones,
                                       const std::vector<Matrix>& childMatrices) {
  Int32 roleMask = 0;
  for (size_t i = 0; i < roles.size(); ++i) {
    roleMask |= roles[i];
    if (!isLineObject(clones[i])) continue;
    auto* line = static_cast<LineObject*>(clones[i]);
    if (roles[i] == mv::RoleProfile) {
      Matrix matrix = childMatrices[i];
      if (op->IsInstanceOf(ID_BRANCH_OBJECT)) matrix = MatrixRotX(-mt::kPi / 2.0) * matrix;
      params.setSlot(mv::IdProfileNode, new C4dObject(line, matrix));
    } else if (roles[i] == mv::RolePath) {
      params.setSlot(mv::IdPathNode, new C4dObject(line, childMatrices[i]));
    }
  }
  return roleMask;
}

// Instances of every child whose role was placed; the clones of all others are released. False
// when the null that holds the instances cannot be made.
bool MorvoObjectData::instanceChildren(BaseObject* op, HierarchyHelp* hh, BaseObject*& result,
                                       const std::vector<Int32>& roles,
                                       std::vector<BaseObject*>& clones,
                                       const mv::PlacementList& placements, Int32 placedMask,
                                       bool hasGeometry) {
  auto instanced = [&](Int32 role) {
    return role != mv::RolePath && !(hasGeometry && role == mv::RoleProfile);
  };
  Int32 total = 0;
  for (Int32 role : roles) {
    if (role == mv::RoleUnused || !instanced(role)) continue;
    for (const mv::PlacementGroup& group : placements) {
      if (group.role == role) total += static_cast<Int32>(group.placements.size());
    }
  }
  InstanceProgress* progress = InstanceProgress::current;
  if (progress != nullptr) progress->begin(op->GetName(), total);

  const bool separate = op->GetDataInstance()->GetBool(ID_SEPARATE_OBJECTS, true);
  bool ok = true;
  for (size_t i = 0; i < clones.size(); ++i) {
    BaseObject* clone = clones[i];
    const Int32 role = roles[i];
    const bool place = ok && instanced(role) && clone != nullptr && role != mv::RoleUnused &&
                       (role & placedMask) != 0;
    if (place && result == nullptr) {
      result = BaseObject::Alloc(Onull);
      if (result == nullptr) {
        ok = false;
      } else {
        takeIdentityOf(op, result);
      }
    }
    if (place && ok) {
      // A copy: the clone's own matrix changes while it is placed.
      const Matrix childMatrix = clone->GetMl();
      if (separate) {
        instanceAsObjects(op, placements, role, clone, childMatrix, result, hh->GetThread());
      } else {
        instanceIntoMesh(op, hh->GetDocument(), result, placements, role, clone, childMatrix,
                         op->GetMg(), hh->GetThread());
      }
    } else if (clone != nullptr && !isLineObject(clone)) {
      BaseObject::Free(clone);
    }
    clones[i] = nullptr;
  }
  if (progress != nullptr) progress->end();
  if (!ok) {
    BaseObject::Free(result);
    result = nullptr;
  }
  return ok;
}

Int32 MorvoObjectData::instanceAsObjects(BaseObject* op, const mv::PlacementList& placements,
                                         Int32 mask, BaseObject* clone, const Matrix& localMatrix,
                                         BaseObject* parent, BaseThread* thread) {
  (void)op;
  if (parent == nullptr || clone == nullptr) return 0;
  const String baseName = clone->GetName();
  Int32 count = 0;
  BaseObject* instance = nullptr;
  for (const mv::PlacementGroup& group : placements) {
    if ((group.role & mask) == 0) continue;
    const Int32 n = static_cast<Int32>(group.placements.size());
    for (const mv::Placement& placement : group.placements) {
      progressStep();
      if (hasZeroBlock(placement.matrix)) continue;
      instance = instance == nullptr ? clone : instance->GetClone(COPYFLAGS_NONE, nullptr);
      if (instance == nullptr) break;
      instance->SetName(baseName + "." + std::to_string(placement.index));
      instance->SetMl(toHostMatrix(placement.matrix) * localMatrix);
      // A copy of the previous instance carries that one's numbers: they are replaced.
      if (instance != clone) instance->KillTag(ID_MORVO_TAG, 0);
      if (placement.wantsData) {
        BaseTag* tag = instance->MakeTag(ID_MORVO_TAG, nullptr);
        if (tag != nullptr) {
          writePlacementData(tag, placement, n);
        } else {
          GePrint("Morvo Warning: Data Tag Insertion failed!");
        }
      }
      instance->InsertUnderLast(parent);
      refreshInstance(instance);
      ++count;
      if (cancelled(thread)) break;
    }
  }
  if (count == 0) BaseObject::Free(clone);
  return count;
}

// The clone frozen to polygons through the host, or null; the clone stays as it was.
static BaseObject* frozenCopy(BaseObject* clone, BaseDocument* doc) {
  BaseObject* copy = clone->GetClone(COPYFLAGS_NONE, nullptr);
  if (copy == nullptr) return nullptr;
  BaseObject* polygons = currentStateOf(copy, doc);
  BaseObject::Free(copy);
  return polygons;
}

Int32 MorvoObjectData::instanceIntoMesh(BaseObject* op, BaseDocument* doc, BaseObject* result,
                                        const mv::PlacementList& placements, Int32 mask,
                                        BaseObject* clone, const Matrix& localMatrix,
                                        const Matrix& worldMatrix, BaseThread* thread) {
  if (result == nullptr || clone == nullptr) return 0;
  Int32 count = 0;
  for (const mv::PlacementGroup& group : placements) {
    if ((group.role & mask) == 0) continue;
    const Int32 n = static_cast<Int32>(group.placements.size());
    for (const mv::Placement& placement : group.placements) {
      progressStep();
      if (hasZeroBlock(placement.matrix)) continue;
      if (placement.wantsData) {
        BaseTag* tag = clone->GetTag(ID_MORVO_TAG, 0);
        if (tag == nullptr) tag = clone->MakeTag(ID_MORVO_TAG, nullptr);
        if (tag == nullptr) {
          GePrint("Morvo Error: Data Tag insertion failed!");
          BaseObject::Free(clone);
          return count;
        }
        writePlacementData(tag, placement, n);
      }
      const Matrix placed = toHostMatrix(placement.matrix) * localMatrix;
      clone->SetMl(placed);
      clone->SetMg(worldMatrix * placed);
      refreshInstance(clone);
      BaseObject* polygons = frozenCopy(clone, doc);
      mergeHierarchy(placed, polygons, result, {}, op->GetEditorMode(), op->GetRenderMode());
      BaseObject::Free(polygons);
      ++count;
      if (cancelled(thread)) break;
    }
  }
  BaseObject::Free(clone);
  return count;
}

void MorvoObjectData::refreshInstance(BaseObject* object) {
  object->SetDirty(DIRTYFLAGS_DATA | DIRTYFLAGS_MATRIX);
  object->Message(MSG_UPDATE, nullptr);
  for (BaseObject* child = object->GetDown(); child != nullptr; child = child->GetNext()) {
    const bool modifier = child->IsInstanceOf(ID_CURVATURE_SPLINE) ||
                          child->IsInstanceOf(ID_TROPISM_OBJECT) ||
                          child->IsInstanceOf(ID_DEVIATION_OBJECT);
    if (modifier && child->GetTag(ID_MORVO_TAG, 0) == nullptr) refreshInstance(child);
  }
}

namespace {

bool sameTagContents(BaseTag* a, BaseTag* b) {
  if (a->GetType() != b->GetType()) return false;
  if (*a->GetDataInstance() != *b->GetDataInstance()) return false;
  if (a->GetType() != Ttexture) return true;
  return static_cast<TextureTag*>(a)->GetMaterial() == static_cast<TextureTag*>(b)->GetMaterial();
}

BaseTag* nextSurfaceTag(BaseTag* tag) {
  while (tag != nullptr && isDataTag(tag)) tag = tag->GetNext();
  return tag;
}

// Copies of the inherited tags on copy; false when one cannot be made.
bool copyInheritedTags(const std::vector<BaseTag*>& tags, BaseObject* copy) {
  AliasTrans trans;
  for (BaseTag* tag : tags) {
    BaseTag* tagCopy = tag->GetClone(COPYFLAGS_NONE, &trans);
    if (tagCopy == nullptr) return false;
    copy->InsertTag(tagCopy, nullptr);
  }
  trans.Translate(true);
  return true;
}

}  // namespace

Int32 MorvoObjectData::mergeHierarchy(const Matrix& matrix, BaseObject* source, BaseObject* target,
                                      std::vector<BaseTag*> tags, Int32 editorMode,
                                      Int32 renderMode) {
  if (source == nullptr || target == nullptr) return 0;
  for (BaseTag* tag = source->GetFirstTag(); tag != nullptr; tag = tag->GetNext()) {
    if (!isHierarchicalTag(tag) || isDataTag(tag)) continue;
    const Int32 type = tag->GetType();
    tags.erase(std::remove_if(tags.begin(), tags.end(),
                              [type](BaseTag* inherited) { return inherited->GetType() == type; }),
               tags.end());
  }
  if (source->GetEditorMode() != MODE_UNDEF) editorMode = source->GetEditorMode();
  if (source->GetRenderMode() != MODE_UNDEF) renderMode = source->GetRenderMode();

  if (source->IsInstanceOf(Opolygon)) {
    auto* polygons = static_cast<PolygonObject*>(source);
    auto accepts = [&](BaseObject* candidate) {
      return candidate->IsInstanceOf(Opolygon) && sameSurface(source, candidate, tags) &&
             candidate->GetEditorMode() == editorMode && candidate->GetRenderMode() == renderMode;
    };
    BaseObject* into = accepts(target) ? target : nullptr;
    for (BaseObject* child = target->GetDown(); into == nullptr && child != nullptr;
         child = child->GetNext()) {
      if (accepts(child)) into = child;
    }
    if (into != nullptr) {
      appendPolygons(polygons, static_cast<PolygonObject*>(into), matrix);
    } else if (BaseObject* copy = source->GetClone(COPYFLAGS_NO_HIERARCHY, nullptr)) {
      copy->SetMl(Matrix());
      copy->KillTag(ID_MORVO_TAG, 0);
      if (!copyInheritedTags(tags, copy)) {
        BaseObject::Free(copy);
        return 0;
      }
      copy->SetEditorMode(editorMode);
      copy->SetRenderMode(renderMode);
      auto* copied = static_cast<PolygonObject*>(copy);
      Vector* points = copied->GetPointW();
      for (Int32 i = 0; i < copied->GetPointCount(); ++i) points[i] = matrix * points[i];
      copy->InsertUnderLast(target);
    }
  }
  for (BaseTag* tag = source->GetFirstTag(); tag != nullptr; tag = tag->GetNext()) {
    if (isHierarchicalTag(tag) && !isDataTag(tag)) tags.push_back(tag);
  }
  for (BaseObject* child = source->GetDown(); child != nullptr; child = child->GetNext()) {
    mergeHierarchy(matrix * child->GetMl(), child, target, tags, editorMode, renderMode);
  }
  target->Message(MSG_UPDATE, nullptr);
  for (BaseObject* child = target->GetDown(); child != nullptr; child = child->GetNext()) {
    child->Message(MSG_UPDATE, nullptr);
  }
  return 1;
}

Bool MorvoObjectData::sameSurface(BaseObject* source, BaseObject* candidate,
                                  const std::vector<BaseTag*>& tags) {
  BaseTag* own = nextSurfaceTag(source->GetFirstTag());
  BaseTag* other = nextSurfaceTag(candidate->GetFirstTag());
  if (own == nullptr || other == nullptr) return tags.empty() && own == nullptr && other == nullptr;
  size_t matches = 0;
  while (other != nullptr) {
    if (own != nullptr && own->GetType() == other->GetType()) {
      if (!sameTagContents(own, other)) return false;
      own = nextSurfaceTag(own->GetNext());
    } else {
      const bool inherited = std::any_of(
          tags.begin(), tags.end(), [other](BaseTag* tag) { return sameTagContents(tag, other); });
      if (!inherited) return false;
      ++matches;
    }
    other = nextSurfaceTag(other->GetNext());
  }
  return matches == tags.size() && own == nullptr;
}

namespace {

// The selection tag of target named like source's, or a new empty one under that name.
SelectionTag* matchingSelection(PolygonObject* target, SelectionTag* source) {
  for (BaseTag* tag = target->GetFirstTag(); tag != nullptr; tag = tag->GetNext()) {
    if (tag->GetType() == Tpolygonselection && tag->GetName() == source->GetName()) {
      return static_cast<SelectionTag*>(tag);
    }
  }
  auto* made = static_cast<SelectionTag*>(target->MakeTag(Tpolygonselection, nullptr));
  if (made != nullptr) {
    made->SetName(source->GetName());
    made->GetBaseSelect()->DeselectAll();
  }
  return made;
}

}  // namespace

void MorvoObjectData::appendPolygons(PolygonObject* source, PolygonObject* target,
                                     const Matrix& matrix) {
  const Int32 oldPoints = target->GetPointCount();
  const Int32 oldPolygons = target->GetPolygonCount();
  const Int32 addedPoints = source->GetPointCount();
  const Int32 addedPolygons = source->GetPolygonCount();
  auto* sourceUvw = static_cast<UVWTag*>(source->GetTag(Tuvw, 0));
  auto* targetUvw = static_cast<UVWTag*>(target->GetTag(Tuvw, 0));
  if (!target->ResizeObject(oldPoints + addedPoints, oldPolygons + addedPolygons)) return;

  const Vector* from = source->GetPointR();
  Vector* to = target->GetPointW();
  for (Int32 i = 0; i < addedPoints; ++i) to[oldPoints + i] = matrix * from[i];

  if (sourceUvw != nullptr && targetUvw == nullptr) {
    targetUvw =
        static_cast<UVWTag*>(target->MakeVariableTag(Tuvw, oldPolygons + addedPolygons, nullptr));
  }
  const CPolygon* polygons = source->GetPolygonR();
  CPolygon* into = target->GetPolygonW();
  for (Int32 i = 0; i < addedPolygons; ++i) {
    const CPolygon& p = polygons[i];
    into[oldPolygons + i] =
        CPolygon(p.a + oldPoints, p.b + oldPoints, p.c + oldPoints, p.d + oldPoints);
    if (sourceUvw != nullptr && targetUvw != nullptr) {
      targetUvw->SetSlow(oldPolygons + i, sourceUvw->GetSlow(i));
    }
  }
  for (BaseTag* tag = source->GetFirstTag(); tag != nullptr; tag = tag->GetNext()) {
    if (tag->GetType() != Tpolygonselection) continue;
    auto* sourceSelection = static_cast<SelectionTag*>(tag);
    SelectionTag* targetSelection = matchingSelection(target, sourceSelection);
    if (targetSelection == nullptr) continue;
    BaseSelect* selected = sourceSelection->GetBaseSelect();
    BaseSelect* into = targetSelection->GetBaseSelect();
    for (Int32 i = 0; i < addedPolygons; ++i) {
      if (selected->IsSelected(i)) {
        into->Select(oldPolygons + i);
      } else {
        into->Deselect(oldPolygons + i);
      }
    }
  }
  target->Message(MSG_UPDATE, nullptr);
}

Bool MorvoObjectData::ModifyObject(BaseObject* mod, BaseDocument* doc, BaseObject* op,
                                   const Matrix& op_mg, const Matrix& /*mod_mg*/, Float lod,
                                   Int32 /*flags*/, BaseThread* thread) {
  if (!isLineObject(op) || op->GetTag(Tline, 0) == nullptr) return true;
  C4dLine line(static_cast<LineObject*>(op), Matrix());
  const mv::Matrix4 toWorld = toLibraryMatrix(Matrix(op_mg));
  C4dParameterSet params(mod, doc);
  BaseObject* targetLine = nullptr;
  if (BaseObject* target = mod->GetDataInstance()->GetObjectLink(ID_TARGET_NODE, doc)) {
    SplineObject* spline = target->GetRealSpline();
    targetLine = spline != nullptr ? spline->GetLineObject(doc, lod, thread) : nullptr;
    if (targetLine != nullptr) {
      params.setSlot(ID_TARGET_NODE,
                     new C4dObject(static_cast<LineObject*>(targetLine), target->GetMl()));
    } else {
      params.setSlot(ID_TARGET_NODE, new C4dObject(target, doc));
    }
  }
  deformSpline(params, line, toWorld);
  BaseObject::Free(targetLine);
  params.deleteSlot(ID_TARGET_NODE);
  return true;
}
