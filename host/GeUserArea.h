// GeUserArea: a drawing and input area of a dialog. A subclass draws in DrawMsg and answers input
// in InputEvent. This headless host keeps no pixels: every drawing call is recorded as a
// DrawOperation (DrawingRaster turns a recording into a picture), and what an area asks of the
// user while it handles an event (the mouse during a drag, keys held, a menu choice) is played
// from a script set beforehand.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "host/BaseContainer.h"
#include "host/DrawOperation.h"

class GeDialog;

class GeUserArea {
 public:
  virtual ~GeUserArea() = default;

  // Draws the area; (x1, y1) to (x2, y2) is the part that needs drawing.
  virtual void DrawMsg(int32_t x1, int32_t y1, int32_t x2, int32_t y2);
  // Answers an input event (keys 'ipdv', 'ipca', 'ipva', 'ipqa', 'ipvx', 'ipvy', 'ipdb' of
  // InputIds); false when the area does not take it.
  virtual Bool InputEvent(const BaseContainer& msg);

  // The host's side: the area's size in pixels, its enabled state and its gadget number.
  void SetSize(int32_t width, int32_t height);
  int32_t GetWidth() const { return width_; }
  int32_t GetHeight() const { return height_; }
  void Enable(bool enabled) { enabled_ = enabled; }
  bool IsEnabled() const { return enabled_; }
  void SetId(int32_t id) { id_ = id; }
  int32_t GetId() const { return id_; }

  // Drawing. Redraw records a new drawing of the whole area, replacing the last one.
  void Redraw();
  void OffScreenOn() { offScreen_ = true; }
  void DrawSetPen(int32_t paletteColor) { pen_ = DrawColor::ofPalette(paletteColor); }
  void DrawSetPen(double r, double g, double b) { pen_ = DrawColor::ofRgb(r, g, b); }
  void DrawLine(int32_t x1, int32_t y1, int32_t x2, int32_t y2);
  void DrawRectangle(int32_t x1, int32_t y1, int32_t x2, int32_t y2);
  void DrawBorder(int32_t style, int32_t x1, int32_t y1, int32_t x2, int32_t y2);
  void DrawSetTextCol(const DrawColor& foreground, const DrawColor& background);
  int32_t DrawGetTextWidth(const std::string& text) const;
  int32_t DrawGetFontHeight() const;
  void DrawText(const std::string& text, int32_t x, int32_t y);
  // Sizes of the edges of a border style: style 0 has none, every other style one pixel.
  static void GetBorderSize(int32_t style, int32_t& left, int32_t& top, int32_t& right,
                            int32_t& bottom);

  // Input asked for while an event is handled. GetInputState fills 'ipva' (down or not) and,
  // for the mouse, 'ipvx' and 'ipvy'; it is false for a device it does not know.
  Bool GetInputState(Int32 device, Int32 channel, BaseContainer& state);
  // Mouse positions arrive in the area's own pixels already.
  void Global2Local(Int32*, Int32*) const {}
  // Shows a popup menu at (x, y); the id of the chosen entry, 0 when it is dismissed.
  Int32 ShowPopupMenu(const BaseContainer& menu, Int32 x, Int32 y);
  // To the dialog that the area is attached to, or into sentMessages() without one.
  Bool SendParentMessage(const BaseContainer& msg);
  void SetDialog(GeDialog* dialog) { dialog_ = dialog; }

  // The script: the mouse positions that the held left button passes through (it is up after
  // the last one), the keys held down, the choice of the next menu (once).
  void scriptMousePath(const std::vector<std::pair<Int32, Int32>>& positions);
  void setKeyDown(Int32 channel, bool down);
  void scriptMenuChoice(Int32 choice) { menuChoice_ = choice; }
  const BaseContainer& lastMenu() const { return lastMenu_; }
  const std::vector<BaseContainer>& sentMessages() const { return sent_; }

  // The last drawing, whether it was drawn off screen, and how many drawings were made.
  const std::vector<DrawOperation>& drawing() const { return drawing_; }
  bool drewOffScreen() const { return offScreen_; }
  int32_t redrawCount() const { return redrawCount_; }

 private:
  void record(DrawOperation operation);

  int32_t width_ = 0, height_ = 0, id_ = 0;
  bool enabled_ = true;
  bool offScreen_ = false;
  DrawColor pen_ = DrawColor::ofRgb(0.0, 0.0, 0.0);
  DrawColor textColor_ = DrawColor::ofPalette(PaletteText);
  DrawColor textBackground_ = DrawColor::ofPalette(PaletteTransparent);
  std::vector<DrawOperation> drawing_;
  int32_t redrawCount_ = 0;

  GeDialog* dialog_ = nullptr;
  std::deque<std::pair<Int32, Int32>> mousePath_;
  std::pair<Int32, Int32> lastMouse_{0, 0};
  std::vector<Int32> keysDown_;
  Int32 menuChoice_ = 0;
  BaseContainer lastMenu_;
  std::vector<BaseContainer> sent_;
};
