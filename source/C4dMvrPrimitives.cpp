// The primitives, splines and meshes of the generator import.
#include <algorithm>
#include <cmath>

#include "core/MathConstants.h"
#include "geometry/IMesh.h"
#include "geometry/Spline.h"
#include "host/BaseContainer.h"
#include "host/BaseObject.h"
#include "host/HostIds.h"
#include "host/SplineObject.h"
#include "source/C4dMvrLoader.h"
#include "source/C4dPolygonMesh.h"
#include "source/MatrixConversion.h"

namespace {

constexpr double kPhongAngle = 89.0 * mv::kPi / 180.0;

// Parameter ids of the host's primitives.
enum : int {
  IdCubeSize = 1100,
  IdCubeSegmentsX = 1102,
  IdCubeSegmentsY = 1103,
  IdCubeSegmentsZ = 1104,
  IdSphereRadius = 1110,
  IdSphereSegments = 1111,
  IdSpherePerfect = 1113,
  IdConeBottomRadius = 1131,
  IdConeHeight = 1132,
  IdConeHeightSegments = 1133,
  IdConeCapSegments = 1134,
  IdConeRotationSegments = 1135,
  IdDiscInnerRadius = 1160,
  IdDiscOuterRadius = 1161,
  IdDiscRadialSegments = 1162,
  IdDiscRotationSegments = 1163,
  IdPlaneWidth = 1270,
  IdPlaneHeight = 1271,
  IdPlaneSegments = 1272,
  IdPlaneHeightSegments = 1273,
  IdPlaneOrientation = 1300,
  IdArcType = 2000,
  IdArcRadius = 2001,
  IdArcEnd = 2005,
  IdArcStart = 2006,
  IdCircleEllipse = 2010,
  IdCircleRing = 2011,
  IdCircleRadius = 2012,
  IdNSideRadius = 2130,
  IdNSideCount = 2131,
  IdNSideRounding = 2132,
  IdCircleMode = 2005,
  IdPerfectSpheres = 2006,
};

}  // namespace

BaseObject* C4dMvrLoader::allocatePrimitive(int type, const std::string& name,
                                            const mv::Matrix4& matrix) {
  BaseObject* object = BaseObject::Alloc(type);
  if (!object) return nullptr;
  object->SetName(name);
  object->SetMl(toHostMatrix(matrix));
  return object;
}

std::string C4dMvrLoader::registerPrimitive(BaseObject* object, const std::string& name) {
  return object ? registerObject(name, object) : std::string();
}

std::string C4dMvrLoader::createBox(const std::string& name, const mv::Matrix4& matrix, double size,
                                    int resolution) {
  BaseObject* box = allocatePrimitive(Ocube, name, matrix);
  if (!box) return {};
  box->SetPhong(true, true, kPhongAngle);
  BaseContainer* data = box->GetDataInstance();
  data->SetVector(IdCubeSize, Vector(size));
  if (resolution > 0) {
    for (int id : {IdCubeSegmentsX, IdCubeSegmentsY, IdCubeSegmentsZ})
      data->SetLong(id, resolution);
  }
  return registerPrimitive(box, name);
}

std::string C4dMvrLoader::createCone(const std::string& name, const mv::Matrix4& matrix,
                                     double height, double radius, int slices, int stacks,
                                     int third) {
  BaseObject* cone = allocatePrimitive(Ocone, name, matrix);
  if (!cone) return {};
  cone->SetPhong(true, true, kPhongAngle);
  BaseContainer* data = cone->GetDataInstance();
  data->SetReal(IdConeBottomRadius, radius);
  data->SetReal(IdConeHeight, height);
  data->SetLong(IdConeHeightSegments, std::max(1, stacks));
  data->SetLong(IdConeCapSegments, std::max(1, third));
  data->SetLong(IdConeRotationSegments, std::max(3, slices));
  return registerPrimitive(cone, name);
}

std::string C4dMvrLoader::createCylinder(const std::string& name, const mv::Matrix4& matrix, double,
                                         double, int) {
  BaseObject* cylinder = allocatePrimitive(Ocylinder, name, matrix);
  if (!cylinder) return {};
  // The host's own cylinder stands: its defaults are what the classic cylinder was drawn like.
  cylinder->SetPhong(true, true, kPhongAngle);
  return registerPrimitive(cylinder, name);
}

