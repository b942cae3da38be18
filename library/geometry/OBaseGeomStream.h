// OBaseGeomStream: what every consumer of the geometry stream needs: the protocol state machine
// that tracks where in a primitive the next token falls, the transform stack and the attribute
// stack. Tokens out of place are ignored; a number in a patch outside its places is reported.
// A consumer overrides the put operations, which the chaining operators call, and reads
// state(), lastCommand(), paramKind(), topTransform() and topAttributes().
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "geometry/GeomAttributes.h"
#include "geometry/OGeomStream.h"

namespace mv {

class OBaseGeomStream : public OGeomStream {
 public:
  OBaseGeomStream();

  int addMaterial(const std::string& name) override;
  OGeomStream& operator<<(char bracket) override;
  OGeomStream& param(int kind) override;
  OGeomStream& operator<<(GeomCommand command) override;
  OGeomStream& operator<<(double value) override;
  OGeomStream& operator<<(int value) override;
  OGeomStream& operator<<(const std::string& value) override;
  OGeomStream& operator<<(const Matrix4& value) override;
  OGeomStream& operator<<(const Vector3& point) override = 0;
  OGeomStream& operator<<(const GeomPoint4& point) override;
  OGeomStream& operator<<(const GeomNormal& normal) override;

  virtual void putNormal(const GeomNormal& normal);
  virtual void putVector4(const GeomPoint4& point);
  virtual void putPoint(const Vector3& point);
  virtual void putMatrix(const Matrix4& matrix);
  virtual void putString(const std::string& value);
  virtual void putInt(int value);
  virtual void putDouble(double value);
  virtual void putCommand(GeomCommand command);
  virtual void putParam(int kind);
  virtual void beginList();
  virtual void endList();

  int lastCommand() const { return lastCommand_; }
  int state() const { return state_; }
  int paramKind() const { return paramKind_; }
  int valueCounter() const { return valueCounter_; }
  const Matrix4& topTransform() const { return transforms_.back(); }
  GeomAttributes topAttributes() const { return attributes_.back(); }
  const std::vector<std::string>& materialNames() const { return materialNames_; }
  size_t transformDepth() const { return transforms_.size(); }
  size_t attributeDepth() const { return attributes_.size(); }

 private:
  bool inPolygonCommand() const;
  void countListValue() { ++valueCounter_; }
  void popTransform();
  void popAttributes();

  int state_ = StateUCount;
  int valueCounter_ = -1;
  int lastCommand_ = 0;
  int paramKind_ = ParamNone;
  std::deque<Matrix4> transforms_;
  std::deque<GeomAttributes> attributes_;
  std::vector<std::string> materialNames_;
};

}  // namespace mv
