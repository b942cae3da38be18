// CurveDescriptionEntry: one line that the host's attribute panel shows for a part of a curve,
// with the settings of its field by the host's keys (1 name, 2 short name, 5 and 6 bounds, 7 and
// 8 strict bounds, 9 step, 10 animation, 12 unit code, 14 choices).
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

struct CurveDescriptionEntry {
  // The host's value kinds of an entry.
  enum Kind : int32_t { KindInteger = 15, KindReal = 19, KindText = 130 };

  int32_t number = 0;  // the sub-parameter number
  Kind kind = KindReal;
  std::string name;  // key 1 and key 2
  std::map<int32_t, double> reals;
  std::map<int32_t, int32_t> integers;
  std::map<int32_t, bool> flags;
  std::vector<std::pair<int32_t, std::string>> choices;  // key 14, empty when none
};
