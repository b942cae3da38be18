// MvrReader: the vocabulary of a scene file. It turns the chunk tree of a file into plain records:
// key frames by time, each holding its components by name. Unknown keywords and blocks are
// skipped in silence at every level; a keyword given twice keeps its last value.
#pragma once

#include <functional>
#include <istream>
#include <map>
#include <string>
#include <vector>

#include "scene/MvrComponent.h"
#include "scene/MvrKeyFrame.h"

namespace mv {

class Chunk;

class MvrReader {
 public:
  using KeyFrames = std::map<double, MvrKeyFrame>;  // ordered by time
  using FramesCallback = std::function<void(int)>;

  // The component of a "Struct" block.
  static MvrComponent readComponent(const Chunk& block);
  // The key frame of a "KeyFrame" block, with the components of its "Model" blocks.
  static MvrKeyFrame readKeyFrame(const Chunk& block);
  // Walks the structure blocks Queue, Unit, Entity, KeySequence, KeyFrame and Model below the
  // block of that name, storing key frames (an equal time replaces) and handing each "Frames n"
  // line of a Queue to setFrames. Nesting of any depth is walked without recursion.
  static void scanBlock(const std::string& name, const Chunk& block, KeyFrames& keyFrames,
                        const FramesCallback& setFrames);
  // The whole file behind stream: the plain lines at its top (the version, the background) into
  // rootLines and its key frames, through scanBlock over every top-level block.
  static void readKeyFrames(std::istream& stream, KeyFrames& keyFrames,
                            std::vector<std::string>& rootLines,
                            const FramesCallback& setFrames = nullptr);

  // Whether a block of that name inside a Struct is a type block.
  static bool isTypeBlock(const std::string& name);

 private:
  static void readStructLine(const std::string& line, MvrComponent& component);
  static void readTransform(const Chunk& block, MvrTransform& transform);
  static void readPrimitive(const Chunk& block, MvrPrimitive& primitive);
  static void readGfxColor(const Chunk& block, MvrPrimitive& primitive);
  static void readTypeBlock(const std::string& type, const Chunk& block, MvrTypeData& data);
  static void readModel(const Chunk& block, MvrKeyFrame& keyFrame);
};

}  // namespace mv
