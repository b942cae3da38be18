// SurfaceFile: reads the surface a lawn grows on from a mesh file, Wavefront OBJ or glTF (.glb,
// .gltf), into a mesh in library axes. OBJ faces of three or four corners are kept, larger ones
// are fanned into triangles; glTF triangle primitives of every node of the default scene are
// taken with the node's transform, other primitive modes are skipped.
#pragma once

#include <string>

#include "geometry/MeshData.h"

namespace SurfaceFile {

// False with a message through messageSink when the file cannot be read or holds no polygon.
bool read(const std::string& path, mv::MeshData& mesh);

}  // namespace SurfaceFile
