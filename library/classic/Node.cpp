#include "classic/Node.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <new>
#include <unordered_set>
#include <utility>

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

size_t placementCount(const PlacementList& placements) {
  size_t count = 0;
  for (const PlacementGroup& group : placements) count += group.placements.size();
  return count;
}

int roleOfChild(const std::vector<int>& roles, size_t child, bool hasSimple) {
  if (!hasSimple) return RoleOther;
  return child < roles.size() ? roles[child] : RoleUnused;
}

}  // namespace

// Iterative, so that a deep chain cannot overflow the stack, and without allocating: the nodes
// still to destroy form a chain through nextDoomed_.
Node::~Node() {
  delete nodeSpline_;
  delete simple_;
  Node* doomed = nullptr;
  releaseChildren(doomed);
  while (doomed) {
    Node* node = doomed;
    doomed = node->nextDoomed_;
    node->releaseChildren(doomed);
    delete node;
  }
}

void Node::releaseChildren(Node*& doomed) noexcept {
  for (Node* child : children_) {
    if (child->useCount_ < 2) {
      child->useCount_ = 0;
      child->nextDoomed_ = doomed;
      doomed = child;
    } else {
      --child->useCount_;
    }
  }
  children_.clear();
}

std::string& Node::name(std::string& out) { return out = name_; }

Matrix4& Node::globalMatrix(Matrix4& out) { return out = Matrix4(); }

Matrix4& Node::localMatrix(Matrix4& out) { return out = matrix_; }

Spline* Node::spline() { return nodeSpline_; }

double Node::rayDistance(const Vector3&, const Vector3&, bool) { return -1.0; }

// Depth first with an explicit stack; shared objects repeat below each parent, so both the
// depth and the number of lines are bounded.
void Node::printTree(int level) {
  std::vector<std::pair<Node*, int>> pending{{this, std::max(level, 0)}};
  int lines = 0;
  bool cut = false;
  while (!pending.empty()) {
    const auto [node, depth] = pending.back();
    pending.pop_back();
    if (lines == kMaxPrintedLines) {
      cut = true;
      break;
    }
    std::string line(static_cast<size_t>(depth) * 4, ' ');
    line += node->name_;
    std::string type;
    if (node->simple_) line += " [" + node->simple_->typeName(type) + "]";
    messageSink.print(line);
    ++lines;
    if (depth - level >= kMaxDepth) {
      cut = cut || !node->children_.empty();
      continue;
    }
    for (auto child = node->children_.rbegin(); child != node->children_.rend(); ++child)
      pending.emplace_back(*child, depth + 1);
  }
  if (cut) messageSink.warning("The tree goes on below; only its first part is printed");
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
  if (child == this || child->reaches(this)) {
    messageSink.warning("Link of \"" + child->name_ + "\" under \"" + name_ +
                        "\" skipped: it would close a cycle");
    return false;
  }
  children_.push_back(child);
  ++child->useCount_;
  return true;
}

bool Node::reaches(const Node* target) const {
  const std::unordered_set<const Node*> below = reachable();
  return below.count(target) > 0;
}

// Depth first with an explicit stack; each shared node is walked once.
std::unordered_set<const Node*> Node::reachable() const {
  std::unordered_set<const Node*> found{this};
  std::vector<const Node*> pending{this};
  while (!pending.empty()) {
    const Node* node = pending.back();
    pending.pop_back();
    for (const Node* child : node->children_) {
      if (found.insert(child).second) pending.push_back(child);
    }
  }
  return found;
}

void Node::unlinkChildren() {
  for (Node* child : children_) --child->useCount_;
  children_.clear();
}

// What one walk shares across its levels: the selection indices already issued, and what its
// bounds have left out, said once when the walk ends.
struct Node::Walk {
  // The innermost local mesh being filled, and what the local meshes around it hold.
  struct Local {
    const EditableMesh* mesh = nullptr;
    uint32_t around = 0;
    uint32_t held() const { return around + (mesh ? mesh->getPolygonCount() : 0); }
  };
  std::set<int> issued;
  Local local;
  size_t placementsHeld = 0;  // in the placement lists of the nodes around a visit
  size_t placementsMade = 0;  // by every visit so far
  bool tooDeep = false;
  bool tooLarge = false;
  bool tooMany = false;
  bool exhausted = false;
};

bool Node::evaluate(EHierarchyHelp& help, OGeomStream& stream) {
  Walk walk;
  if (help.selections) {
    for (const auto& entry : *help.selections) walk.issued.insert(entry.second);
  }
  const bool result = visit(help, stream, walk);
  if (walk.tooDeep) {
    messageSink.warning("The scene is deeper than " + std::to_string(kMaxDepth) +
                        " levels; what lies deeper is left out");
  }
  if (walk.tooLarge) {
    messageSink.warning("A modifier's objects hold more than " + std::to_string(kMaxLocalPolygons) +
                        " polygons; the rest is left out");
  }
  if (walk.tooMany) {
    messageSink.warning("Objects nested in each other place more than " +
                        std::to_string(kMaxHeldPlacements) + " instances; the rest is left out");
  }
  if (walk.exhausted) {
    messageSink.warning("The scene places more than " + std::to_string(kMaxPlacementsMade) +
                        " instances in all; the rest is left out");
  }
  return result;
}

