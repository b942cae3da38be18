// C4dParameterSet: a host object's container seen as a node's parameter set. Beside plain
// container reads it answers the ids that stand for the host's hierarchy: the name (1000), the
// matrices (1004 along the cache chain, 1005), the numbers of the nearest data tag (6000 to
// 6004), the growth of the nearest sweeping object (1010), what a Deviation reads of its owning
// Branch (8301, 8306, 8309), and the nodes that the driver puts into its slots (1006, 1007, 7002,
// 1120). Curves live in the container as the curve data type; each curve handed out has its
// variables i, n, t and f bound first.
#pragma once

#include <memory>
#include <string>

#include "core/ParameterSet.h"
#include "host/BaseObject.h"

class BaseDocument;

class C4dParameterSet : public mv::ParameterSet {
 public:
  // Over op's container; doc may be null (during Init).
  C4dParameterSet(BaseObject* op, BaseDocument* doc);
  ~C4dParameterSet() override;
  C4dParameterSet(const C4dParameterSet&) = delete;
  C4dParameterSet& operator=(const C4dParameterSet&) = delete;

  // Puts node (owned from now on) into the slot of id 1006, 1007, 7002 or 1120, deleting what
  // stood there; false, deleting node, for another id.
  bool setSlot(int id, mv::BaseNode* node);
  void deleteSlot(int id);

  bool setString(int id, const std::string& value) override;
  bool setDouble(int id, double value) override;
  bool setInt(int id, int value) override;
  bool setVector(int id, const mv::Vector3& value) override;
  bool setMatrix(int id, const mv::Matrix4& value) override;
  bool setCurve(int id, const mv::CurveParam& value) override;
  bool setBool(int id, bool value) override;
  bool setNode(int id, mv::BaseNode* value) override;

  std::string getString(int id, bool* ok = nullptr) override;
  double getDouble(int id, bool* ok = nullptr) override;
  int getInt(int id, bool* ok = nullptr) override;
  mv::Vector3 getVector(int id, bool* ok = nullptr) override;
  mv::Matrix4 getMatrix(int id, bool* ok = nullptr) override;
  mv::CurveParam* getCurve(int id, bool* ok = nullptr) override;
  bool getBool(int id, bool* ok = nullptr) override;
  mv::BaseNode* getNode(int id, bool* ok = nullptr) override;

  // The curve stored under id in a container, or null; and the store. The only places that know
  // how the curve data type holds a curve.
  static mv::CurveParam* curveIn(BaseContainer* container, int id);
  static bool storeCurve(BaseContainer* container, int id, const mv::CurveParam& curve);

  // The nearest data tag from object up its parents and cache parents, or null.
  static BaseTag* nearestDataTag(BaseObject* object);
  // The nearest Osweep or Branch object within depth levels, or null.
  static BaseObject* nearestSweep(BaseObject* object, int depth);
  // The world matrix of object along its cache parents and parents, in host form.
  static Matrix worldMatrix(BaseObject* object);

 private:
  std::unique_ptr<mv::BaseNode>* slot(int id);
  // The grandparent when it is a Branch object, else null.
  BaseObject* owningBranch() const;
  void bindVariables(mv::CurveParam& curve);

  std::unique_ptr<mv::BaseNode> profile;
  std::unique_ptr<mv::BaseNode> path;
  std::unique_ptr<mv::BaseNode> target;
  std::unique_ptr<mv::BaseNode> clip;
  std::unique_ptr<mv::BaseNode> extra;
  BaseContainer* container = nullptr;
  BaseObject* object = nullptr;
  BaseDocument* document = nullptr;
};
