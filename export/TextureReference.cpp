#include "export/TextureReference.h"

#include <cctype>
#include <vector>

#include "core/MessageSink.h"

namespace mv {

namespace {

bool hasScheme(const std::string& path) {
  const size_t colon = path.find(':');
  if (colon == std::string::npos || colon == 0) return false;
  for (size_t k = 0; k < colon; ++k) {
    const char c = path[k];
    if (!std::isalnum(static_cast<unsigned char>(c)) && c != '+' && c != '-' && c != '.') {
      return false;
    }
  }
  return std::isalpha(static_cast<unsigned char>(path[0])) != 0;
}

std::vector<std::string> segments(const std::string& path) {
  std::vector<std::string> result(1);
  for (char c : path) {
    if (c == '/') {
      result.emplace_back();
    } else {
      result.back() += c;
    }
  }
  return result;
}

// The segments without "." and empty ones, ".." folded into its parent; false when ".." climbs
// above the start.
bool normalise(const std::vector<std::string>& parts, std::string& out) {
  std::vector<std::string> kept;
  for (const std::string& part : parts) {
    if (part.empty() || part == ".") continue;
    if (part != "..") {
      kept.push_back(part);
    } else if (kept.empty()) {
      return false;
    } else {
      kept.pop_back();
    }
  }
  out.clear();
  for (const std::string& part : kept) out += (out.empty() ? "" : "/") + part;
  return true;
}

std::string lastNamed(const std::vector<std::string>& parts) {
  for (auto part = parts.rbegin(); part != parts.rend(); ++part) {
    if (!part->empty() && *part != "." && *part != "..") return *part;
  }
  return "";
}

}  // namespace

std::string TextureReference::relative(const std::string& file) {
  std::string path = file;
  for (char& c : path) {
    if (c == '\\') c = '/';
  }
  std::string result;
  if (!path.empty() && path[0] != '/' && !hasScheme(path) && normalise(segments(path), result)) {
    return result;
  }
  const std::vector<std::string> parts =
      segments(hasScheme(path) ? path.substr(path.find(':') + 1) : path);
  result = lastNamed(parts);
  messageSink.warning("texture \"" + file +
                      "\" lies outside the output's folder; referenced as \"" + result + "\"");
  return result;
}

std::string TextureReference::uri(const std::string& relativeReference) {
  static const char hex[] = "0123456789ABCDEF";
  std::string result;
  for (char c : relativeReference) {
    const unsigned char byte = static_cast<unsigned char>(c);
    if (std::isalnum(byte) || c == '-' || c == '.' || c == '_' || c == '~' || c == '/') {
      result += c;
    } else {
      result += '%';
      result += hex[byte >> 4];
      result += hex[byte & 15];
    }
  }
  return result;
}

std::string TextureReference::besideOutput(const std::string& relativeReference,
                                           const std::string& outputPath) {
  const size_t slash = outputPath.find_last_of('/');
  return (slash == std::string::npos ? std::string() : outputPath.substr(0, slash + 1)) +
         relativeReference;
}

}  // namespace mv
