// fourCharCode: the host's four-character constants ('ipdv', 'frea', ...) as int32 values, most
// significant character first, without relying on the compiler's multi-character literals.
#pragma once

#include <cstdint>

constexpr int32_t fourCharCode(const char (&code)[5]) {
  return static_cast<int32_t>((static_cast<uint32_t>(static_cast<unsigned char>(code[0])) << 24) |
                              (static_cast<uint32_t>(static_cast<unsigned char>(code[1])) << 16) |
                              (static_cast<uint32_t>(static_cast<unsigned char>(code[2])) << 8) |
                              static_cast<uint32_t>(static_cast<unsigned char>(code[3])));
}
