// ParameterSet: the abstract store of a node's parameters, typed values addressed by integer id.
// Each kind has its own id space. Reading an absent id is no error: the getter returns the kind's
// fallback (empty, 0, identity, null, false) and sets *ok to false when ok is not null.
#pragma once

#include <string>

#include "core/Matrix4.h"
#include "core/Vector3.h"

namespace mv {

class BaseNode;
class CurveParam;
class IMesh;
class Spline;

// Ids whose meaning several nodes share.
enum SharedParameterId : int {
  IdName = 1000,
  IdWorldMatrix = 1004,
  IdLocalMatrix = 1005,
  IdProfileNode = 1006,
  IdPathNode = 1007,
  IdGrowthAbove = 1010,
  IdClipNode = 1120,
  IdCarriedGrowth = 6000,
  IdIndex = 6001,
  IdCount = 6002,
  IdCarriedThickness = 6003,
  IdCarriedDensity = 6004,
  IdTargetNode = 7002,
};

class ParameterSet {
 public:
  virtual ~ParameterSet() = default;

  virtual bool setString(int id, const std::string& value) = 0;
  virtual bool setDouble(int id, double value) = 0;
  virtual bool setInt(int id, int value) = 0;
  virtual bool setVector(int id, const Vector3& value) = 0;
  virtual bool setMatrix(int id, const Matrix4& value) = 0;
  virtual bool setCurve(int id, const CurveParam& value) = 0;
  virtual bool setBool(int id, bool value) = 0;
  virtual bool setNode(int id, BaseNode* value) = 0;  // not owned

  virtual std::string getString(int id, bool* ok = nullptr) = 0;
  virtual double getDouble(int id, bool* ok = nullptr) = 0;
  virtual int getInt(int id, bool* ok = nullptr) = 0;
  virtual Vector3 getVector(int id, bool* ok = nullptr) = 0;
  virtual Matrix4 getMatrix(int id, bool* ok = nullptr) = 0;
  // Points into the set: valid until the set changes; never freed by the caller.
  virtual CurveParam* getCurve(int id, bool* ok = nullptr) = 0;
  virtual bool getBool(int id, bool* ok = nullptr) = 0;
  virtual BaseNode* getNode(int id, bool* ok = nullptr) = 0;

  // The spline or mesh of the node under id; *ok tells whether the result is not null.
  virtual Spline* getSpline(int id, bool* ok = nullptr);
  virtual IMesh* getMesh(int id, bool* ok = nullptr);
};

}  // namespace mv
