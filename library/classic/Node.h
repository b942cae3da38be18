// Node: one object of a loaded scene in the host-free scene graph. It pairs a Simple (the classic
// node or solid that does the work) with a private parameter set, a name, a local matrix and its
// children. Evaluating a node evaluates its Simple once and then each child once per placement,
// so a child shared by several parents is one Node evaluated many times. Modifier nodes (finish
// mesh, deform points) first collect their subtree in a local mesh, change it and write it out.
#pragma once

#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "core/BaseNode.h"
#include "core/EHierarchyHelp.h"
#include "core/Simple.h"
#include "curves/ParameterSetData.h"
#include "geometry/OGeomStream.h"

namespace mv {

class EditableMesh;
class IMesh;
class Spline;

class Node : public BaseNode {
 public:
  Node() = default;
  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;
  // Deletes the spline and the Simple; deletes each child held by no other parent, and releases
  // the others.
  ~Node() override;

  std::string& name(std::string& out) override;
  Matrix4& globalMatrix(Matrix4& out) override;  // always the identity
  Matrix4& localMatrix(Matrix4& out) override;
  Spline* spline() override;
  double rayDistance(const Vector3& origin, const Vector3& direction, bool limitToLength) override;

  // Writes this node and, at level + 1, every child at plain message level, four blanks a level.
  virtual void printTree(int level);

  void setName(const std::string& name) { name_ = name; }
  const std::string& name() const { return name_; }
  void setMatrix(const Matrix4& matrix) { matrix_ = matrix; }
  const Matrix4& matrix() const { return matrix_; }
  void setMaterial(int index) { material_ = index; }  // -1 inherits the parent's
  int material() const { return material_; }
  // A hidden node and everything below it produce nothing.
  void setHidden(bool hidden) { hidden_ = hidden; }
  bool hidden() const { return hidden_; }
  // Takes ownership of spline, deleting a previous one.
  void setSpline(Spline* spline);

  // Takes ownership of simple, deleting a previous one (and then clearing the parameters), and
  // lets it write its defaults.
  void setSimple(Simple* simple);
  Simple* simple() const { return simple_; }
  std::vector<Node*> children() const { return children_; }
  ParameterSetData& parameters() { return parameters_; }
  int useCount() const { return useCount_; }

  // Appends child under the node named parentName, found depth first from here, or under this
  // node when parentName is empty or this node's name. False when no such node exists or when
  // the link would close a cycle.
  bool addChild(Node* child, const std::string& parentName);

  // Writes this node's subtree to stream. help is made by the caller for this node; it is
  // changed in place (matrix, material, stopped) and read back by the caller. Progress goes to
  // help.progress, which is asked before each placement whether the walk is cancelled.
  bool evaluate(EHierarchyHelp& help, OGeomStream& stream);

 private:
  bool reaches(const Node* target, std::unordered_set<const Node*>& visited) const;
  void evaluateSimple(EHierarchyHelp& help, OGeomStream& stream, bool local,
                      std::vector<int>& roles, PlacementList& placements);
  void fillCopy(ParameterSetData& copy, const EHierarchyHelp& help) const;
  void evaluateChildren(EHierarchyHelp& help, OGeomStream& stream, EditableMesh* localMesh,
                        const std::vector<int>& roles, const PlacementList& placements,
                        int& selection, int& material);
  std::vector<std::pair<Node*, const Placement*>> livePlacements(
      const std::vector<int>& roles, const PlacementList& placements) const;
  EHierarchyHelp helpForChild(const EHierarchyHelp& help, const Placement& placement) const;
  void writeLocalMesh(EHierarchyHelp& help, OGeomStream& stream, EditableMesh& mesh, int kinds,
                      PlacementList& placements, int selection, int material);
  static void writeSelection(OGeomStream& stream, int selection);

  Spline* nodeSpline_ = nullptr;
  ParameterSetData parameters_;
  int useCount_ = 0;
  std::string name_;
  Matrix4 matrix_;
  int material_ = -1;
  bool hidden_ = false;
  std::vector<Node*> children_;
  Simple* simple_ = nullptr;
};

// The selection index of name in the walk: looked up in help.selections, or issued by the
// stream and recorded there unless another name holds that index already. -1 without a map.
int selectionIndexOf(EHierarchyHelp& help, OGeomStream& stream, const std::string& name);

}  // namespace mv
