#include "classic/Node.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <new>

#include "core/ChildRole.h"
#include "core/MessageSink.h"
#include "core/ProgressHandler.h"
#include "geometry/GeomPrimitiveWriter.h"
#include "geometry/MeshData.h"
#include "geometry/OMeshDummy.h"
#include "geometry/OPolygonStream.h"
#include "geometry/Spline.h"

namespace mv {

namespace {

constexpr double kProgressShareOfDepth = 0.001953125;  // 1/512 of a node's span per level

// An instance scaled to nothing is not built.
bool isCollapsed(const Matrix4& matrix) {
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) {
      if (std::fabs(matrix.at(row, column)) > 1e-06) return false;
    }
  }
  return true;
}

int roleOfChild(const std::vector<int>& roles, size_t child, bool hasSimple) {
  if (!hasSimple) return RoleOther;
  return child < roles.size() ? roles[child] : RoleUnused;
}

}  // namespace

Node::~Node() {
  delete nodeSpline_;
  delete simple_;
  for (Node* child : children_) {
    if (child->useCount_ < 2) {
      delete child;
    } else {
      --child->useCount_;
    }
  }
}

std::string& Node::name(std::string& out) { return out = name_; }

Matrix4& Node::globalMatrix(Matrix4& out) { return out = Matrix4(); }

Matrix4& Node::localMatrix(Matrix4& out) { return out = matrix_; }

Spline* Node::spline() { return nodeSpline_; }

double Node::rayDistance(const Vector3&, const Vector3&, bool) { return -1.0; }

void Node::printTree(int level) {
  std::string line(static_cast<size_t>(std::max(level, 0)) * 4, ' ');
  line += name_;
  std::string type;
  if (simple_) line += " [" + simple_->typeName(type) + "]";
  messageSink.print(line);
  for (Node* child : children_) child->printTree(level + 1);
}

void Node::setSpline(Spline* spline) {
  if (spline == nodeSpline_) return;
  delete nodeSpline_;
  nodeSpline_ = spline;
}

void Node::setSimple(Simple* simple) {
  if (simple_) {
    delete simple_;
    parameters_.clear();
  }
  simple_ = simple;
  if (simple_) simple_->initParameters(parameters_, 1.0);
}

bool Node::addChild(Node* child, const std::string& parentName) {
  if (!child) return false;
  if (!parentName.empty() && parentName != name_) {
    for (Node* node : children_) {
      if (node->addChild(child, parentName)) return true;
    }
    return false;
  }
  std::unordered_set<const Node*> visited;
  if (child == this || child->reaches(this, visited)) {
    messageSink.warning("Link of \"" + child->name_ + "\" under \"" + name_ +
                        "\" skipped: it would close a cycle");
    return false;
  }
  children_.push_back(child);
  ++child->useCount_;
  return true;
}

// Depth first through the children; visited keeps a graph of shared nodes linear to walk.
bool Node::reaches(const Node* target, std::unordered_set<const Node*>& visited) const {
  for (const Node* child : children_) {
    if (child == target) return true;
    if (!visited.insert(child).second) continue;
    if (child->reaches(target, visited)) return true;
  }
  return false;
}

// A node stands in its parent's frame: its own matrix acts first, then everything above it.
bool Node::evaluate(EHierarchyHelp& help, OGeomStream& stream) {
  help.matrix = matrix_ * help.matrix;
  if (material_ >= 0) help.material = material_;
  if (hidden_) {
    help.stopped = true;
    return true;
  }
  int kinds = 0;
  if (simple_) {
    std::string type;
    if (simple_->typeName(type) == "ClassicPrune") help.pruneNode = this;
    kinds = simple_->modifierKinds();
  }
  std::unique_ptr<MeshData> localMesh;
  if (kinds & (ModifierFinishMesh | ModifierDeformPoints)) {
    localMesh.reset(new (std::nothrow) MeshData());
    if (!localMesh) {
      messageSink.debug("no localMesh!");
      return false;
    }
  }
  std::vector<int> roles;
  PlacementList placements;
  if (simple_) evaluateSimple(help, stream, localMesh != nullptr, roles, placements);
  int selection = -1, material = -1;
  evaluateChildren(help, stream, localMesh.get(), roles, placements, selection, material);
  if (localMesh) {
    writeLocalMesh(help, stream, *localMesh, kinds, placements, selection, material);
  }
  return true;
}

// One evaluation of the Simple on a private copy of the parameters, so that a node shared by
// many parents is never changed by a visit.
void Node::evaluateSimple(EHierarchyHelp& help, OGeomStream& stream, bool local,
                          std::vector<int>& roles, PlacementList& placements) {
  ParameterSetData copy(parameters_);
  fillCopy(copy, help);
  simple_->assignRoles(copy, roles, static_cast<int>(children_.size()));
  int roleMask = 0;
  for (size_t i = 0; i < roles.size(); ++i) {
    if (roles[i] != RoleProfile) roleMask |= roles[i];
    if (roles[i] == RoleProfile && i < children_.size()) copy.profileNode = children_[i];
  }
  copy.clipNode = help.pruneNode;
  if (local) {
    OMeshDummy discard;
    OPolygonStream placementsOnly(&discard, true);
    simple_->evaluate(copy, placementsOnly, roleMask, placements, 1.0);
    return;
  }
  stream << CmdGroupBegin << CmdTransform << help.matrix;
  writeSelection(stream, selectionIndexOf(help, stream, name_));
  if (help.material >= 0) stream << CmdMaterialIndex << help.material;
  simple_->evaluate(copy, stream, roleMask, placements, 1.0);
  stream << CmdGroupEnd;
}

