// MorvoObjectData: the driver between the host's evaluation and a growth node. It is the base of
// every generator and modifier plug-in: the concrete class joins in one node (mv::Simple), and
// the driver turns the node's roles, geometry and placements into host objects. Children are
// never evaluated here: each placement gets a clone of a child, with a data tag carrying the
// placement's numbers, and the host evaluates that clone by itself later.
//
// An unchanged object answers its cache after assignRoles alone. Instances become objects of
// their own under the result (bool 1115 set) or are frozen and merged into polygon objects, one
// per distinct surface.
#pragma once

#include <vector>

#include "core/Matrix4.h"
#include "core/PlacementGroup.h"
#include "core/Simple.h"
#include "host/BaseObject.h"
#include "host/ObjectData.h"

class BaseTag;
class C4dParameterSet;
class PolygonObject;

class MorvoObjectData : public ObjectData, public virtual mv::Simple {
 public:
  Bool Init(GeListNode* node) override;
  BaseObject* GetVirtualObjects(BaseObject* op, HierarchyHelp* hh) override;
  Bool ModifyObject(BaseObject* mod, BaseDocument* doc, BaseObject* op, const Matrix& op_mg,
                    const Matrix& mod_mg, Float lod, Int32 flags, BaseThread* thread) override;

  // One clone per placement of the groups in mask, named after the placement's index, under
  // parent; returns the number made. The clone is consumed.
  Int32 instanceAsObjects(BaseObject* op, const mv::PlacementList& placements, Int32 mask,
                          BaseObject* clone, const Matrix& localMatrix, BaseObject* parent,
                          BaseThread* thread);
  // The clone frozen at each placement of the groups in mask and merged into result; returns the
  // number merged. The clone is consumed.
  Int32 instanceIntoMesh(BaseObject* op, BaseDocument* doc, BaseObject* result,
                         const mv::PlacementList& placements, Int32 mask, BaseObject* clone,
                         const Matrix& localMatrix, const Matrix& worldMatrix, BaseThread* thread);

  // Merges source and its subtree into target, polygon objects of the same surface into one;
  // tags are the hierarchical tags inherited from above. 0 when source or target is null or a
  // tag cannot be copied, else 1.
  static Int32 mergeHierarchy(const Matrix& matrix, BaseObject* source, BaseObject* target,
                              std::vector<BaseTag*> tags, Int32 editorMode, Int32 renderMode);
  // Whether source and candidate end up with the same surface once tags are inherited.
  static Bool sameSurface(BaseObject* source, BaseObject* candidate,
                          const std::vector<BaseTag*>& tags);
  // Appends the points (carried by matrix), polygons, UVWs and selections of source to target.
  static void appendPolygons(PolygonObject* source, PolygonObject* target, const Matrix& matrix);
  // Marks an instance changed, and the spline modifiers below it that read its data tag.
  static void refreshInstance(BaseObject* object);

  // Dirty count of the linked object (1120) at the last evaluation.
  Int32 linkDirty = -1;

 private:
  // Steps of GetVirtualObjects; see the header comment of each in the source.
  bool cachedResultStands(BaseObject* op, HierarchyHelp* hh, std::vector<BaseObject*>& clones,
                          std::vector<Matrix>& childMatrices, bool linkChanged);
  void collectChildren(BaseObject* op, HierarchyHelp* hh, const std::vector<Int32>& roles,
                       std::vector<BaseObject*>& clones, std::vector<Matrix>& childMatrices);
  Int32 fillSplineSlots(BaseObject* op, C4dParameterSet& params, const std::vector<Int32>& roles,
                        const std::vector<BaseObject*>& clones,
                        const std::vector<Matrix>& childMatrices);
  bool instanceChildren(BaseObject* op, HierarchyHelp* hh, BaseObject*& result,
                        const std::vector<Int32>& roles, std::vector<BaseObject*>& clones,
                        const mv::PlacementList& placements, Int32 placedMask, bool hasGeometry);
};

// Whether object is a line object, which the host owns when it hands one out.
bool isLineObject(BaseObject* object);
