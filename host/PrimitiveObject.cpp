#include "host/PrimitiveObject.h"

#include "host/BaseObject.h"
#include "host/PolygonObject.h"
#include "host/PrimitiveShapes.h"

Bool PrimitiveObject::Init(GeListNode* node) {
  auto* op = static_cast<BaseObject*>(node);
  BaseContainer& bc = *op->GetDataInstance();
  switch (op->GetType()) {
    case Ocube:
      bc.SetVector(1100, Vector(200.0));
      for (Int32 id : {1102, 1103, 1104}) bc.SetLong(id, 1);
      break;
    case Osphere:
      bc.SetReal(1110, 100.0);
      bc.SetLong(1111, 24);
      bc.SetBool(1113, false);
      break;
    case Ocone:
      bc.SetReal(1130, 0.0);
      bc.SetReal(1131, 100.0);
      bc.SetReal(1132, 200.0);
      bc.SetLong(1133, 8);
      bc.SetLong(1134, 1);
      bc.SetLong(1135, 36);
      break;
    case Ocylinder:
      bc.SetReal(1180, 50.0);
      bc.SetReal(1181, 200.0);
      bc.SetLong(1182, 4);
      bc.SetLong(1183, 36);
      bc.SetLong(1184, 1);
      break;
    case Odisc:
      bc.SetReal(1160, 0.0);
      bc.SetReal(1161, 100.0);
      bc.SetLong(1162, 1);
      bc.SetLong(1163, 36);
      bc.SetLong(1300, 2);
      break;
    case Oplane:
      bc.SetReal(1270, 400.0);
      bc.SetReal(1271, 400.0);
      bc.SetLong(1272, 20);
      bc.SetLong(1273, 20);
      bc.SetLong(1300, 2);
      break;
    default:
      return false;
  }
  return true;
}

PolygonObject* PrimitiveObject::BuildMesh(const BaseObject* op) {
  const BaseContainer& bc = *op->GetDataInstance();
  switch (op->GetType()) {
    case Ocube:
      return PrimitiveShapes::box(bc.GetVector(1100), bc.GetLong(1102), bc.GetLong(1103),
                                  bc.GetLong(1104));
    case Osphere:
      return PrimitiveShapes::sphere(bc.GetReal(1110), bc.GetLong(1111));
    case Ocone:
      return PrimitiveShapes::cone(bc.GetReal(1131), bc.GetReal(1130), bc.GetReal(1132),
                                   bc.GetLong(1133), bc.GetLong(1134), bc.GetLong(1135));
    case Ocylinder:
      return PrimitiveShapes::cone(bc.GetReal(1180), bc.GetReal(1180), bc.GetReal(1181),
                                   bc.GetLong(1182), bc.GetLong(1184), bc.GetLong(1183));
    case Odisc:
      return PrimitiveShapes::disc(bc.GetReal(1160), bc.GetReal(1161), bc.GetLong(1162),
                                   bc.GetLong(1163),
                                   PrimitiveShapes::axisOrientation(bc.GetLong(1300, 2)));
    case Oplane: {
      Int32 depthSegments = bc.GetLong(1273);
      return PrimitiveShapes::plane(bc.GetReal(1270), bc.GetReal(1271), bc.GetLong(1272),
                                    depthSegments > 0 ? depthSegments : bc.GetLong(1272),
                                    PrimitiveShapes::axisOrientation(bc.GetLong(1300, 2)));
    }
    default:
      return nullptr;
  }
}

BaseObject* PrimitiveObject::GetVirtualObjects(BaseObject* op, HierarchyHelp* hh) {
  if (!op->CheckCache(hh) && !op->IsDirty(DIRTYFLAGS_DATA)) return op->GetCache(hh);
  PolygonObject* mesh = BuildMesh(op);
  if (mesh) mesh->SetName(op->GetName());
  return mesh;
}
