// registerCurveTypeForTests: makes the curve a value kind of the host for the life of the test
// program, through the plug-in's own registration over a resource folder that names the type,
// so that containers and values can hold curves. True when that registration succeeded.
#pragma once

#include <unistd.h>

#include <fstream>

#include "host/GeResource.h"
#include "source/CurveGuiData.h"
#include "support/TestOutput.h"

inline bool registerCurveTypeForTests() {
  static const bool registered = [] {
    // A folder of this process's own: test processes run side by side.
    const std::string strings =
        testOutputPath("curve-resources-" + std::to_string(getpid()) + "/strings.str");
    std::filesystem::create_directories(std::filesystem::path(strings).parent_path());
    std::ofstream(strings) << "10028 \"Curve\"\n";
    return GeResource::Init(Filename(std::filesystem::path(strings).parent_path().string())) &&
           RegisterCurveDataType();
  }();
  return registered;
}
