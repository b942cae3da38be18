#include "curves/ParameterSetData.h"

namespace mv {

namespace {

template <typename Value>
bool store(std::map<int, Value>& map, int id, const Value& value) {
  map[id] = value;
  return true;
}

// The map's value under id, or the kind's fallback.
template <typename Value>
Value lookup(const std::map<int, Value>& map, int id, bool* ok, const Value& fallback) {
  const auto found = map.find(id);
  if (ok) *ok = found != map.end();
  return found != map.end() ? found->second : fallback;
}

template <typename Value>
Value fixed(const Value& member, bool* ok) {
  if (ok) *ok = true;
  return member;
}

}  // namespace

bool ParameterSetData::setString(int id, const std::string& value) {
  return store(strings, id, value);
}
bool ParameterSetData::setDouble(int id, double value) { return store(doubles, id, value); }
bool ParameterSetData::setInt(int id, int value) { return store(ints, id, value); }
bool ParameterSetData::setVector(int id, const Vector3& value) { return store(vectors, id, value); }
bool ParameterSetData::setMatrix(int, const Matrix4&) { return true; }
bool ParameterSetData::setCurve(int id, const CurveParam& value) {
  return store(curves, id, value);
}
bool ParameterSetData::setBool(int id, bool value) { return store(bools, id, value); }
bool ParameterSetData::setNode(int id, BaseNode* value) { return store(nodes, id, value); }

std::string ParameterSetData::getString(int id, bool* ok) {
  return lookup(strings, id, ok, std::string());
}

double ParameterSetData::getDouble(int id, bool* ok) {
  if (id == IdCarriedGrowth) return fixed(carriedGrowth, ok);
  if (id == IdCarriedThickness) return fixed(carriedThickness, ok);
  if (id == IdCarriedDensity) return fixed(carriedDensity, ok);
  return lookup(doubles, id, ok, 0.0);
}

int ParameterSetData::getInt(int id, bool* ok) {
  if (id == IdIndex) return fixed(index, ok);
  if (id == IdCount) return fixed(count, ok);
  return lookup(ints, id, ok, 0);
}

Vector3 ParameterSetData::getVector(int id, bool* ok) { return lookup(vectors, id, ok, Vector3()); }

Matrix4 ParameterSetData::getMatrix(int id, bool* ok) {
  if (id == IdWorldMatrix) return fixed(worldMatrix, ok);
  if (id == IdLocalMatrix) return fixed(localMatrix, ok);
  if (ok) *ok = false;
  return Matrix4();
}

CurveParam* ParameterSetData::getCurve(int id, bool* ok) {
  const auto found = curves.find(id);
  if (ok) *ok = found != curves.end();
  return found != curves.end() ? &found->second : nullptr;
}

bool ParameterSetData::getBool(int id, bool* ok) { return lookup(bools, id, ok, false); }

BaseNode* ParameterSetData::getNode(int id, bool* ok) {
  if (id == IdProfileNode) return fixed(profileNode, ok);
  if (id == IdPathNode) return fixed(pathNode, ok);
  if (id == IdClipNode) return fixed(clipNode, ok);
  return lookup(nodes, id, ok, static_cast<BaseNode*>(nullptr));
}

void ParameterSetData::clear() {
  strings.clear();
  doubles.clear();
  ints.clear();
  vectors.clear();
  curves.clear();
  bools.clear();
  nodes.clear();
}

}  // namespace mv
