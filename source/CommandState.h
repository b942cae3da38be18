// CommandState: the answer of the plug-in's menu commands to GetState: always enabled.
#pragma once

#include "host/HostTypes.h"

constexpr Int32 kCommandEnabled = 0x40000000;
