#include "export/Utf8Text.h"

namespace mv {

namespace {

bool continuation(unsigned char byte) { return (byte & 0xc0) == 0x80; }

// The length of the well-formed UTF-8 sequence at text[at], or 0 when there is none: no
// overlong forms, no surrogates, nothing above U+10FFFF.
size_t sequenceLength(const std::string& text, size_t at) {
  const auto byte = [&](size_t k) { return static_cast<unsigned char>(text[at + k]); };
  const unsigned char lead = byte(0);
  if (lead < 0x80) return 1;
  size_t length = 0;
  unsigned char low = 0x80, high = 0xbf;  // allowed range of the second byte
  if (lead >= 0xc2 && lead <= 0xdf) {
    length = 2;
  } else if (lead >= 0xe0 && lead <= 0xef) {
    length = 3;
    if (lead == 0xe0) low = 0xa0;
    if (lead == 0xed) high = 0x9f;
  } else if (lead >= 0xf0 && lead <= 0xf4) {
    length = 4;
    if (lead == 0xf0) low = 0x90;
    if (lead == 0xf4) high = 0x8f;
  }
  if (length == 0 || at + length > text.size()) return 0;
  if (byte(1) < low || byte(1) > high) return 0;
  for (size_t k = 2; k < length; ++k) {
    if (!continuation(byte(k))) return 0;
  }
  return length;
}

}  // namespace

std::string Utf8Text::fromBytes(const std::string& bytes) {
  std::string result;
  result.reserve(bytes.size());
  for (size_t at = 0; at < bytes.size();) {
    const size_t length = sequenceLength(bytes, at);
    if (length > 0) {
      result.append(bytes, at, length);
      at += length;
      continue;
    }
    const unsigned char latin1 = static_cast<unsigned char>(bytes[at++]);
    result += static_cast<char>(0xc0 | (latin1 >> 6));
    result += static_cast<char>(0x80 | (latin1 & 0x3f));
  }
  return result;
}

}  // namespace mv