std::string C4dMvrLoader::createSphere(const std::string& name, const mv::Matrix4& matrix,
                                       double radius, int resolution) {
  BaseObject* sphere = allocatePrimitive(Osphere, name, matrix);
  if (!sphere) return {};
  sphere->SetPhong(true, false, 0.0);
  BaseContainer* data = sphere->GetDataInstance();
  data->SetReal(IdSphereRadius, radius);
  data->SetLong(IdSphereSegments, resolution);
  data->SetBool(IdSpherePerfect, container && container->GetBool(IdPerfectSpheres));
  return registerPrimitive(sphere, name);
}

std::string C4dMvrLoader::createPlane(const std::string& name, const mv::Matrix4& matrix,
                                      int facing, double size, int resolution) {
  static const Int32 kOrientation[] = {0, 1, 4, 5, 2, 3};
  BaseObject* plane = allocatePrimitive(Oplane, name, matrix);
  if (!plane) return {};
  BaseContainer* data = plane->GetDataInstance();
  data->SetLong(IdPlaneOrientation, facing >= 0 && facing <= 5 ? kOrientation[facing] : 3);
  data->SetReal(IdPlaneWidth, size);
  data->SetReal(IdPlaneHeight, size);
  data->SetLong(IdPlaneSegments, resolution);
  data->SetLong(IdPlaneHeightSegments, 0);
  return registerPrimitive(plane, name);
}

std::string C4dMvrLoader::createDisk(const std::string& name, const mv::Matrix4& matrix,
                                     double radius, int resolution) {
  BaseObject* disk = allocatePrimitive(Odisc, name, matrix);
  if (!disk) return {};
  BaseContainer* data = disk->GetDataInstance();
  data->SetReal(IdDiscInnerRadius, 0.0);
  data->SetReal(IdDiscOuterRadius, radius);
  data->SetLong(IdDiscRadialSegments, (resolution + 1) / 2);
  data->SetLong(IdDiscRotationSegments, resolution + 5);
  return registerPrimitive(disk, name);
}

// A circle of a number of points that four divide is a circle spline; any other an n-side.
std::string C4dMvrLoader::createCircle(const std::string& name, const mv::Matrix4& matrix,
                                       double radius, int points) {
  if (!container || name.empty()) return {};
  const double c = std::cos(-mv::kPi / 2);
  const mv::Matrix4 turned = mv::Matrix4::fromRows({c, 0, 1}, {0, 1, 0}, {-1, 0, c}, {}) * matrix;
  const bool polygon = container->GetLong(IdCircleMode) != 2 && points % 4 != 0;
  BaseObject* circle = allocatePrimitive(polygon ? Osplinenside : Osplinecircle, name, turned);
  if (!circle) return {};
  BaseContainer* data = circle->GetDataInstance();
  if (polygon) {
    data->SetBool(IdNSideRounding, false);
    data->SetLong(IdNSideCount, static_cast<Int32>(std::floor(std::max(points, 3) * 1.0)));
    data->SetReal(IdNSideRadius, radius);
  } else {
    data->SetBool(IdCircleEllipse, false);
    data->SetBool(IdCircleRing, false);
    data->SetReal(IdCircleRadius, radius);
    data->SetLong(SPLINEOBJECT_INTERPOLATION, SPLINEOBJECT_INTERPOLATION_UNIFORM);
    data->SetLong(SPLINEOBJECT_SUB,
                  static_cast<Int32>(std::lround(std::max(points, 4) / 4.0 - 1.0)));
  }
  data->SetLong(PRIM_PLANE, 0);
  return registerPrimitive(circle, name);
}

std::string C4dMvrLoader::createArc(const std::string& name, double radius, double start,
                                    double end, double offset) {
  BaseObject* arc = BaseObject::Alloc(Osplinearc);
  if (!arc) return {};
  arc->SetName(name);
  BaseContainer* data = arc->GetDataInstance();
  data->SetLong(IdArcType, 0);
  data->SetReal(IdArcRadius, radius);
  data->SetReal(IdArcEnd, end);
  data->SetReal(IdArcStart, start);
  arc->SetRelPos(Vector(0.0, offset, 0.0));
  return registerPrimitive(arc, name);
}

