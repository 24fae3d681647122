#pragma once

#include <algorithm>
#include <chrono>
#include <iomanip>
#include <memory>
#include <sstream>
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

inline std::ostream& operator<<(std::ostream& out, const Rect& place) {
  return out << place.left << ' ' << place.top << ' ' << place.right << ' ' << place.bottom;
}

/// Writes down what is painted, a line for each call.
struct RecordingSurface : Surface {
  void Fill(const Rect& area, controls::Colour colour) override {
    log << "fill " << area << ' ' << Hex(colour) << '\n';
  }
  void Text(std::string_view text, const Rect& box, const TextStyle& style) override {
    texts.emplace_back(text);
    constexpr const char* kSides[] = {" right", " centre", " left"};
    log << "text " << box << ' ' << Hex(style.colour) << kSides[static_cast<int>(style.side)];
    if (style.direction == Direction::kLeftToRight) log << " ltr";
    if (style.weight == Weight::kBold) log << " bold";
    if (style.size != 0) log << " size " << style.size;
    log << ": " << text << '\n';
  }
  void Stroke(std::initializer_list<Dot> points, double width, controls::Colour colour) override {
    log << "stroke " << width << ' ' << Hex(colour) << ':';
    for (const Dot& dot : points) log << ' ' << dot.x << ',' << dot.y;
    log << '\n';
  }
  void RoundBox(const Rect& area, int radius, controls::Colour ground, controls::Colour line,
                int lineWidth) override {
    log << "box " << area << " round " << radius << ' ' << Hex(ground) << " line " << lineWidth
        << ' ' << Hex(line) << '\n';
  }
  void PushClip(const Rect& area) override {
    clips.push_back(area.Common(clips.back()));
    log << "within " << clips.back() << '\n';
  }
  void PopClip() override {
    clips.pop_back();
    log << "within " << clips.back() << '\n';
  }

  bool Shows(std::string_view text) const { return std::ranges::find(texts, text) != texts.end(); }
  std::vector<Rect> clips{{-9999, -9999, 9999, 9999}};
  std::vector<std::string> texts;
  std::ostringstream log;

 private:
  static std::string Hex(controls::Colour colour) {
    std::ostringstream hex;
    hex << '#' << std::hex << std::setfill('0');
    for (const unsigned shift : {0U, 8U, 16U}) hex << std::setw(2) << (colour >> shift & 0xFFU);
    return hex.str();
  }
};

/// What a screen reader is told, on one line; what is as it is for most is left out.
inline std::string Told(const Accessible& told) {
  constexpr const char* kRoles[] = {"none",         "group",     "label",          "sign",
                                    "field",        "button",    "check box",      "combo box",
                                    "progress bar", "table",     "column heading", "cell",
                                    "list",         "list item", "note",           "document"};
  std::ostringstream line;
  line << kRoles[static_cast<int>(told.role)] << " \"" << told.name << '"';
  for (const auto& [what, text] : {std::pair("value", told.value),
                                   {"says", told.description},
                                   {"keys", told.keys},
                                   {"does", told.action}}) {
    if (!text.empty()) line << ' ' << what << " \"" << text << '"';
  }
  for (const auto& [what, number] : {std::pair("rows", told.rows),
                                     {"headings", told.headingRows},
                                     {"columns", told.columns},
                                     {"row", told.row + 1},
                                     {"column", told.column + 1}}) {
    if (number != 0) line << ' ' << what << ' ' << number;
  }
  for (const auto& [what, holds] : {std::pair("disabled", !told.enabled),
                                    {"focusable", told.focusable},
                                    {"focused", told.focused},
                                    {"selectable", told.selectable},
                                    {"selected", told.selected},
                                    {"checkable", told.checkable},
                                    {"checked", told.checked},
                                    {"expandable", told.expandable},
                                    {"expanded", told.expanded},
                                    {"read only", told.readOnly}}) {
    if (holds) line << ", " << what;
  }
  line << " at " << told.place;
  std::string text = line.str();
  std::erase(text, '\r');
  std::ranges::replace(text, '\n', '|');
  return text + "\n";
}

/// What a pane of this size paints and tells, its first parts included, a line each.
inline std::vector<std::string> PictureOf(const Pane& pane, Size size) {
  constexpr int kMostParts = 50;
  RecordingSurface surface;
  pane.Paint(surface, {0, 0, size.width, size.height});
  surface.log << "told: " << Told(pane.Describe());
  for (int part = 0; part < std::min(kMostParts, pane.PartCount()); ++part) {
    const Accessible told = pane.DescribePart(part);
    const bool there = told.place.Empty() || pane.PartAt(told.place.Middle()) == part;
    surface.log << (there ? "  " : "  not found there: ") << Told(told);
  }
  std::vector<std::string> lines;
  std::istringstream text(surface.log.str());
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  return lines;
}

}  // namespace screens
