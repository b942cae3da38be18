// Chunk: one block of a scene file, read into a tree of plain lines and named sub-blocks without
// any knowledge of the keywords. The root chunk stands for the whole file and has no name.
//
// The grammar: a line ends at a line feed; a carriage return at either end of a line is dropped;
// empty lines are skipped; a line ending in "{" opens a sub-block named by the text before its
// first blank; a line ending in "}" with more "}" than "{" closes the block (text before the last
// "}" becomes its last line); any other line is kept as it stands. A line of 1024 characters or
// more ends the reading as if the file ended before it. There are no syntax errors.
//
// Reading and destruction are iterative, so that any nesting depth is safe for the stack.
#pragma once

#include <cstdint>
#include <istream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace mv {

class Chunk {
 public:
  // Characters that a line may hold before its line feed.
  static constexpr std::size_t kMaxLineLength = 1023;

  Chunk() = default;
  Chunk(const Chunk&) = delete;
  Chunk& operator=(const Chunk&) = delete;
  virtual ~Chunk();

  std::vector<std::string> lines;  // plain lines, in file order
  std::vector<std::pair<std::string, std::unique_ptr<Chunk>>> children;  // sub-blocks in order
  std::uint32_t level = 0;  // nesting depth: 0 for the root

  // Reads lines into this chunk until its block ends or the stream fails. False only when the
  // stream is already failed on entry.
  bool read(std::istream& stream);

  // The first sub-block of that name, or null.
  const Chunk* child(const std::string& name) const;

  // The text without white space (blank, tab, line feed, vertical tab, form feed, carriage
  // return) at either end.
  static std::string trim(const std::string& text);
  // The text before the first separator; text becomes the trimmed rest after it. Without a
  // separator the whole text is returned and text becomes empty. The piece is not trimmed.
  static std::string cutAt(std::string& text, char separator);
  // The characters between the first and the next double quote; text becomes what follows.
  // Without two quotes: empty, and text stays as it was.
  static std::string cutQuoted(std::string& text);
  // As cutQuoted, between the first "{" and the next "}".
  static std::string cutBraced(std::string& text);

 private:
  Chunk* openChild(const std::string& line);

  std::unique_ptr<Chunk> nextPending_;  // used only while a tree is released
};

}  // namespace mv