std::string C4dMvrLoader::createAttractorPrim(const std::string& name, const mv::Matrix4&, double,
                                              double, int) {
  // A marker: the attractor's values belong to the classic scene only.
  BaseObject* marker = BaseObject::Alloc(Osphere);
  if (!marker) return {};
  marker->SetName(name);
  marker->SetPhong(true, false, 0.0);
  marker->GetDataInstance()->SetReal(IdSphereRadius, 1.0);
  marker->GetDataInstance()->SetLong(IdSphereSegments, 3);
  return registerPrimitive(marker, name);
}

// Profiles (kind not 0) are moved into the host's axes; paths (kind 0) keep the library's.
std::string C4dMvrLoader::createSpline(const std::string& name, int kind, const mv::Matrix4& matrix,
                                       int interpolate, int subdivision, const mv::Spline& spline) {
  const Int32 count = static_cast<Int32>(spline.getPointCount());
  const Int32 segments = static_cast<Int32>(spline.getSegmentCount());
  SplineObject* object =
      SplineObject::Alloc(count, interpolate ? SPLINETYPE_CUBIC : SPLINETYPE_LINEAR);
  if (!object || !object->ResizeObject(count, segments)) {
    BaseObject* failed = object;
    BaseObject::Free(failed);
    return {};
  }
  object->SetName(name);
  BaseContainer* data = object->GetDataInstance();
  if (interpolate) {
    data->SetLong(SPLINEOBJECT_INTERPOLATION, SPLINEOBJECT_INTERPOLATION_NATURAL);
    data->SetLong(SPLINEOBJECT_SUB, subdivision);
  }
  data->SetBool(SPLINEOBJECT_CLOSED, segments > 0 && spline.isSegmentClosed(0));
  if (kind == 0) object->SetMl(toHostMatrix(matrix));
  Vector* points = object->GetPointW();
  for (Int32 i = 0; i < count; ++i) {
    double t = 0.0;
    mv::Vector3 p;
    spline.getPoint(static_cast<uint32_t>(i), t, p);
    if (kind != 0) p = matrix.transformPoint(p);
    points[i] = kind != 0 ? Vector(p.x, p.z, p.y) : Vector(p.x, p.y, p.z);
  }
  Segment* out = object->GetSegmentW();
  for (Int32 s = 0; s < segments; ++s) {
    out[s].cnt = static_cast<Int32>(spline.getSegmentPointCount(static_cast<uint32_t>(s)));
    out[s].closed = spline.isSegmentClosed(static_cast<uint32_t>(s));
  }
  object->Message(MSG_UPDATE);
  return registerObject(name, object);
}

std::string C4dMvrLoader::createMesh(const std::string& name, int kind, const mv::Matrix4& matrix,
                                     mv::IMesh& mesh, bool smooth) {
  C4dPolygonMesh copy;
  uint32_t firstPoint = 0, firstPolygon = 0;
  const uint32_t points = mesh.getPointCount(), polygons = mesh.getPolygonCount();
  if (!copy.allocate(points, polygons, firstPoint, firstPolygon)) return {};
  for (uint32_t i = 0; i < points; ++i) {
    mv::Vector3 p;
    mesh.getPoint(i, p);
    copy.setPoint(firstPoint + i, p);
  }
  for (uint32_t i = 0; i < polygons; ++i) {
    mv::MeshPolygon polygon;
    mesh.getPolygon(i, polygon);
    copy.setPolygon(firstPolygon + i, polygon);
    mv::TexturePolygon texture;
    mesh.getTexturePolygon(i, texture);
    copy.setTexturePolygon(firstPolygon + i, texture);
  }
  BaseObject* object = copy.detach();
  if (!object) return {};
  object->SetName(name);
  object->SetMl(toHostMatrix(matrix));
  if (smooth) object->SetPhong(true, true, kPhongAngle);
  const Int32 mode = kind ? MODE_OFF : MODE_UNDEF;
  object->SetEditorMode(mode);
  object->SetRenderMode(mode);
  return registerObject(name, object);
}
