#include <morvo.h>

// Touches every layer so that a missing library in Morvo::library fails to link.
int main() {
  mv::ParameterSetData params;
  params.setCurve(1, mv::CurveParam());
  const double value = params.getCurve(1)->evaluate(0.5);
  mv::MeshData mesh;
  uint32_t firstPoint = 0, firstPolygon = 0;
  mesh.allocate(3, 1, firstPoint, firstPolygon);
  mesh.setPoint(1, mv::Matrix4::rotationZ(1.0).transformPoint({value, 0, 0}));
  mv::Vector3 min, max;
  return mesh.getBoundingBox(min, max) && mesh.getPointCount() == 3 ? 0 : 1;
}
