#include <morvo.h>

int main() {
  mv::Matrix4 turn;
  turn.rotateZ(1.0);
  mv::MeshData mesh;
  uint32_t firstPoint = 0, firstPolygon = 0;
  mesh.allocate(3, 1, firstPoint, firstPolygon);
  mesh.setPoint(1, turn.transformPoint({1, 0, 0}));
  mv::Vector3 min, max;
  return mesh.getBoundingBox(min, max) && mesh.getPointCount() == 3 ? 0 : 1;
}
