// TextureReference: how a texture file named by a scene is referenced from a file written at an
// output path. A reference stays relative to the output's folder and inside it: an absolute
// path, a reference with a scheme (http:, file:, C:) or one that climbs above the folder with
// ".." is reduced to its file name, with a warning through messageSink. Backslashes count as
// folder separators.
#pragma once

#include <string>

namespace mv {

struct TextureReference {
  // The reference to write, a relative path with '/' separators; empty when nothing of the name
  // is left (then the material has no texture).
  static std::string relative(const std::string& file);
  // A relative reference as a URI: every byte but unreserved characters and '/' percent-encoded,
  // so that '%', '#', '?' and blanks stay part of the file name.
  static std::string uri(const std::string& relativeReference);
  // The file that a relative reference names, beside the output.
  static std::string besideOutput(const std::string& relativeReference,
                                  const std::string& outputPath);
};

}  // namespace mv
