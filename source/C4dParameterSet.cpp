#include "source/C4dParameterSet.h"

#include <set>

#include "curves/CurveParam.h"
#include "host/BaseDocument.h"
#include "host/BaseTag.h"
#include "source/C4dObject.h"
#include "source/CurveDataType.h"
#include "source/MatrixConversion.h"
#include "source/PluginIds.h"

namespace {

constexpr int kNameLimit = 1024;
constexpr int kSweepDepth = 3;
constexpr int kOwnerOffset = 7000;
constexpr int kSweepGrowth = 1002;
constexpr int kBranchGrowth = 1103;
constexpr int kOwnerNodeNumber = 8301;
constexpr int kOwnerDistribution = 8306;
constexpr int kOwnerScrew = 8309;

bool isBranch(BaseObject* object) {
  return object != nullptr && object->IsInstanceOf(ID_BRANCH_OBJECT);
}

void report(bool* ok, bool value) {
  if (ok != nullptr) *ok = value;
}

}  // namespace

C4dParameterSet::C4dParameterSet(BaseObject* op, BaseDocument* doc)
    : container(op != nullptr ? op->GetDataInstance() : nullptr), object(op), document(doc) {}

C4dParameterSet::~C4dParameterSet() = default;

std::unique_ptr<mv::BaseNode>* C4dParameterSet::slot(int id) {
  switch (id) {
    case mv::IdProfileNode:
      return &profile;
    case mv::IdPathNode:
      return &path;
    case mv::IdTargetNode:
      return &target;
    case mv::IdClipNode:
      return &clip;
    default:
      return nullptr;
  }
}

bool C4dParameterSet::setSlot(int id, mv::BaseNode* node) {
  std::unique_ptr<mv::BaseNode> owned(node);
  std::unique_ptr<mv::BaseNode>* place = slot(id);
  if (place == nullptr) return false;
  *place = std::move(owned);
  return true;
}

void C4dParameterSet::deleteSlot(int id) {
  if (std::unique_ptr<mv::BaseNode>* place = slot(id)) place->reset();
}

bool C4dParameterSet::setString(int, const std::string&) { return true; }

bool C4dParameterSet::setDouble(int id, double value) {
  if (container == nullptr) return false;
  container->SetReal(id, value);
  return true;
}

bool C4dParameterSet::setInt(int id, int value) {
  if (container == nullptr) return false;
  container->SetLong(id, value);
  return true;
}

bool C4dParameterSet::setVector(int, const mv::Vector3&) { return container != nullptr; }

bool C4dParameterSet::setMatrix(int, const mv::Matrix4&) { return container != nullptr; }

bool C4dParameterSet::setCurve(int id, const mv::CurveParam& value) {
  return storeCurve(container, id, value);
}

bool C4dParameterSet::setBool(int id, bool value) {
  if (container == nullptr) return false;
  container->SetBool(id, value);
  return true;
}

bool C4dParameterSet::setNode(int, mv::BaseNode*) { return true; }

std::string C4dParameterSet::getString(int id, bool* ok) {
  if (id != mv::IdName || object == nullptr) {
    report(ok, false);
    return {};
  }
  report(ok, true);
  return object->GetName().substr(0, kNameLimit);
}

double C4dParameterSet::getDouble(int id, bool* ok) {
  switch (id) {
    case mv::IdCarriedGrowth:
    case mv::IdCarriedThickness:
    case mv::IdCarriedDensity: {
      report(ok, true);
      BaseTag* tag = nearestDataTag(object);
      return tag != nullptr ? tag->GetDataInstance()->GetReal(id) : 1.0;
    }
    case mv::IdGrowthAbove: {
      BaseObject* sweep = nearestSweep(object, kSweepDepth);
      report(ok, sweep != nullptr);
      if (sweep == nullptr) return 1.0;
      const int growthId = sweep->IsInstanceOf(Osweep) ? kSweepGrowth : kBranchGrowth;
      return sweep->GetDataInstance()->GetReal(growthId, 1.0);
    }
    case kOwnerNodeNumber: {
      BaseObject* branch = owningBranch();
      report(ok, branch != nullptr);
      return branch != nullptr ? branch->GetDataInstance()->GetReal(id - kOwnerOffset, 0.0) : 10.0;
    }
    default:
      report(ok, container != nullptr);
      return container != nullptr ? container->GetReal(id, 0.0) : 0.0;
  }
}

int C4dParameterSet::getInt(int id, bool* ok) {
  if (id == mv::IdIndex || id == mv::IdCount) {
    report(ok, true);
    BaseTag* tag = nearestDataTag(object);
    return tag != nullptr ? tag->GetDataInstance()->GetLong(id) : 1;
  }
  report(ok, container != nullptr);
  return container != nullptr ? container->GetLong(id, 0) : 0;
}

