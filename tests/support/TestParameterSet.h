// TestParameterSet: a parameter set that keeps node links only and answers every other id with
// its fallback, for tests of the protocol that need no values.
#pragma once

#include <map>

#include "ParameterSet.h"

class TestParameterSet : public mv::ParameterSet {
 public:
  bool setString(int, const std::string&) override { return false; }
  bool setDouble(int, double) override { return false; }
  bool setInt(int, int) override { return false; }
  bool setVector(int, const mv::Vector3&) override { return false; }
  bool setMatrix(int, const mv::Matrix4&) override { return false; }
  bool setCurve(int, const mv::CurveParam&) override { return false; }
  bool setBool(int, bool) override { return false; }
  bool setNode(int id, mv::BaseNode* value) override {
    nodes[id] = value;
    return true;
  }

  std::string getString(int, bool* ok) override { return absent<std::string>(ok); }
  double getDouble(int, bool* ok) override { return absent<double>(ok); }
  int getInt(int, bool* ok) override { return absent<int>(ok); }
  mv::Vector3 getVector(int, bool* ok) override { return absent<mv::Vector3>(ok); }
  mv::Matrix4 getMatrix(int, bool* ok) override { return absent<mv::Matrix4>(ok); }
  mv::CurveParam* getCurve(int, bool* ok) override { return absent<mv::CurveParam*>(ok); }
  bool getBool(int, bool* ok) override { return absent<bool>(ok); }
  mv::BaseNode* getNode(int id, bool* ok) override {
    const auto found = nodes.find(id);
    if (ok) *ok = found != nodes.end();
    return found != nodes.end() ? found->second : nullptr;
  }

  std::map<int, mv::BaseNode*> nodes;

 private:
  template <typename T>
  static T absent(bool* ok) {
    if (ok) *ok = false;
    return T{};
  }
};