void Node::fillCopy(ParameterSetData& copy, const EHierarchyHelp& help) const {
  copy.worldMatrix = help.matrix;
  copy.localMatrix = matrix_;
  copy.material = help.material;
  copy.carriedGrowth = help.carriedGrowth;
  copy.carriedThickness = help.carriedThickness;
  copy.carriedDensity = help.carriedDensity;
  copy.index = help.index;
  copy.count = help.count;
}

// Each node keeps a small share of its span for itself, the deeper the larger; the children
// share the rest. A placement scaled to nothing is skipped and takes no share. A cancelled walk
// places no further child.
void Node::evaluateChildren(EHierarchyHelp& help, OGeomStream& stream, EditableMesh* localMesh,
                            const std::vector<int>& roles, const PlacementList& placements,
                            int& selection, int& material) {
  const double base = help.depth * kProgressShareOfDepth;
  const std::vector<std::pair<Node*, const Placement*>> live = livePlacements(roles, placements);
  const double childSpan =
      base + live.size() > 0 ? help.progressSpan / (base + static_cast<double>(live.size())) : 0.0;
  double start = help.progressStart + base * help.progressSpan;
  if (help.progress) help.progress->setProgress(start);
  for (const auto& [child, placement] : live) {
    if (help.progress && help.progress->isCancelled()) return;
    EHierarchyHelp childHelp = helpForChild(help, *placement);
    childHelp.progressStart = start;
    childHelp.progressSpan = childSpan;
    if (localMesh) {
      childHelp.matrix = Matrix4();
      OPolygonStream localStream(localMesh, true);
      child->evaluate(childHelp, localStream);
      material = childHelp.material;
      selection = selectionIndexOf(help, stream, child->name_);
    } else {
      child->evaluate(childHelp, stream);
    }
    start += childSpan;
  }
}

// Children in order, each with the placements of its role that are not scaled to nothing.
std::vector<std::pair<Node*, const Placement*>> Node::livePlacements(
    const std::vector<int>& roles, const PlacementList& placements) const {
  std::vector<std::pair<Node*, const Placement*>> live;
  for (size_t i = 0; i < children_.size(); ++i) {
    const int role = roleOfChild(roles, i, simple_ != nullptr);
    for (const PlacementGroup& group : placements) {
      if (group.role != role) continue;
      for (const Placement& placement : group.placements) {
        if (!isCollapsed(placement.matrix)) live.emplace_back(children_[i], &placement);
      }
    }
  }
  return live;
}

EHierarchyHelp Node::helpForChild(const EHierarchyHelp& help, const Placement& placement) const {
  EHierarchyHelp child(help);
  child.depth = help.depth + 1;
  child.parentMaterial = material_;
  child.matrix = placement.matrix * help.matrix;  // the placement acts in this node's frame
  if (placement.wantsData) {
    child.carriedGrowth = placement.carriedGrowth;
    child.carriedThickness = placement.carriedThickness;
    child.carriedDensity = placement.carriedDensity;
    child.index = placement.index;
    child.count = placement.count;
  }
  return child;
}

// Kind 1 writes the finished mesh under this node's transform, selection and material; kind 4
// writes the moved points as they are.
void Node::writeLocalMesh(EHierarchyHelp& help, OGeomStream& stream, EditableMesh& mesh, int kinds,
                          PlacementList& placements, int selection, int material) {
  if (kinds & ModifierFinishMesh) {
    stream << CmdGroupBegin << CmdTransform << help.matrix;
    writeSelection(stream, selection);
    stream << CmdMaterialIndex << material;
    simple_->finishMesh(parameters_, mesh);
    GeomPrimitiveWriter::writeMesh(stream, mesh);
    stream << CmdGroupEnd;
    return;
  }
  simple_->deformPoints(parameters_, mesh, placements, *this);
  GeomPrimitiveWriter::writeMesh(stream, mesh);
}

void Node::writeSelection(OGeomStream& stream, int selection) {
  if (selection < 0) return;
  stream << CmdAttribute;
  stream.param(ParamSelection) << selection;
}

int selectionIndexOf(EHierarchyHelp& help, OGeomStream& stream, const std::string& name) {
  if (!help.selections) return -1;
  const auto found = help.selections->find(name);
  if (found != help.selections->end()) return found->second;
  const int index = stream.addMaterial(name);
  const bool issued = std::any_of(help.selections->begin(), help.selections->end(),
                                  [index](const auto& entry) { return entry.second == index; });
  if (!issued) (*help.selections)[name] = index;
  return index;
}

}  // namespace mv
