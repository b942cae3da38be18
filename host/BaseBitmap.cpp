#include "host/BaseBitmap.h"

#include <map>
#include <memory>

#include <stb/stb_image.h>

#include "host/GeResource.h"

Int32 BaseBitmap::Init(const Filename& name) {
  file_ = name;
  width_ = height_ = channels_ = 0;
  FILE* file = std::fopen(name.GetString().c_str(), "rb");
  if (!file) return IMAGERESULT_NOTEXISTING;
  int width = 0, height = 0, channels = 0;
  int ok = stbi_info_from_file(file, &width, &height, &channels);
  std::fclose(file);
  if (!ok) return IMAGERESULT_WRONGTYPE;
  width_ = width;
  height_ = height;
  channels_ = channels;
  return IMAGERESULT_OK;
}

BaseBitmap* AutoBitmap(const String& name) {
  static std::map<String, std::unique_ptr<BaseBitmap>> icons;
  auto it = icons.find(name);
  if (it != icons.end()) return it->second.get();
  auto bitmap = std::make_unique<BaseBitmap>();
  Filename path = GeResource::GetFolder() + Filename("icons") + Filename(name);
  if (bitmap->Init(path) != IMAGERESULT_OK) return nullptr;
  return (icons[name] = std::move(bitmap)).get();
}
