// ParameterSetData: the parameter set that needs no host, one ordered map per kind of value plus
// fixed members for the ids that the scene graph fills directly. The fixed ids (matrices 1004 and
// 1005, doubles 6000, 6003, 6004, ints 6001, 6002, nodes 1006, 1007, 1120) are answered from the
// members and never from the maps, so a setter on such an id stores into a map that is not read.
// setMatrix stores nothing. A copy is deep (curves included); node pointers are copied as
// pointers and never owned.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "core/ParameterSet.h"
#include "curves/CurveParam.h"

namespace mv {

class ParameterSetData : public ParameterSet {
 public:
  bool setString(int id, const std::string& value) override;
  bool setDouble(int id, double value) override;
  bool setInt(int id, int value) override;
  bool setVector(int id, const Vector3& value) override;
  bool setMatrix(int id, const Matrix4& value) override;
  bool setCurve(int id, const CurveParam& value) override;
  bool setBool(int id, bool value) override;
  bool setNode(int id, BaseNode* value) override;

  std::string getString(int id, bool* ok = nullptr) override;
  double getDouble(int id, bool* ok = nullptr) override;
  int getInt(int id, bool* ok = nullptr) override;
  Vector3 getVector(int id, bool* ok = nullptr) override;
  Matrix4 getMatrix(int id, bool* ok = nullptr) override;
  CurveParam* getCurve(int id, bool* ok = nullptr) override;
  bool getBool(int id, bool* ok = nullptr) override;
  BaseNode* getNode(int id, bool* ok = nullptr) override;

  // Empties the seven maps; the fixed members keep their values.
  virtual void clear();

  std::map<int, std::string> strings;
  std::map<int, double> doubles;
  std::map<int, int32_t> ints;
  std::map<int, Vector3> vectors;
  std::map<int, CurveParam> curves;  // getCurve points into this map
  std::map<int, bool> bools;
  std::map<int, BaseNode*> nodes;  // not owned

  Matrix4 worldMatrix;              // matrix 1004
  Matrix4 localMatrix;              // matrix 1005
  int32_t material = 0;             // set by the scene graph
  double carriedGrowth = 1.0;       // double 6000
  double carriedThickness = 1.0;    // double 6003
  double carriedDensity = 1.0;      // double 6004
  int32_t index = 0;                // int 6001
  int32_t count = 1;                // int 6002
  BaseNode* profileNode = nullptr;  // node 1006, not owned
  BaseNode* clipNode = nullptr;     // node 1120, not owned
  BaseNode* pathNode = nullptr;     // node 1007, not owned
};

}  // namespace mv
