// C4dObject: a host object seen as a library node: its name, matrices in library axes, its
// spline when it is a line object, its mesh when it is a polygon object, and ray queries against
// a polygon form of it. A node that only wraps a line (profile and path of a generator) has no
// object and answers its line alone.
#pragma once

#include <memory>
#include <string>

#include "core/BaseNode.h"
#include "host/BaseObject.h"
#include "source/C4dLine.h"
#include "source/C4dPolygonMesh.h"

class BaseDocument;

class C4dObject : public mv::BaseNode {
 public:
  C4dObject(BaseObject* object, BaseDocument* document);
  // A node over a line object, its points read through matrix.
  C4dObject(LineObject* line, const Matrix& matrix);
  ~C4dObject() override;
  C4dObject(const C4dObject&) = delete;
  C4dObject& operator=(const C4dObject&) = delete;

  std::string& name(std::string& out) override;
  mv::Matrix4& globalMatrix(mv::Matrix4& out) override;
  mv::Matrix4& localMatrix(mv::Matrix4& out) override;
  mv::Spline* spline() override;
  mv::IMesh* mesh() override;
  // Distance along the ray (library axes, world space) to the nearest hit in the object's
  // units; -1.0 without a hit or without a polygon form.
  double rayDistance(const mv::Vector3& origin, const mv::Vector3& direction,
                     bool limitToLength) override;
  virtual void setObject(BaseObject* object);

 private:
  // The polygons that rays are cast against: the object itself, or its current state made once.
  PolygonObject* rayTarget();

  BaseObject* polygonCache = nullptr;
  BaseDocument* document = nullptr;
  BaseObject* object = nullptr;
  C4dPolygonMesh polygonView;
  C4dLine line;
};
