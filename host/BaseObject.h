// BaseObject: an object of a document: hierarchy, local matrix, visibility, tags, and what the
// document pass keeps for it: its cache (the virtual objects a generator made), the line object
// of a spline, its dependence list and the dirty counts it was last built from.
//
// Ownership: an object inserted in a document or under another object belongs there; a clone
// or allocation is the caller's until inserted. Caches and line objects the host hands out
// remain the host's and live until the next rebuild of that object or its destruction.
#pragma once

#include <map>
#include <vector>

#include "host/BaseList2D.h"
#include "host/Matrix.h"

class BaseTag;
class HierarchyHelp;
class LineObject;
class ObjectData;
class SplineObject;
class VariableTag;

// The bit of an object that a parent consumed: it is not shown or exported by itself.
constexpr Int32 BIT_CONTROLOBJECT = 2;

class BaseObject : public BaseList2D {
 public:
  explicit BaseObject(Int32 type) : BaseList2D(type) {}
  ~BaseObject() override;

  // An object of a host type or registered object class, Init already called; null for an
  // unknown type or a failed Init.
  static BaseObject* Alloc(Int32 type);
  // Destroys the object with its children, tags and caches and clears the pointer; it is
  // taken out of its tree first.
  static void Free(BaseObject*& op);

  BaseObject* GetNext() const { return static_cast<BaseObject*>(GeListNode::GetNext()); }
  BaseObject* GetPred() const { return static_cast<BaseObject*>(GeListNode::GetPred()); }
  BaseObject* GetUp() const { return static_cast<BaseObject*>(GeListNode::GetUp()); }
  BaseObject* GetDown() const { return static_cast<BaseObject*>(GeListNode::GetDown()); }
  BaseObject* GetDownLast() const { return static_cast<BaseObject*>(GeListNode::GetDownLast()); }

  // A copy with name, container, matrix, modes, tags, plug-in data and, unless flags hold
  // COPYFLAGS_NO_HIERARCHY, the children. Caches are not copied. With `trans` every copy is
  // recorded so that links among them can be translated.
  BaseObject* GetClone(COPYFLAGS flags, AliasTrans* trans) const;

  const Matrix& GetMl() const { return ml_; }
  void SetMl(const Matrix& m);
  // The global matrix: the parent's (or, inside a cache, the generator's) times the local one.
  Matrix GetMg() const;
  void SetMg(const Matrix& m);
  // The global matrix of what stands above: parent, else cache parent, else identity.
  Matrix GetUpMg() const;
  Vector GetRelPos() const { return ml_.off; }
  Vector GetRelScale() const;
  Vector GetRelRot() const;
  void SetRelPos(const Vector& position);
  void SetRelScale(const Vector& scale);
  void SetRelRot(const Vector& hpb);

  Int32 GetEditorMode() const { return editorMode_; }
  void SetEditorMode(Int32 mode);
  Int32 GetRenderMode() const { return renderMode_; }
  void SetRenderMode(Int32 mode);
  // Sets (or removes, when off) a Phong tag: bool 1001 angle limit, real 1002 angle.
  Bool SetPhong(Bool on, Bool angleLimit, Float angle);

  // Tags, in order.
  BaseTag* GetFirstTag() const { return tags_.empty() ? nullptr : tags_.front(); }
  // The tag of that type with that number among them, or null.
  BaseTag* GetTag(Int32 type, Int32 nr = 0) const;
  // A new tag of that type inserted behind `pred` (first when null); null on failure.
  BaseTag* MakeTag(Int32 type, BaseTag* pred = nullptr);
  // A new variable tag sized to `count` records.
  VariableTag* MakeVariableTag(Int32 type, Int32 count, BaseTag* pred = nullptr);
  // Takes the tag (out of where it stood) behind `pred`, first when null.
  void InsertTag(BaseTag* tag, BaseTag* pred = nullptr);
  void KillTag(Int32 type, Int32 nr = 0);
  // Clones onto `dest` the tags that match: each filter -1 (any) or the tag's visible,
  // variable or hierarchical property as 0 or 1.
  Bool CopyTagsTo(BaseObject* dest, Int32 visible, Int32 variable, Int32 hierarchical,
                  AliasTrans* trans) const;

