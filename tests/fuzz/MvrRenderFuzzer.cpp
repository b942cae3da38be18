// libFuzzer target: any byte string through the whole render (load into the classic graph,
// release, walk into one mesh). A crash, a hang or a memory blow-up is a finding; keep its input
// as tests/data/regress-*.mvr.
#include <cstddef>
#include <cstdint>

#include "support/SceneRenderInput.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  mv::MeshData mesh;
  renderSceneBytes(data, size, mesh);
  return 0;
}
