// BaseBitmap: an image file as the host sees it before drawing it: its size and its channels.
// AutoBitmap gives an icon of the resource folder, kept for the life of the process.
#pragma once

#include "host/Filename.h"

constexpr Int32 IMAGERESULT_OK = 1;
constexpr Int32 IMAGERESULT_NOTEXISTING = -1;
constexpr Int32 IMAGERESULT_WRONGTYPE = -2;

class BaseBitmap {
 public:
  // Reads the header of an image file; the pixels are not kept.
  Int32 Init(const Filename& name);
  Int32 GetBw() const { return width_; }
  Int32 GetBh() const { return height_; }
  // Colour channels plus alpha: 1 grey, 2 grey and alpha, 3 RGB, 4 RGBA; 0 before Init.
  Int32 GetChannelCount() const { return channels_; }
  Bool HasAlpha() const { return channels_ == 2 || channels_ == 4; }
  const Filename& GetFilename() const { return file_; }

 private:
  Filename file_;
  Int32 width_ = 0, height_ = 0, channels_ = 0;
};

// The icon of that file name in the resource folder's "icons" folder, or null when it cannot
// be read.
BaseBitmap* AutoBitmap(const String& name);
