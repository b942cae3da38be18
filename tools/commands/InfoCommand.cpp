// morvo info: shows what a scene file holds: its header, its key frames, the component tree of
// the earliest key frame and the sequence of create calls that a load makes from it.
#include <fstream>
#include <iostream>
#include <set>
#include <stdexcept>
#include <string>

#include "commands/Commands.h"
#include "curves/ParameterSetData.h"
#include "scene/MvrReader.h"
#include "scene/MvrRecordingLoader.h"
#include "scene/MvrValue.h"

namespace {

constexpr int kMaxTreeDepth = 64;

struct Scene {
  std::string version;
  mv::MvrReader::KeyFrames keyFrames;
};

Scene readScene(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot open \"" + path + "\"");
  Scene scene;
  std::vector<std::string> rootLines;
  mv::MvrReader::readKeyFrames(file, scene.keyFrames, rootLines);
  if (!rootLines.empty()) scene.version = rootLines.front();
  return scene;
}

std::string componentLine(const mv::MvrComponent& component) {
  std::string line = "\"" + component.name + "\" " + component.type;
  if (component.primitive.type != "Undefined") line += " (" + component.primitive.type + ")";
  if (component.hide) line += " hidden";
  if (!component.switchMasks.empty()) line += " switched";
  return line;
}

// Children and branches below a component, indented; a name met again on the way down is a
// cycle, one met elsewhere before is shared and shown once.
void printTree(const std::map<std::string, mv::MvrComponent>& components, const std::string& name,
               int depth, std::set<std::string>& path, std::set<std::string>& shown) {
  const std::string indent(2 * depth + 2, ' ');
  const auto found = components.find(name);
  if (found == components.end()) return;
  if (path.count(name) || depth > kMaxTreeDepth) {
    std::cout << indent << "\"" << name << "\" (" << (path.count(name) ? "cycle" : "too deep")
              << ", not followed)\n";
    return;
  }
  if (!shown.insert(name).second) {
    std::cout << indent << "\"" << name << "\" (shared, shown above)\n";
    return;
  }
  std::cout << indent << componentLine(found->second) << "\n";
  path.insert(name);
  for (const std::string& child : found->second.children)
    printTree(components, child, depth + 1, path, shown);
  for (const std::string& branch : found->second.typeData.branches)
    printTree(components, branch, depth + 1, path, shown);
  path.erase(name);
}

void printScene(const Scene& scene) {
  std::cout << "Header: " << scene.version << "\n";
  std::cout << "Key frames: " << scene.keyFrames.size() << "\n";
  for (const auto& [time, keyFrame] : scene.keyFrames)
    std::cout << "  \"" << keyFrame.name << "\" time " << keyFrame.timeText << ", "
              << keyFrame.components.size() << " components\n";
  if (scene.keyFrames.empty()) return;
  const auto& components = scene.keyFrames.begin()->second.components;
  std::cout << "Component tree of the earliest key frame:\n";
  std::set<std::string> path, shown;
  for (const std::string& root : mv::MvrLoader::findRoots(components))
    printTree(components, root, 0, path, shown);
}

int runInfo(const std::string& path, double unit) {
  printScene(readScene(path));
  mv::ParameterSetData settings;
  mv::MvrRecordingLoader loader;
  loader.initParameters(settings, unit);
  const bool loaded = loader.load(settings, path);
  std::cout << "Calls of the load:\n";
  for (const mv::MvrCall& call : loader.calls)
    std::cout << "  " << mv::MvrRecordingLoader::describe(call) << "\n";
  if (loaded) return 0;
  std::cerr << "Morvo Error: the scene of \"" << path << "\" could not be loaded\n";
  return 1;
}

}  // namespace

void addInfoCommand(CLI::App& app, CommandResult& result) {
  auto* command = app.add_subcommand("info", "Show what a scene file (.mvr) holds");
  static std::string path;
  static double unit = 1.0;
  command->add_option("file", path, "the scene file")->required();
  command->add_option("--unit", unit, "scale of the whole scene (default 1)");
  command->callback([&result]() { result.exitCode = runInfo(path, unit); });
}
