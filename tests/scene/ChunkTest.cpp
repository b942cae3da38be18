#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <sstream>
#include <string>
#include <vector>

#include "scene/Chunk.h"

// Counts the allocations of this test program while a test asks for it.
namespace {
bool countingAllocations = false;
std::size_t allocations = 0;
}  // namespace

void* operator new(std::size_t size) {
  if (countingAllocations) ++allocations;
  if (void* memory = std::malloc(size ? size : 1)) return memory;
  throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  if (countingAllocations) ++allocations;
  return std::malloc(size ? size : 1);
}
void* operator new[](std::size_t size) { return operator new(size); }
void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept {
  return operator new(size, tag);
}
// Every form of release pairs with the malloc above.
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { std::free(memory); }

namespace {

std::unique_ptr<mv::Chunk> readText(const std::string& text) {
  auto root = std::make_unique<mv::Chunk>();
  std::istringstream stream(text);
  root->read(stream);
  return root;
}

using Lines = std::vector<std::string>;

}  // namespace

TEST(ChunkRead, keepsPlainLinesUnalteredAndSkipsEmptyOnes) {
  const auto root = readText("Version 0.93\n\n  indented\ttab \nlast without feed");
  EXPECT_EQ(root->lines, (Lines{"Version 0.93", "  indented\ttab ", "last without feed"}));
  EXPECT_TRUE(root->children.empty());
  EXPECT_EQ(root->level, 0u);
}

TEST(ChunkRead, dropsCarriageReturnsAtEitherEndOnly) {
  const auto root = readText("\r\n\rA\r\nB\rC\r\n\r\r\n");
  // "\r\r" loses one carriage return at each end and is then empty.
  EXPECT_EQ(root->lines, (Lines{"A", "B\rC"}));
}

TEST(ChunkRead, crlfFileEqualsLfFile) {
  const std::string lf = "Version 0.93\nQueue {\nFrames 3\nUnit {\nx 1\n}\n}\n";
  std::string crlf;
  for (char c : lf) crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
  const auto a = readText(lf), b = readText(crlf);
  ASSERT_EQ(a->children.size(), b->children.size());
  EXPECT_EQ(a->lines, b->lines);
  EXPECT_EQ(a->children[0].second->lines, b->children[0].second->lines);
  EXPECT_EQ(a->children[0].second->children[0].second->lines,
            b->children[0].second->children[0].second->lines);
}

TEST(ChunkRead, carriageReturnsAloneMakeOneLongLine) {
  const auto root = readText("A {\rB\r}\r");
  // One line "A {\rB\r}": it ends in "}" with as many "{" as "}", so it is a plain line.
  EXPECT_EQ(root->lines, (Lines{"A {\rB\r}"}));
}

TEST(ChunkRead, opensBlocksNamedByTheTextBeforeTheFirstBlank) {
  const auto root = readText("Model {\n}\nModel with words {\n}\nModel{\n}\n x {\n}\n");
  ASSERT_EQ(root->children.size(), 4u);
  EXPECT_EQ(root->children[0].first, "Model");
  EXPECT_EQ(root->children[1].first, "Model");
  EXPECT_EQ(root->children[2].first, "Model{");
  EXPECT_EQ(root->children[3].first, "");
  for (const auto& child : root->children) EXPECT_EQ(child.second->level, 1u);
}

TEST(ChunkRead, closingLinesAndBraceValues) {
  const auto root =
      readText("A {\nScale {1,2,3} {4,5,6} {7,8,9}\ntext }\nafter\nB {\n}\nC {\nx}}\nrest\n");
  ASSERT_EQ(root->children.size(), 3u);
  EXPECT_EQ(root->children[0].second->lines, (Lines{"Scale {1,2,3} {4,5,6} {7,8,9}", "text "}));
  EXPECT_TRUE(root->children[1].second->lines.empty());
  // "x}}" closes C, storing "x}"; "rest" is then a line of the root.
  EXPECT_EQ(root->children[2].second->lines, (Lines{"x}"}));
  EXPECT_EQ(root->lines, (Lines{"after", "rest"}));
}

