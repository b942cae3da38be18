// BaseContainer: typed values by integer id, in the order they were first set. Reads of an
// absent id, or of a value of another kind, give the caller's fallback.
#pragma once

#include <utility>
#include <vector>

#include "host/GeData.h"

class BaseDocument;
class BaseObject;

class BaseContainer {
 public:
  explicit BaseContainer(Int32 id = 0) : id_(id) {}

  Int32 GetId() const { return id_; }
  void SetId(Int32 id) { id_ = id; }

  Bool GetBool(Int32 id, Bool fallback = false) const;
  Int32 GetLong(Int32 id, Int32 fallback = 0) const;
  Float GetReal(Int32 id, Float fallback = 0.0) const;
  Vector GetVector(Int32 id, const Vector& fallback = Vector()) const;
  Matrix GetMatrix(Int32 id, const Matrix& fallback = Matrix()) const;
  String GetString(Int32 id, const String& fallback = String()) const;
  // The linked node when it still exists; the document is accepted for the host's signature.
  BaseList2D* GetLink(Int32 id, const BaseDocument* doc = nullptr) const;
  // The link when it names an object, else null.
  BaseObject* GetObjectLink(Int32 id, const BaseDocument* doc = nullptr) const;
  BaseContainer GetContainer(Int32 id) const;
  BaseContainer* GetContainerInstance(Int32 id);
  CustomDataType* GetCustomDataType(Int32 id, Int32 type) const;
  // The value, or null when the id is absent.
  const GeData* GetDataPointer(Int32 id) const;
  GeData GetData(Int32 id) const;

  void SetBool(Int32 id, Bool value) { SetData(id, GeData(value)); }
  void SetLong(Int32 id, Int32 value) { SetData(id, GeData(value)); }
  void SetReal(Int32 id, Float value) { SetData(id, GeData(value)); }
  void SetVector(Int32 id, const Vector& value) { SetData(id, GeData(value)); }
  void SetMatrix(Int32 id, const Matrix& value) { SetData(id, GeData(value)); }
  void SetString(Int32 id, const String& value) { SetData(id, GeData(value)); }
  void SetLink(Int32 id, BaseList2D* link) { SetData(id, GeData(link)); }
  void SetContainer(Int32 id, const BaseContainer& value) { SetData(id, GeData(value)); }
  void SetData(Int32 id, const GeData& value);

  Bool RemoveData(Int32 id);
  void FlushAll() { entries_.clear(); }
  Int32 GetCount() const { return static_cast<Int32>(entries_.size()); }
  // The id of the entry at a position, -1 past the end.
  Int32 GetIndexId(Int32 index) const;
  const GeData* GetIndexData(Int32 index) const;
  // Copies every entry of this container over the target's entries of the same ids.
  void MergeInto(BaseContainer& target) const;

  bool operator==(const BaseContainer& other) const;
  bool operator!=(const BaseContainer& other) const { return !(*this == other); }

 private:
  GeData* find(Int32 id);
  const GeData* find(Int32 id) const;

  Int32 id_;
  std::vector<std::pair<Int32, GeData>> entries_;
};
