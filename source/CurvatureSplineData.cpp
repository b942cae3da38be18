#include "source/CurvatureSplineData.h"

#include "core/MathConstants.h"
#include "host/SplineObject.h"
#include "source/C4dParameterSet.h"
#include "source/MatrixConversion.h"

Bool CurvatureSplineData::Init(GeListNode* node) {
  MorvoObjectData::Init(node);
  BaseContainer* data = static_cast<BaseObject*>(node)->GetDataInstance();
  data->SetLong(SPLINEOBJECT_INTERPOLATION, SPLINEOBJECT_INTERPOLATION_ADAPTIVE);
  data->SetLong(SPLINEOBJECT_SUB, 8);
  data->SetReal(SPLINEOBJECT_ANGLE, 5.0 * mt::kPi / 180.0);
  return true;
}

Bool CurvatureSplineData::GetDEnabling(GeListNode* node, const DescID& id, const GeData& value,
                                       DESCFLAGS_ENABLE flags, const BaseContainer* itemdesc) {
  const Int32 interpolation =
      static_cast<BaseObject*>(node)->GetDataInstance()->GetLong(SPLINEOBJECT_INTERPOLATION);
  if (id[0].id == SPLINEOBJECT_SUB) {
    return interpolation == SPLINEOBJECT_INTERPOLATION_NATURAL ||
           interpolation == SPLINEOBJECT_INTERPOLATION_UNIFORM;
  }
  if (id[0].id == SPLINEOBJECT_ANGLE) return interpolation == SPLINEOBJECT_INTERPOLATION_ADAPTIVE;
  return MorvoObjectData::GetDEnabling(node, id, value, flags, itemdesc);
}

SplineObject* CurvatureSplineData::GetContour(BaseObject* op, BaseDocument* doc, Float lod,
                                              BaseThread*) {
  BaseContainer* data = op->GetDataInstance();
  if (data == nullptr) return nullptr;
  C4dParameterSet params(op, doc);
  computeFrames(params, lod);
  const Int32 count = static_cast<Int32>(frames().size());
  const Int32 type = data->GetBool(kCubic) ? SPLINETYPE_CUBIC : SPLINETYPE_LINEAR;
  SplineObject* spline = SplineObject::Alloc(count, type);
  if (spline == nullptr) return nullptr;
  Vector* points = spline->GetPointW();
  for (Int32 i = 0; i < count; ++i) points[i] = toHostVector(frames()[i].matrix.position());
  BaseContainer* splineData = spline->GetDataInstance();
  for (Int32 id : {SPLINEOBJECT_INTERPOLATION, SPLINEOBJECT_SUB, SPLINEOBJECT_ANGLE}) {
    splineData->SetData(id, data->GetData(id));
  }
  spline->Message(MSG_UPDATE, nullptr);
  return spline;
}
