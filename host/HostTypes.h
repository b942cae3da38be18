// HostTypes: the scalar and string types of the host's interface, as plug-ins written for it
// spell them.
#pragma once

#include <cstdint>
#include <string>

using Int32 = std::int32_t;
using UInt32 = std::uint32_t;
using Int64 = std::int64_t;
using UInt64 = std::uint64_t;
using Float = double;
using Float64 = double;
using Bool = bool;
using UChar = unsigned char;
using String = std::string;

// Flag words of the parameter and description calls.
using DESCFLAGS_SET = Int32;
using DESCFLAGS_GET = Int32;
using DESCFLAGS_DESC = Int32;
using DESCFLAGS_ENABLE = Int32;
using DIRTYFLAGS = UInt32;
using COPYFLAGS = Int32;
using HIERARCHYCLONEFLAGS = Int32;
using EXECUTIONRESULT = Int32;