TEST(ChunkRead, nestingLevelsAndRepeatedNamesInFileOrder) {
  const auto root = readText("Q {\nK {\na 1\n}\nK {\na 2\n}\n}\n");
  const mv::Chunk& q = *root->children.at(0).second;
  ASSERT_EQ(q.children.size(), 2u);
  EXPECT_EQ(q.children[0].first, "K");
  EXPECT_EQ(q.children[0].second->lines, (Lines{"a 1"}));
  EXPECT_EQ(q.children[1].second->lines, (Lines{"a 2"}));
  EXPECT_EQ(q.children[1].second->level, 2u);
  EXPECT_EQ(q.child("K"), q.children[0].second.get());
  EXPECT_EQ(q.child("L"), nullptr);
}

TEST(ChunkRead, unclosedBlocksEndWithTheFileAndExtraClosersEndTheRoot) {
  const auto open = readText("A {\nB {\nx");
  EXPECT_EQ(open->children.at(0).second->children.at(0).second->lines, (Lines{"x"}));
  const auto extra = readText("a\n}\nignored\nC {\n}\n");
  EXPECT_EQ(extra->lines, (Lines{"a"}));
  EXPECT_TRUE(extra->children.empty());
}

TEST(ChunkRead, overlongLineEndsEveryOpenBlock) {
  const std::string fits(1023, 'a'), tooLong(1024, 'b');
  const auto root = readText("A {\n" + fits + "\n" + tooLong + "\nafter\n}\nB {\n}\n");
  ASSERT_EQ(root->children.size(), 1u);
  EXPECT_EQ(root->children[0].second->lines, (Lines{fits}));
  EXPECT_TRUE(root->lines.empty());
  const auto lastLine = readText("x\n" + fits);  // 1023 characters without a line feed
  EXPECT_EQ(lastLine->lines, (Lines{"x", fits}));
}

TEST(ChunkRead, failedStreamGivesAnEmptyChunkAndFalse) {
  std::istringstream stream("a\n");
  stream.setstate(std::ios::failbit);
  mv::Chunk root;
  EXPECT_FALSE(root.read(stream));
  EXPECT_TRUE(root.lines.empty());
  std::istringstream empty("");
  EXPECT_TRUE(root.read(empty));
}

TEST(ChunkRead, deepNestingNeedsNoRecursion) {
  const int depth = 200000;
  std::string text;
  for (int i = 0; i < depth; ++i) text += "B {\n";
  text += "deep\n";
  auto root = readText(text);
  const mv::Chunk* chunk = root.get();
  while (!chunk->children.empty()) chunk = chunk->children[0].second.get();
  EXPECT_EQ(chunk->level, static_cast<std::uint32_t>(depth));
  EXPECT_EQ(chunk->lines, (Lines{"deep"}));
  // The teardown must neither recurse nor allocate: it may run while a failed allocation unwinds.
  text = "A {\nB {\n}\nC {\nD {\n}\n}\n}\n" + text;
  root = readText(text);
  countingAllocations = true;
  root.reset();
  countingAllocations = false;
  EXPECT_EQ(allocations, 0u);
}

TEST(ChunkText, trimRemovesEveryWhiteSpaceKind) {
  EXPECT_EQ(mv::Chunk::trim(" \t\v\f\r\nab c \n"), "ab c");
  EXPECT_EQ(mv::Chunk::trim(" \t "), "");
}

TEST(ChunkText, cutAtReturnsTheUntrimmedPieceAndTrimsTheRest) {
  std::string text = "a ,  b , c";
  EXPECT_EQ(mv::Chunk::cutAt(text, ','), "a ");
  EXPECT_EQ(text, "b , c");
  EXPECT_EQ(mv::Chunk::cutAt(text, ','), "b ");
  EXPECT_EQ(mv::Chunk::cutAt(text, ','), "c");
  EXPECT_EQ(text, "");
  EXPECT_EQ(mv::Chunk::cutAt(text, ','), "");
}

TEST(ChunkText, cutQuotedAndCutBraced) {
  struct Row {
    std::string input;
    bool braced;
    std::string piece, rest;
  };
  const Row rows[] = {
      {R"(x "a b" y)", false, "a b", " y"},
      {R"("" z)", false, "", " z"},
      {R"(only "one)", false, "", R"(only "one)"},
      {"{1,2} {3}", true, "1,2", " {3}"},
      {"abc {", true, "", "abc {"},
      {"} {x}", true, "x", ""},
      {"no braces", true, "", "no braces"},
  };
  for (const Row& row : rows) {
    std::string text = row.input;
    const std::string piece = row.braced ? mv::Chunk::cutBraced(text) : mv::Chunk::cutQuoted(text);
    EXPECT_EQ(piece, row.piece) << row.input;
    EXPECT_EQ(text, row.rest) << row.input;
  }
}
