#include "commands/EditScriptFile.h"

#include <fstream>
#include <stdexcept>

#include "source/CurveEditScript.h"
#include "source/CurveUnit.h"

namespace {

constexpr std::streamsize kMaxScriptBytes = 16 << 20;

}  // namespace

int curveUnitNamed(const std::string& name) {
  if (name == "percent") return UnitPercent;
  if (name == "degree") return UnitDegree;
  if (name == "meter") return UnitMeter;
  return UnitNone;
}

void playEditScriptFile(mv::CurveParam& curve, const std::string& path, int unit) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read \"" + path + "\"");
  std::string text(kMaxScriptBytes + 1, '\0');
  file.read(&text[0], kMaxScriptBytes + 1);
  if (file.gcount() > kMaxScriptBytes) throw std::runtime_error("\"" + path + "\" is too long");
  text.resize(static_cast<size_t>(file.gcount()));
  CurveEditScript script;
  std::string error;
  if (!script.parse(text, error)) throw std::runtime_error(path + ", " + error);
  script.play(curve, unit);
}
