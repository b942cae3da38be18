// OPolygonStream: the geometry stream that builds polygons. It collects the tokens of one
// primitive and, when the next command arrives (or the stream is destroyed), writes it to an
// OMesh as points, polygons, texture polygons and selections, carried by the top transform and
// with the material of the top attribute record.
//
//   patch    nu x nv points become (nu - u order + 1) x (nv - v order + 1) quads; with order 2
//            one quad per span. Quad corners run T + i, T + i + 1, B + i + 1, B + i, where B is
//            row j and T row j + 1. The front of a quad (right-hand rule) is the side from which,
//            with the rows running upward, the columns run from right to left. So a tube around
//            +z with rows going up faces outward when its columns run clockwise seen from +z
//            (angle decreasing).
//            With weldSeam, a patch whose first and last column coincide within 1e-6 in every
//            row drops the last column and wraps the quads. Texture values, when two per point,
//            go to the corners; otherwise the grid gives u = i / columns, v = j / rows.
//   outline  a simple planar outline of n points becomes n - 2 triangles (Triangulation.h),
//            stored with the third corner repeated, and joins the selection of the top record.
//   quad     quads with shared points, indices relative to the primitive's points, eight texture
//            values a polygon.
//
// A rejected primitive (wrong point count, bad outline, index out of range) writes nothing and
// the next primitive starts afresh. The owner calls finish on the mesh after destroying the
// stream.
#pragma once

#include <cstdint>
#include <vector>

#include "geometry/OBaseGeomStream.h"
#include "geometry/OMesh.h"

namespace mv {

class OPolygonStream : public OBaseGeomStream {
 public:
  // mesh is not owned and must outlive the stream.
  OPolygonStream(OMesh* mesh, bool weldSeam);
  ~OPolygonStream() override;
  OPolygonStream(const OPolygonStream&) = delete;
  OPolygonStream& operator=(const OPolygonStream&) = delete;

  using OBaseGeomStream::operator<<;
  OGeomStream& operator<<(const Vector3& point) override;

  void putNormal(const GeomNormal& normal) override;
  void putVector4(const GeomPoint4& point) override;
  void putPoint(const Vector3& point) override;
  void putInt(int value) override;
  void putDouble(double value) override;
  void putCommand(GeomCommand command) override;
  void beginList() override;

  // Writes the collected primitive to the mesh; false when it was rejected.
  virtual bool flush();

 private:
  bool flushPatch();
  bool flushPolygon();
  bool flushPolygonMesh();
  bool allocate(uint64_t pointCount, uint64_t polygonCount, uint32_t& firstPolygon);
  bool patchSeamClosed() const;
  void writePoints(size_t rowLength, uint32_t storedPerRow);
  Vector3 textureValue(size_t point) const;
  void writePatchTexture(uint32_t polygon, int i, int j, int cols, int rows) const;
  void reportTriangulationError() const;
  void clear();

  int nu_ = 0, uOrder_ = 0;
  double uMin_ = 0.0, uMax_ = 0.0;
  int nv_ = 0, vOrder_ = 0;
  double vMin_ = 0.0, vMax_ = 0.0;
  // Stored as read and never used: patches are tessellated uniformly, but a stream must still
  // accept and skip the knot lists that a writer sends.
  std::vector<double> uKnots_, vKnots_;
  int outlineCount_ = 0;
  std::vector<int> indices_;
  std::vector<Vector3> points_;
  std::vector<double> textureValues_;
  uint32_t firstPoint_ = 0;
  OMesh* mesh_;
  bool weldSeam_;
  bool intInFlight_ = false;  // an int passing through putDouble is never a texture value
};

}  // namespace mv
