// OGeomStream: the token sink that every generator's evaluate writes its geometry to.
// A primitive is a command followed by its numbers, bracketed lists and named value lists:
//
//   patch:        CmdPatch nu 2 [u knots] umin umax nv 2 [v knots] vmin vmax
//                 param(ParamPoints) [nu*nv points, row after row]
//                 (param(ParamTexture) [two numbers per point])
//   outline:      CmdPolygon 1 [n] param(ParamPoints) [n points] (param(ParamTexture) [2n numbers])
//   quad mesh:    CmdPolygonMesh n [4n indices] [param(ParamPoints) points]
//                 [param(ParamTexture) 8n numbers]
//
// around which a group may set CmdTransform and a matrix, CmdAttribute param(ParamSelection)
// and a name or id, CmdMaterialIndex and an int. Every operation but addMaterial chains.
#pragma once

#include <string>

#include "core/Matrix4.h"
#include "core/Vector3.h"
#include "geometry/GeomCommand.h"
#include "geometry/GeomNormal.h"
#include "geometry/GeomPoint4.h"

namespace mv {

class OGeomStream {
 public:
  virtual ~OGeomStream() = default;
  // Stores a material name and returns its index; equal names are not merged.
  virtual int addMaterial(const std::string& name) = 0;
  virtual OGeomStream& operator<<(char bracket) = 0;  // '[' or ']'
  virtual OGeomStream& param(int kind) = 0;           // opens a named value list
  virtual OGeomStream& operator<<(GeomCommand command) = 0;
  virtual OGeomStream& operator<<(double value) = 0;
  virtual OGeomStream& operator<<(int value) = 0;
  virtual OGeomStream& operator<<(const std::string& value) = 0;
  virtual OGeomStream& operator<<(const Matrix4& value) = 0;
  virtual OGeomStream& operator<<(const Vector3& point) = 0;
  virtual OGeomStream& operator<<(const GeomPoint4& point) = 0;
  virtual OGeomStream& operator<<(const GeomNormal& normal) = 0;
};

}  // namespace mv
