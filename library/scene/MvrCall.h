// MvrCall: one call that a scene load made on its loader, as MvrRecordingLoader keeps it: the
// operation, the names involved, the header (for primitives: name and matrix only) and the
// main arguments by name.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "curves/CurveParam.h"
#include "scene/MvrHeader.h"

namespace mv {

struct MvrCall {
  std::string operation;  // "createClassicTree", "insertUnder", ...
  std::string name;       // the object named by the call (insertUnder, addMaterial: the object)
  std::string parent;     // insertUnder: the parent; classic objects: the primitive's name
  std::string created;    // the name that the call handed back
  MvrHeader header;
  std::vector<std::pair<std::string, double>> values;  // numbers in argument order
  std::string text;                                    // addMaterial: the material's name
  std::map<std::string, CurveParam> curves;            // curve arguments by name

  // The number recorded under key; fallback when there is none.
  double value(const std::string& key, double fallback = 0.0) const {
    for (const auto& entry : values)
      if (entry.first == key) return entry.second;
    return fallback;
  }
};

}  // namespace mv
