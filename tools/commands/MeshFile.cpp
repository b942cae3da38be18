#include "commands/MeshFile.h"

#include "core/MessageSink.h"
#include "export/GlbWriter.h"
#include "export/ObjWriter.h"

bool endsWith(const std::string& text, const std::string& suffix) {
  return text.size() >= suffix.size() &&
         text.compare(text.size() - suffix.size(), suffix.size(), suffix) == 0;
}

bool checkMeshFileName(const std::string& command, const std::string& path) {
  if (endsWith(path, ".obj") || endsWith(path, ".glb")) return true;
  mv::messageSink.error(command + ": the output must end in .obj or .glb: " + path);
  return false;
}

bool writeMeshFile(const mv::MeshData& mesh, const std::vector<mv::ExportMaterial>& materials,
                   const std::string& path, const mv::WriteOptions& options) {
  if (endsWith(path, ".obj")) {
    mv::ObjWriter writer(materials);
    writer.setOptions(options);
    return writer.write(mesh, path);
  }
  mv::GlbWriter writer(materials);
  writer.setOptions(options);
  return writer.write(mesh, path);
}
