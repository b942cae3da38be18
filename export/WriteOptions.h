// WriteOptions: what a caller may ask of a mesh writer beyond the mesh and its materials.
#pragma once

namespace mv {

class PhaseTimes;

struct WriteOptions {
  bool embedTextures = false;   // glTF: put the images into the file instead of referencing them
  bool replaceAnyFile = false;  // replace a symbolic link, device or other non-regular file
  PhaseTimes* phaseTimes = nullptr;  // when set, receives the CPU time of each writing phase
};

}  // namespace mv
