// EditScriptFile: the curve editor's edit scripts read from files, for the commands that play
// them on a curve, and the names of the units a curve's values are shown in.
#pragma once

#include <string>

#include "curves/CurveParam.h"

// The CurveUnit of "none", "percent", "degree" or "meter".
int curveUnitNamed(const std::string& name);
// Reads, parses and plays the script at path on the curve; throws with a message naming the file
// (and the line) when it cannot be read or is no script.
void playEditScriptFile(mv::CurveParam& curve, const std::string& path, int unit);
