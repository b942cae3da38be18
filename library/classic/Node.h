// Node: one object of a loaded scene in the host-free scene graph. It pairs a Simple (the classic
// node or solid that does the work) with a private parameter set, a name, a local matrix and its
// children. Evaluating a node evaluates its Simple once and then each child once per placement,
// so a child shared by several parents is one Node evaluated many times. Modifier nodes (finish
// mesh, deform points) first collect their subtree in a local mesh, change it and write it out.
#pragma once

#include <set>
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

  // Deepest level that a walk visits: a node below it is left out, with one warning per walk.
  static constexpr int kMaxDepth = 256;
  // Lines that printTree writes at most; shared objects repeat below every parent.
  static constexpr int kMaxPrintedLines = 100000;
  // Polygons that the local meshes of one branch of a walk hold together at most.
  static constexpr uint32_t kMaxLocalPolygons = 2000000;
  // Placements that the nodes of one branch of a walk hold together at most: each nested level
  // keeps its list while its children are visited.
  static constexpr size_t kMaxHeldPlacements = 500000;
  // Placements that all visits of one walk make together at most: the work of the walk.
  static constexpr size_t kMaxPlacementsMade = 2000000;

  // Writes this node and, at level + 1, every child at plain message level, four blanks a level;
  // at most kMaxDepth levels and kMaxPrintedLines lines, saying once where it stops.
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

  // This node and every node below it, each once.
  std::unordered_set<const Node*> reachable() const;
  // Lets go of every child without deleting any: each child's useCount drops by one.
  void unlinkChildren();

  // Writes this node's subtree to stream. help is made by the caller for this node; it is
  // changed in place (matrix, material, stopped) and read back by the caller. Progress goes to
  // help.progress, which is asked before each placement whether the walk is cancelled. Nodes
  // deeper than kMaxDepth and local meshes beyond kMaxLocalPolygons are left out, said once.
  bool evaluate(EHierarchyHelp& help, OGeomStream& stream);

 private:
  struct Walk;

  bool reaches(const Node* target) const;
  bool visit(EHierarchyHelp& help, OGeomStream& stream, Walk& walk);
  void evaluateSimple(EHierarchyHelp& help, OGeomStream& stream, bool local, Walk& walk,
                      std::vector<int>& roles, PlacementList& placements);
  void fillCopy(ParameterSetData& copy, const EHierarchyHelp& help) const;
  void evaluateChildren(EHierarchyHelp& help, OGeomStream& stream, EditableMesh* localMesh,
                        Walk& walk, const std::vector<int>& roles, const PlacementList& placements,
                        int& selection, int& material);
  // The running progress start of the next child and the share of each.
  struct Span {
    double start, size;
  };
  void placeChildren(EHierarchyHelp& help, OGeomStream& stream, EditableMesh* localMesh, Walk& walk,
                     const std::vector<int>& roles, const PlacementList& placements, Span& span,
                     int& selection, int& material);
  int livePlacements(const std::vector<int>& roles, const PlacementList& placements) const;
  EHierarchyHelp helpForChild(const EHierarchyHelp& help, const Placement& placement) const;
  void writeLocalMesh(EHierarchyHelp& help, OGeomStream& stream, EditableMesh& mesh, int kinds,
                      PlacementList& placements, int selection, int material);
  static void writeSelection(OGeomStream& stream, int selection);
  // Hands every child held by no other parent to the chain of nodes still to destroy, releases
  // the others, and empties children.
  void releaseChildren(Node*& doomed) noexcept;

  Node* nextDoomed_ = nullptr;  // the next node of that chain during destruction
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
// stream and recorded there unless another name holds that index already, which issued (the
// indices that help.selections holds) answers without a scan. -1 without a map.
int selectionIndexOf(EHierarchyHelp& help, OGeomStream& stream, const std::string& name,
                     std::set<int>& issued);

}  // namespace mv
