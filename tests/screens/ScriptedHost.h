#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "screens/Pane.h"

namespace screens {

/// A toolkit without a window: letters are 6 pixels wide, and what the pane asks for is kept.
struct ScriptedHost : PaneHost {
  Scale GetScale() const override { return Scale(dpi); }
  int LineHeight() const override { return 15; }
  int TextWidth(std::string_view text, Weight /*weight*/) const override {
    int letters = 0;
    for (const char byte : text) letters += (byte & 0xC0) != 0x80 ? 1 : 0;
    return 6 * (letters - (text.ends_with("\u200D") ? 1 : 0));
  }
  bool Enabled() const override { return enabled; }
  void Repaint(const Rect& area) override { repainted.push_back(area); }
  void ScrollPart(const Rect& /*area*/, int rows) override { scrolled += rows; }
  void SetScrollBar(Axis axis, const ScrollRange& range) override {
    (axis == Axis::kDown ? down : across) = range;
  }
  void SetTimer(int milliseconds) override { timer = milliseconds; }
  void CopyToClipboard(const std::string& text) override { copied = text; }
  TextField& Field() override { return field; }
  std::unique_ptr<Popup> MakePopup(PopupKind kind, const PaneMaker& make) override;
  Size PopupRoom(PopupKind /*kind*/) const override { return {1366, 768}; }
  void TakeFocus() override { ++focusTaken; }
  std::chrono::sys_days Today() const override { return today; }
  void Announce(Tidings what, int part) override { announced.emplace_back(what, part); }

  struct ScriptedField : TextField {
    void Move(const Rect& to) override {
      place = to;
      hidden = false;
    }
    void Hide() override { hidden = true; }
    std::string Text() const override { return text; }
    void SetText(const std::string& to) override { text = to; }
    void SelectAll() override { ++selected; }
    void SetLocked(bool to) override { locked = to; }
    Rect place;
    std::string text;
    int selected = 0;
    bool hidden = true;
    bool locked = false;
  };
  struct ScriptedPopup;

  ScriptedField field;
  ScriptedPopup* popup = nullptr;  // the drop-down made last
  ScriptedPopup* note = nullptr;
  int focusTaken = 0;
  bool enabled = true;
  std::chrono::sys_days today{};
  std::vector<std::pair<Tidings, int>> announced;
  double dpi = 96;
  std::vector<Rect> repainted;
  int scrolled = 0;
  ScrollRange down;
  ScrollRange across;
  int timer = 0;
  std::string copied;
};

struct ScriptedHost::ScriptedPopup : Popup {
  ~ScriptedPopup() override { *owner = nullptr; }
  void Show(Size to) override {
    size = to;
    visible = true;
    pane->Resized(to);
  }
  void Hide() override { visible = false; }
  bool Visible() const override { return visible; }

  ScriptedHost host;
  std::unique_ptr<Pane> pane;
  ScriptedPopup** owner = nullptr;
  Size size;
  bool visible = false;
};

inline std::unique_ptr<Popup> ScriptedHost::MakePopup(PopupKind kind, const PaneMaker& make) {
  auto made = std::make_unique<ScriptedPopup>();
  made->owner = kind == PopupKind::kNote ? &note : &popup;
  *made->owner = made.get();
  made->pane = make(made->host);
  return made;
}

/// Keeps what was painted, to be asked by place.
struct RecordingSurface : Surface {
  RecordingSurface() { clips.push_back({-9999, -9999, 9999, 9999}); }
  struct Line {
    std::string text;
    Rect box;
    TextStyle style;
  };
  void Fill(const Rect& area, controls::Colour colour) override {
    fills.emplace_back(area.Common(clips.back()), colour);
  }
  void Text(std::string_view text, const Rect& box, const TextStyle& style) override {
    texts.push_back({std::string(text), box, style});
  }
  void Stroke(std::initializer_list<Dot> points, double /*width*/,
              controls::Colour /*colour*/) override {
    strokes.push_back(*points.begin());
  }
  void RoundBox(const Rect& area, int /*radius*/, controls::Colour ground, controls::Colour line,
                int /*lineWidth*/) override {
    Fill(area, ground);
    frames.emplace_back(area, line);
  }
  void PushClip(const Rect& area) override { clips.push_back(area.Common(clips.back())); }
  void PopClip() override { clips.pop_back(); }

  controls::Colour ColourAt(Point at) const {
    controls::Colour colour = 0;
    for (const auto& [area, fill] : fills) {
      if (area.Contains(at)) colour = fill;
    }
    return colour;
  }
  bool Shows(std::string_view text) const {
    for (const Line& line : texts) {
      if (line.text == text) return true;
    }
    return false;
  }

  std::vector<Rect> clips;
  std::vector<std::pair<Rect, controls::Colour>> fills;
  std::vector<std::pair<Rect, controls::Colour>> frames;
  std::vector<Line> texts;
  std::vector<Dot> strokes;
};

}  // namespace screens