  // Evaluation, for the object (this) that evaluates and the children it reads.
  BaseObject* GetCache(HierarchyHelp* /*hh*/ = nullptr) const { return cache_; }
  BaseObject* GetCacheParent() const { return cacheParent_; }
  // True when the object has no valid cache.
  Bool CheckCache(HierarchyHelp* hh) const;
  // Whether data (4) or matrix (2) changed since the object was last evaluated.
  Bool IsDirty(DIRTYFLAGS flags) const;
  // Marks the object as consumed by a parent: it is not shown by itself.
  void Touch() { SetBit(BIT_CONTROLOBJECT); }
  Bool GetBit(Int32 mask) const { return (bits_ & mask) != 0; }
  void SetBit(Int32 mask) { bits_ |= mask; }
  void DelBit(Int32 mask) { bits_ &= ~mask; }

  void NewDependenceList();
  void AddDependence(HierarchyHelp* hh, BaseObject* op);
  // True when the list built since NewDependenceList equals the one of the last build.
  Bool CompareDependenceList() const;
  void TouchDependenceList();

  // A clone of `child` and its subtree, the caller's. With a `dirty` pointer it only raises
  // `dirty` when the child changed since this object last looked, and clones nothing.
  BaseObject* GetHierarchyClone(HierarchyHelp* hh, BaseObject* child, HIERARCHYCLONEFLAGS flags,
                                Bool* dirty, AliasTrans* trans);
  // The line object of a spline child, with the modifiers below the child applied; owned by
  // the host. `mres` receives `ml`; `dirty` is raised when the child changed since this
  // object last looked.
  LineObject* GetVirtualLineObject(BaseObject* child, HierarchyHelp* hh, const Matrix& ml,
                                   Bool keepSpline, Bool recurse, Matrix* mres, Bool* dirty);
  // The spline that the object stands for: itself for a spline object, the contour of a
  // spline plug-in (built when needed); null for anything else.
  virtual SplineObject* GetRealSpline();

  // A hash of the object's subtree: ids, dirty counts, tags; it changes with any change in it.
  UInt64 GetHierarchyStamp() const;
  // The object's class data as an object plug-in, or null.
  ObjectData* GetObjectData() const;

 protected:
  // A new object of the same class holding this one's own data (points, polygons, ...).
  virtual BaseObject* cloneObject() const;

 private:
  friend class BaseTag;
  friend class DocumentPass;
  struct Dependence {
    Int64 id;
    UInt32 dirty;
    bool operator==(const Dependence& o) const { return id == o.id && dirty == o.dirty; }
  };

  void removeTag(BaseTag* tag);
  BaseTag* tagAfter(const BaseTag* tag, int step) const;
  Bool childChanged(BaseObject* child);
  // Replaces the cache by `result` (when it differs) and records what it was built from.
  void installCache(BaseObject* result);
  void markEvaluated();
  static void setCacheParentTree(BaseObject* first, BaseObject* generator);
  LineObject* lineObjectFor(HierarchyHelp* hh);

  Matrix ml_;
  Int32 editorMode_ = MODE_UNDEF;
  Int32 renderMode_ = MODE_UNDEF;
  Int32 bits_ = 0;
  std::vector<BaseTag*> tags_;
  BaseObject* cache_ = nullptr;        // owned
  BaseObject* cacheParent_ = nullptr;  // the generator, for an object inside a cache
  LineObject* lineCache_ = nullptr;    // owned
  UInt64 lineCacheStamp_ = 0;
  SplineObject* contour_ = nullptr;  // owned
  UInt64 contourStamp_ = 0;
  std::vector<Dependence> pendingDependences_, builtDependences_;
  std::map<Int64, UInt64> childStamps_;  // what each child looked like when last read
  bool evaluated_ = false;
  UInt32 evaluatedData_ = 0, evaluatedMatrix_ = 0;
};