mv::Vector3 C4dParameterSet::getVector(int id, bool* ok) {
  const bool known = object != nullptr && id >= 1001 && id <= 1003;
  report(ok, known);
  if (!known) return {};
  const Vector value = id == 1001   ? object->GetRelPos()
                       : id == 1002 ? object->GetRelRot()
                                    : object->GetRelScale();
  return {value.x, value.y, value.z};
}

mv::Matrix4 C4dParameterSet::getMatrix(int id, bool* ok) {
  const bool known = object != nullptr && (id == mv::IdLocalMatrix || id == mv::IdWorldMatrix);
  report(ok, known);
  if (!known) return mv::Matrix4();
  return toLibraryMatrix(id == mv::IdLocalMatrix ? object->GetMl() : worldMatrix(object));
}

mv::CurveParam* C4dParameterSet::getCurve(int id, bool* ok) {
  mv::CurveParam* curve = nullptr;
  if (id == kOwnerDistribution || id == kOwnerScrew) {
    BaseObject* branch = owningBranch();
    if (branch != nullptr) curve = curveIn(branch->GetDataInstance(), id - kOwnerOffset);
  } else {
    curve = curveIn(container, id);
  }
  if (curve != nullptr && document == nullptr) curve = nullptr;
  if (curve != nullptr) bindVariables(*curve);
  report(ok, curve != nullptr);
  return curve;
}

bool C4dParameterSet::getBool(int id, bool* ok) {
  report(ok, container != nullptr);
  return container != nullptr ? container->GetBool(id, true) : true;
}

mv::BaseNode* C4dParameterSet::getNode(int id, bool* ok) {
  std::unique_ptr<mv::BaseNode>* place = slot(id);
  report(ok, place != nullptr && object != nullptr);
  return place != nullptr ? place->get() : nullptr;
}

void C4dParameterSet::bindVariables(mv::CurveParam& curve) {
  std::set<char> names;
  curve.getVariables(names);
  if (names.empty()) return;
  mv::VariableMap values = curve.variables();
  for (char name : names) {
    if (name == 'i') values[name] = getInt(mv::IdIndex);
    if (name == 'n') values[name] = getInt(mv::IdCount);
    if (name == 't') values[name] = document->GetTime().Get();
    if (name == 'f') values[name] = document->GetTime().GetFrame(document->GetFps());
  }
  curve.setVariables(values);
}

BaseObject* C4dParameterSet::owningBranch() const {
  if (object == nullptr || object->GetUp() == nullptr) return nullptr;
  BaseObject* grandparent = object->GetUp()->GetUp();
  return isBranch(grandparent) ? grandparent : nullptr;
}

BaseTag* C4dParameterSet::nearestDataTag(BaseObject* object) {
  if (object == nullptr) return nullptr;
  if (BaseTag* tag = object->GetTag(ID_MORVO_TAG, 0)) return tag;
  if (BaseTag* tag = nearestDataTag(object->GetUp())) return tag;
  return nearestDataTag(object->GetCacheParent());
}

BaseObject* C4dParameterSet::nearestSweep(BaseObject* object, int depth) {
  if (object == nullptr || depth < 1) return nullptr;
  if (object->IsInstanceOf(Osweep) || isBranch(object)) return object;
  if (BaseObject* found = nearestSweep(object->GetUp(), depth - 1)) return found;
  return nearestSweep(object->GetCacheParent(), depth - 1);
}

Matrix C4dParameterSet::worldMatrix(BaseObject* object) {
  Matrix world = object->GetMl();
  auto above = [](BaseObject* node) {
    BaseObject* cacheParent = node->GetCacheParent();
    return cacheParent != nullptr ? cacheParent : node->GetUp();
  };
  for (BaseObject* parent = above(object); parent != nullptr; parent = above(parent)) {
    world = parent->GetMl() * world;
  }
  return world;
}

mv::CurveParam* C4dParameterSet::curveIn(BaseContainer* container, int id) {
  if (container == nullptr) return nullptr;
  return static_cast<CurveDataType*>(container->GetCustomDataType(id, CURVE_TYPE_ID));
}

bool C4dParameterSet::storeCurve(BaseContainer* container, int id, const mv::CurveParam& curve) {
  if (container == nullptr) return false;
  container->SetData(id, GeData(CURVE_TYPE_ID, CurveDataType(curve)));
  return container->GetCustomDataType(id, CURVE_TYPE_ID) != nullptr;
}
