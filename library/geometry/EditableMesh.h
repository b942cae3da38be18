// EditableMesh: a mesh that can be read and written, as modifiers in the scene graph need.
#pragma once

#include "geometry/IMesh.h"
#include "geometry/OMesh.h"

namespace mv {

class EditableMesh : public IMesh, public OMesh {};

}  // namespace mv
