#include "source/C4dObject.h"

#include "host/BaseDocument.h"
#include "host/GeRayCollider.h"
#include "source/CurrentState.h"
#include "source/MatrixConversion.h"

namespace {

constexpr double kUnlimited = 1e38;

}  // namespace

C4dObject::C4dObject(BaseObject* object, BaseDocument* document) : document(document) {
  setObject(object);
}

C4dObject::C4dObject(LineObject* lineObject, const Matrix& matrix) {
  line.setLine(lineObject, matrix);
  empty = lineObject == nullptr;
}

C4dObject::~C4dObject() { BaseObject::Free(polygonCache); }

void C4dObject::setObject(BaseObject* newObject) {
  object = newObject;
  empty = newObject == nullptr;
  if (newObject == nullptr) return;
  if (newObject->IsInstanceOf(Opolygon)) {
    polygonView = C4dPolygonMesh(static_cast<PolygonObject*>(newObject));
  }
  if (newObject->IsInstanceOf(Oline)) line.setLine(static_cast<LineObject*>(newObject), Matrix());
}

std::string& C4dObject::name(std::string& out) {
  out = object != nullptr ? object->GetName() : std::string();
  return out;
}

mv::Matrix4& C4dObject::globalMatrix(mv::Matrix4& out) {
  out = object != nullptr ? toLibraryMatrix(object->GetMg()) : mv::Matrix4();
  return out;
}

mv::Matrix4& C4dObject::localMatrix(mv::Matrix4& out) {
  out = object != nullptr ? toLibraryMatrix(object->GetMl()) : mv::Matrix4();
  return out;
}

mv::Spline* C4dObject::spline() { return line.getLineObject() != nullptr ? &line : nullptr; }

mv::IMesh* C4dObject::mesh() { return polygonView.object() != nullptr ? &polygonView : nullptr; }

PolygonObject* C4dObject::rayTarget() {
  if (object == nullptr) return nullptr;
  if (object->IsInstanceOf(Opolygon)) return static_cast<PolygonObject*>(object);
  if (polygonCache == nullptr) {
    BaseDocument scratch;
    BaseObject* copy = object->GetClone(COPYFLAGS_NONE, nullptr);
    if (copy == nullptr) return nullptr;
    scratch.InsertObject(copy, nullptr, nullptr);
    polygonCache = currentStateOf(copy, &scratch);
    if (polygonCache != nullptr && !polygonCache->IsInstanceOf(Opolygon)) {
      BaseObject::Free(polygonCache);
      polygonCache = nullptr;
    }
  }
  return static_cast<PolygonObject*>(polygonCache);
}

double C4dObject::rayDistance(const mv::Vector3& origin, const mv::Vector3& direction,
                              bool limitToLength) {
  PolygonObject* target = rayTarget();
  if (target == nullptr) return -1.0;
  GeRayCollider collider;
  if (!collider.Init(target, true)) return -1.0;
  const Matrix toObject = Invert(object->GetMg());
  const Vector start = toObject * toHostVector(origin);
  Vector way = toObject.TransformVector(toHostVector(direction));
  const double length = way.GetLength();
  way = way.GetNormalized();
  if (!collider.Intersect(start, way, limitToLength ? length : kUnlimited)) return -1.0;
  GeRayColResult hit;
  if (!collider.GetNearestIntersection(&hit)) return -1.0;
  return hit.distance;
}
