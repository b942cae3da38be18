// MeshFile: the one way the commands write a mesh, the format chosen by the file's suffix:
// ".obj" (with its ".mtl") or ".glb" (binary glTF).
#pragma once

#include <string>
#include <vector>

#include "export/ExportMaterial.h"
#include "export/WriteOptions.h"
#include "geometry/MeshData.h"

// True when path ends in ".obj" or ".glb"; otherwise says so for command and returns false.
bool checkMeshFileName(const std::string& command, const std::string& path);

// Writes mesh with materials to path in the format of its suffix; false, after a message,
// when the file could not be written.
bool writeMeshFile(const mv::MeshData& mesh, const std::vector<mv::ExportMaterial>& materials,
                   const std::string& path, const mv::WriteOptions& options = {});

bool endsWith(const std::string& text, const std::string& suffix);
