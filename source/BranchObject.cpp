#include "source/BranchObject.h"

#include "core/MathConstants.h"
#include "host/BaseTag.h"
#include "host/SplineObject.h"
#include "source/C4dParameterSet.h"

namespace {

constexpr Int32 kCircleRadius = 2012;
constexpr Int32 kPhongAngleLimit = 1001;
constexpr Int32 kPhongAngle = 1002;
constexpr Int32 kPhongUseEdges = 1003;
constexpr Float kPathHeight = 200.0;

Float degrees(Float value) { return value * mt::kPi / 180.0; }

BaseObject* starterProfile() {
  BaseObject* circle = BaseObject::Alloc(Osplinecircle);
  if (circle == nullptr) return nullptr;
  circle->SetName("Profile");
  BaseContainer* data = circle->GetDataInstance();
  data->SetLong(PRIM_PLANE, 0);
  data->SetReal(kCircleRadius, 20.0);
  data->SetLong(SPLINEOBJECT_INTERPOLATION, SPLINEOBJECT_INTERPOLATION_ADAPTIVE);
  data->SetReal(SPLINEOBJECT_ANGLE, degrees(20.0));
  return circle;
}

BaseObject* starterPath() {
  SplineObject* path = SplineObject::Alloc(3, SPLINETYPE_CUBIC);
  if (path == nullptr) return nullptr;
  path->SetName("Path");
  Vector* points = path->GetPointW();
  for (Int32 i = 0; i < 3; ++i) points[i] = Vector(0.0, kPathHeight * i, 0.0);
  BaseContainer* data = path->GetDataInstance();
  data->SetLong(SPLINEOBJECT_INTERPOLATION, SPLINEOBJECT_INTERPOLATION_UNIFORM);
  data->SetLong(SPLINEOBJECT_SUB, 9);
  path->Message(MSG_UPDATE, nullptr);
  return path;
}

bool addStarterPlant(BaseObject* op) {
  BaseObject* profile = starterProfile();
  if (profile == nullptr) return false;
  profile->InsertUnderLast(op);
  BaseObject* path = starterPath();
  if (path == nullptr) return false;
  path->InsertUnderLast(op);
  BaseTag* phong = op->MakeTag(Tphong, nullptr);
  if (phong == nullptr) return false;
  BaseContainer* data = phong->GetDataInstance();
  data->SetBool(kPhongAngleLimit, true);
  data->SetReal(kPhongAngle, degrees(80.0));
  data->SetBool(kPhongUseEdges, true);
  return true;
}

}  // namespace

Bool BranchObject::Init(GeListNode* node) {
  MorvoObjectData::Init(node);
  static_cast<BaseObject*>(node)->GetDataInstance()->SetLong(nodeArrangement, 1);
  return true;
}

Bool BranchObject::Message(GeListNode* node, Int32 type, void* data) {
  if (type == MSG_MENUPREPARE) return addStarterPlant(static_cast<BaseObject*>(node));
  return MorvoObjectData::Message(node, type, data);
}

Bool BranchObject::GetDEnabling(GeListNode* node, const DescID& id, const GeData& value,
                                DESCFLAGS_ENABLE flags, const BaseContainer* itemdesc) {
  const BaseContainer* data = static_cast<BaseObject*>(node)->GetDataInstance();
  switch (id[0].id) {
    case nodeWhorl:
      return data->GetLong(nodeMode) != 1;
    case nodeGrowth:
      return data->GetBool(nodeGrowthCurved);
    case nodeDensity:
      return data->GetBool(nodeDensityCurved);
    default:
      return MorvoObjectData::GetDEnabling(node, id, value, flags, itemdesc);
  }
}

Bool BranchObject::SetDParameter(GeListNode* node, const DescID& id, const GeData& value,
                                 DESCFLAGS_SET& flags) {
  auto* op = static_cast<BaseObject*>(node);
  const Int32 parameter = id[0].id;
  if (parameter == nodeFlap || parameter == nodeWhorl || parameter == nodeScrew ||
      parameter == nodeMode) {
    op->GetDataInstance()->SetLong(nodeArrangement, 0);
  } else if (parameter == nodeArrangement) {
    C4dParameterSet params(op, op->GetDocument());
    applyNodeArrangement(params, value.GetInt32());
  }
  return MorvoObjectData::SetDParameter(node, id, value, flags);
}
