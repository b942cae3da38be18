#include "host/GeUserArea.h"

#include <algorithm>

#include "host/BuiltInFont.h"
#include "host/GeDialog.h"
#include "host/InputIds.h"

void GeUserArea::DrawMsg(int32_t, int32_t, int32_t, int32_t) {}

void GeUserArea::SetSize(int32_t width, int32_t height) {
  width_ = std::max(0, width);
  height_ = std::max(0, height);
}

void GeUserArea::Redraw() {
  drawing_.clear();
  offScreen_ = false;
  ++redrawCount_;
  DrawMsg(0, 0, width_ - 1, height_ - 1);
}

void GeUserArea::record(DrawOperation operation) { drawing_.push_back(std::move(operation)); }

void GeUserArea::DrawLine(int32_t x1, int32_t y1, int32_t x2, int32_t y2) {
  record({DrawOperation::Line, x1, y1, x2, y2, pen_, pen_, 0, {}});
}

void GeUserArea::DrawRectangle(int32_t x1, int32_t y1, int32_t x2, int32_t y2) {
  record({DrawOperation::Rectangle, x1, y1, x2, y2, pen_, pen_, 0, {}});
}

void GeUserArea::DrawBorder(int32_t style, int32_t x1, int32_t y1, int32_t x2, int32_t y2) {
  record({DrawOperation::Border,
          x1,
          y1,
          x2,
          y2,
          DrawColor::ofPalette(PaletteEdgeDark),
          DrawColor::ofPalette(PaletteEdgeLight),
          style,
          {}});
}

void GeUserArea::DrawSetTextCol(const DrawColor& foreground, const DrawColor& background) {
  textColor_ = foreground;
  textBackground_ = background;
}

int32_t GeUserArea::DrawGetTextWidth(const std::string& text) const {
  return BuiltInFont::width(text);
}

int32_t GeUserArea::DrawGetFontHeight() const { return BuiltInFont::height(); }

void GeUserArea::DrawText(const std::string& text, int32_t x, int32_t y) {
  record({DrawOperation::Text, x, y, x + DrawGetTextWidth(text) - 1, y + DrawGetFontHeight() - 1,
          textColor_, textBackground_, 0, text});
}

void GeUserArea::GetBorderSize(int32_t style, int32_t& left, int32_t& top, int32_t& right,
                               int32_t& bottom) {
  const int32_t size = style == 0 ? 0 : 1;
  left = top = right = bottom = size;
}

Bool GeUserArea::InputEvent(const BaseContainer&) { return false; }

void GeUserArea::scriptMousePath(const std::vector<std::pair<Int32, Int32>>& positions) {
  mousePath_.assign(positions.begin(), positions.end());
}

void GeUserArea::setKeyDown(Int32 channel, bool down) {
  keysDown_.erase(std::remove(keysDown_.begin(), keysDown_.end(), channel), keysDown_.end());
  if (down) keysDown_.push_back(channel);
}

Bool GeUserArea::GetInputState(Int32 device, Int32 channel, BaseContainer& state) {
  state = BaseContainer();
  if (device == BFM_INPUT_KEYBOARD) {
    const bool down = std::find(keysDown_.begin(), keysDown_.end(), channel) != keysDown_.end();
    state.SetLong(BFM_INPUT_VALUE, down ? 1 : 0);
    return true;
  }
  if (device != BFM_INPUT_MOUSE) return false;
  const bool held = channel == BFM_INPUT_MOUSELEFT && !mousePath_.empty();
  if (held) {
    lastMouse_ = mousePath_.front();
    mousePath_.pop_front();
  }
  state.SetLong(BFM_INPUT_VALUE, held ? 1 : 0);
  state.SetLong(BFM_INPUT_X, lastMouse_.first);
  state.SetLong(BFM_INPUT_Y, lastMouse_.second);
  return true;
}

Int32 GeUserArea::ShowPopupMenu(const BaseContainer& menu, Int32, Int32) {
  lastMenu_ = menu;
  const Int32 choice = menuChoice_;
  menuChoice_ = 0;
  return choice;
}

Bool GeUserArea::SendParentMessage(const BaseContainer& msg) {
  if (dialog_) {
    BaseContainer result;
    dialog_->Message(msg, result);
  } else {
    sent_.push_back(msg);
  }
  return true;
}
