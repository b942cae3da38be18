// BaseList2D: what objects, tags, materials and documents share: a type, a name, a parameter
// container, the plug-in data of a registered class, dirty counts and a process-wide unique id
// by which links find it while it exists.
#pragma once

#include "host/BaseContainer.h"
#include "host/DescID.h"
#include "host/GeListNode.h"
#include "host/HostIds.h"

class AliasTrans;
class NodeData;

class BaseList2D : public GeListNode {
 public:
  explicit BaseList2D(Int32 type);
  ~BaseList2D() override;

  Int32 GetType() const { return type_; }
  virtual Bool IsInstanceOf(Int32 type) const { return type_ == type; }
  // The info flags the class was registered with.
  Int32 GetInfo() const;

  const String& GetName() const { return name_; }
  void SetName(const String& name);

  BaseContainer* GetDataInstance() { return &data_; }
  const BaseContainer* GetDataInstance() const { return &data_; }
  BaseContainer GetData() const { return data_; }
  void SetData(const BaseContainer& data);

  // A parameter by id: the class's own handler first, then the container; a sub-parameter of
  // custom data goes to the data type's class. A set marks the node's data dirty.
  Bool GetParameter(const DescID& id, GeData& value, DESCFLAGS_GET flags);
  Bool SetParameter(const DescID& id, const GeData& value, DESCFLAGS_SET flags);
  // Whether a control is enabled; true unless the class says otherwise.
  Bool GetEnabling(const DescID& id, const GeData& value, DESCFLAGS_ENABLE flags,
                   const BaseContainer* itemdesc);

  // The plug-in data of a registered class, or null for a plain host type.
  NodeData* GetNodeData() const { return nodeData_; }
  // Message 5 (MSG_UPDATE) marks the data dirty; every message reaches the class.
  virtual Bool Message(Int32 type, void* data = nullptr);

  Int64 GetUniqueId() const { return uniqueId_; }
  static BaseList2D* FindByUniqueId(Int64 id);

  // Counts that rise with each change of the flagged kinds; GetDirty gives their sum.
  void SetDirty(DIRTYFLAGS flags);
  UInt32 GetDirty(DIRTYFLAGS flags) const;

 protected:
  // Fills a new node of the same class with this one's name, container and plug-in state.
  Bool copyBaseTo(BaseList2D* target, COPYFLAGS flags, AliasTrans* trans) const;
  void onChildrenChanged() override { SetDirty(DIRTYFLAGS_CHILDREN); }

 private:
  friend class PluginRegistry;
  Bool setCustomSubParameter(const DescID& id, const GeData& value, DESCFLAGS_SET& flags);

  Int32 type_;
  Int64 uniqueId_;
  String name_;
  BaseContainer data_;
  NodeData* nodeData_ = nullptr;
  UInt32 dirtyMatrix_ = 0, dirtyData_ = 0, dirtyCache_ = 0, dirtyChildren_ = 0;
};
