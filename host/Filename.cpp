#include "host/Filename.h"

#include <algorithm>
#include <cctype>

static size_t lastSeparator(const String& path) { return path.find_last_of('/'); }

Filename Filename::GetFile() const {
  size_t slash = lastSeparator(path_);
  return slash == String::npos ? *this : Filename(path_.substr(slash + 1));
}

Filename Filename::GetDirectory() const {
  size_t slash = lastSeparator(path_);
  return slash == String::npos ? Filename() : Filename(path_.substr(0, slash));
}

String Filename::GetSuffix() const {
  String file = GetFile().GetString();
  size_t dot = file.find_last_of('.');
  return dot == String::npos ? String() : file.substr(dot + 1);
}

Bool Filename::CheckSuffix(const String& suffix) const {
  String own = GetSuffix();
  return own.size() == suffix.size() &&
         std::equal(own.begin(), own.end(), suffix.begin(), [](char a, char b) {
           return std::tolower(static_cast<unsigned char>(a)) ==
                  std::tolower(static_cast<unsigned char>(b));
         });
}

void Filename::SetSuffix(const String& suffix) {
  String file = GetFile().GetString();
  size_t dot = file.find_last_of('.');
  if (dot != String::npos) path_.erase(path_.size() - (file.size() - dot));
  path_ += "." + suffix;
}

Filename Filename::operator+(const Filename& component) const {
  if (path_.empty()) return component;
  if (path_.back() == '/') return Filename(path_ + component.path_);
  return Filename(path_ + "/" + component.path_);
}
