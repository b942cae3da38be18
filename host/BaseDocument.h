// BaseDocument: a document: its objects (a tree), its materials, the active object, time and
// frame rate. ExecutePasses evaluates it (see DocumentPass). The document owns what is
// inserted into it.
#pragma once

#include "host/BaseList2D.h"
#include "host/BaseTime.h"
#include "host/Filename.h"

class BaseMaterial;
class BaseObject;
class BaseThread;

class BaseDocument : public BaseList2D {
 public:
  BaseDocument();
  ~BaseDocument() override;
  static BaseDocument* Alloc() { return new BaseDocument(); }
  static void Free(BaseDocument*& doc);

  BaseObject* GetFirstObject() const;
  // Inserts at the top (parent null) or under `parent`, behind `pred` or first when null.
  void InsertObject(BaseObject* op, BaseObject* parent, BaseObject* pred);
  BaseMaterial* GetFirstMaterial() const;
  // Inserts behind `pred`, or first when null.
  void InsertMaterial(BaseMaterial* material, BaseMaterial* pred = nullptr);
  // The first object (depth first) or material of that name.
  BaseObject* SearchObject(const String& name) const;
  BaseMaterial* SearchMaterial(const String& name) const;

  BaseObject* GetActiveObject() const;
  void SetActiveObject(BaseObject* op);

  BaseTime GetTime() const { return time_; }
  void SetTime(const BaseTime& time) { time_ = time; }
  Int32 GetFps() const { return fps_; }
  void SetFps(Int32 fps) { fps_ = fps > 0 ? fps : fps_; }
  BaseTime GetMinTime() const { return minTime_; }
  void SetMinTime(const BaseTime& time) { minTime_ = time; }
  BaseTime GetMaxTime() const { return maxTime_; }
  void SetMaxTime(const BaseTime& time) { maxTime_ = time; }
  Float GetLOD() const { return lod_; }
  void SetLOD(Float lod) { lod_ = lod; }

  // One document pass: dirty checks, expression tags, then every cache. False when the thread
  // asked to stop before it finished.
  Bool ExecutePasses(BaseThread* thread, Bool animation, Bool expressions, Bool caches,
                     Int32 flags);

 private:
  class ListHead : public GeListNode {
   public:
    explicit ListHead(BaseDocument* document) { makeHead(document); }
  };

  ListHead objects_{this};
  ListHead materials_{this};
  Int64 activeObject_ = 0;
  BaseTime time_, minTime_, maxTime_{BaseTime(3.0)};
  Int32 fps_ = 30;
  Float lod_ = 1.0;
};
