#include "scene/Chunk.h"

#include <algorithm>
#include <cstring>

namespace mv {

namespace {

bool isWhite(char c) { return std::strchr(" \t\n\v\f\r", c) != nullptr && c != '\0'; }

// One line without its line feed; false at the end of the stream or on an overlong line.
bool readLine(std::istream& stream, std::string& line) {
  char buffer[Chunk::kMaxLineLength + 2];
  stream.getline(buffer, sizeof buffer - 1);
  if (stream.fail()) return false;
  const std::streamsize count = stream.gcount();
  const bool sawLineFeed = !stream.eof();
  line.assign(buffer, static_cast<std::size_t>(count - (sawLineFeed ? 1 : 0)));
  return true;
}

void dropCarriageReturns(std::string& line) {
  if (!line.empty() && line.front() == '\r') line.erase(0, 1);
  if (!line.empty() && line.back() == '\r') line.pop_back();
}

// line ends in "}": closes the block only when it holds more "}" than "{".
bool closesBlock(const std::string& line) {
  const auto opening = std::count(line.begin(), line.end(), '{');
  const auto closing = std::count(line.begin(), line.end(), '}');
  return closing > opening;
}

std::string cutBetween(std::string& text, char first, char second) {
  const std::size_t begin = text.find(first);
  if (begin == std::string::npos) return {};
  const std::size_t end = text.find(second, begin + 1);
  if (end == std::string::npos) return {};
  std::string piece = text.substr(begin + 1, end - begin - 1);
  text.erase(0, end + 1);
  return piece;
}

}  // namespace

// The subtree is released through a list threaded through the chunks themselves: a recursive
// teardown of a deeply nested file would overflow the stack, and a destructor must not allocate
// (it may run while a failed allocation unwinds).
Chunk::~Chunk() {
  std::unique_ptr<Chunk> pending;
  auto moveChildrenTo = [&pending](Chunk& chunk) {
    while (!chunk.children.empty()) {
      std::unique_ptr<Chunk> child = std::move(chunk.children.back().second);
      chunk.children.pop_back();
      if (!child) continue;
      child->nextPending_ = std::move(pending);
      pending = std::move(child);
    }
  };
  moveChildrenTo(*this);
  while (pending) {
    std::unique_ptr<Chunk> chunk = std::move(pending);
    pending = std::move(chunk->nextPending_);
    moveChildrenTo(*chunk);
  }
}

// block := { line | opener block | closer }; an explicit stack stands for the nesting.
bool Chunk::read(std::istream& stream) {
  if (stream.fail()) return false;
  std::vector<Chunk*> open{this};
  std::string line;
  while (!open.empty() && readLine(stream, line)) {
    dropCarriageReturns(line);
    if (line.empty()) continue;
    Chunk* current = open.back();
    if (line.back() == '{') {
      open.push_back(current->openChild(line));
    } else if (line.back() == '}' && closesBlock(line)) {
      line.pop_back();
      if (!line.empty()) current->lines.push_back(line);
      open.pop_back();
    } else {
      current->lines.push_back(line);
    }
  }
  return true;
}

Chunk* Chunk::openChild(const std::string& line) {
  std::string rest = line;
  std::string name = cutAt(rest, ' ');
  auto chunk = std::make_unique<Chunk>();
  chunk->level = level + 1;
  Chunk* result = chunk.get();
  children.emplace_back(std::move(name), std::move(chunk));
  return result;
}

const Chunk* Chunk::child(const std::string& name) const {
  for (const auto& entry : children)
    if (entry.first == name) return entry.second.get();
  return nullptr;
}

std::string Chunk::trim(const std::string& text) {
  std::size_t begin = 0, end = text.size();
  while (begin < end && isWhite(text[begin])) ++begin;
  while (end > begin && isWhite(text[end - 1])) --end;
  return text.substr(begin, end - begin);
}

std::string Chunk::cutAt(std::string& text, char separator) {
  const std::size_t at = text.find(separator);
  if (at == std::string::npos) {
    std::string whole;
    whole.swap(text);
    return whole;
  }
  std::string piece = text.substr(0, at);
  text = trim(text.substr(at + 1));
  return piece;
}

std::string Chunk::cutQuoted(std::string& text) { return cutBetween(text, '"', '"'); }

std::string Chunk::cutBraced(std::string& text) { return cutBetween(text, '{', '}'); }

}  // namespace mv