// A node stands in its parent's frame: its own matrix acts first, then everything above it.
bool Node::visit(EHierarchyHelp& help, OGeomStream& stream, Walk& walk) {
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
  if (simple_) evaluateSimple(help, stream, localMesh != nullptr, walk, roles, placements);
  const size_t count = placementCount(placements);
  walk.placementsMade += count;
  if (walk.placementsMade > kMaxPlacementsMade) walk.exhausted = true;
  const bool overHeld = walk.placementsHeld + count > kMaxHeldPlacements;
  walk.tooMany = walk.tooMany || overHeld;
  if (walk.exhausted || overHeld) placements.clear();
  walk.placementsHeld += placements.empty() ? 0 : count;
  int selection = -1, material = -1;
  evaluateChildren(help, stream, localMesh.get(), walk, roles, placements, selection, material);
  walk.placementsHeld -= placements.empty() ? 0 : count;
  if (localMesh) {
    writeLocalMesh(help, stream, *localMesh, kinds, placements, selection, material);
  }
  return true;
}

// One evaluation of the Simple on a private copy of the parameters, so that a node shared by
// many parents is never changed by a visit.
void Node::evaluateSimple(EHierarchyHelp& help, OGeomStream& stream, bool local, Walk& walk,
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
  writeSelection(stream, selectionIndexOf(help, stream, name_, walk.issued));
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
// share the rest. A node at the deepest level places no child.
void Node::evaluateChildren(EHierarchyHelp& help, OGeomStream& stream, EditableMesh* localMesh,
                            Walk& walk, const std::vector<int>& roles,
                            const PlacementList& placements, int& selection, int& material) {
  const double base = help.depth * kProgressShareOfDepth;
  const int live = livePlacements(roles, placements);
  const double childSpan = base + live > 0 ? help.progressSpan / (base + live) : 0.0;
  const double start = help.progressStart + base * help.progressSpan;
  if (help.progress) help.progress->setProgress(start);
  if (live > 0 && help.depth >= kMaxDepth) {
    walk.tooDeep = true;
    return;
  }
  const Walk::Local outer = walk.local;
  if (localMesh) walk.local = {localMesh, outer.held()};
  Span span{start, childSpan};
  placeChildren(help, stream, localMesh, walk, roles, placements, span, selection, material);
  walk.local = outer;
}

// A placement scaled to nothing is skipped and takes no share. A cancelled walk places no
// further child, and neither does one whose local meshes hold the most polygons they may.
void Node::placeChildren(EHierarchyHelp& help, OGeomStream& stream, EditableMesh* localMesh,
                         Walk& walk, const std::vector<int>& roles, const PlacementList& placements,
                         Span& span, int& selection, int& material) {
  for (size_t i = 0; i < children_.size(); ++i) {
    const int role = roleOfChild(roles, i, simple_ != nullptr);
    for (const PlacementGroup& group : placements) {
      if (group.role != role) continue;
      for (const Placement& placement : group.placements) {
        if (isCollapsed(placement.matrix)) continue;
        if (walk.exhausted || (help.progress && help.progress->isCancelled())) return;
        if (walk.local.held() > kMaxLocalPolygons) {
          walk.tooLarge = true;
          return;
        }
        EHierarchyHelp childHelp = helpForChild(help, placement);
        childHelp.progressStart = span.start;
        childHelp.progressSpan = span.size;
        if (localMesh) {
          childHelp.matrix = Matrix4();
          OPolygonStream localStream(localMesh, true);
          children_[i]->visit(childHelp, localStream, walk);
          material = childHelp.material;
          selection = selectionIndexOf(help, stream, children_[i]->name_, walk.issued);
        } else {
          children_[i]->visit(childHelp, stream, walk);
        }
        span.start += span.size;
      }
    }
  }
}

int Node::livePlacements(const std::vector<int>& roles, const PlacementList& placements) const {
  int live = 0;
  for (size_t i = 0; i < children_.size(); ++i) {
    const int role = roleOfChild(roles, i, simple_ != nullptr);
    for (const PlacementGroup& group : placements) {
      if (group.role != role) continue;
      for (const Placement& placement : group.placements) {
        if (!isCollapsed(placement.matrix)) ++live;
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

int selectionIndexOf(EHierarchyHelp& help, OGeomStream& stream, const std::string& name,
                     std::set<int>& issued) {
  if (!help.selections) return -1;
  const auto found = help.selections->find(name);
  if (found != help.selections->end()) return found->second;
  const int index = stream.addMaterial(name);
  if (issued.insert(index).second) (*help.selections)[name] = index;
  return index;
}

}  // namespace mv
