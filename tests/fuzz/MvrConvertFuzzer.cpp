// libFuzzer target: any byte string through the scene load and the conversion to growth nodes,
// the road of the generator import. A crash, a hang or a memory blow-up is a finding; keep its
// input as tests/data/regress-*.mvr.
#include <cstddef>
#include <cstdint>

#include "support/SceneFuzzInput.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  convertSceneBytes(data, size);
  return 0;
}
