// CoreVersion: the version and build date of the plug-in's core, as the About dialog and the
// documentation address name them.
#pragma once

constexpr const char* kCoreVersion = "5.0.2";
constexpr const char* kCoreDate = "Dec 16 2013";
