// Which sheets a view of pages has, and what is told of them.

#include <string>

#include "screens/PagesPane.h"
#include "screens/PaintSheet.h"

namespace screens {

namespace {

constexpr int kTick = 1;  // milliseconds: as soon as the user's events are dealt with

}  // namespace

bool PagesPane::IsMissing(int sheet) const {
  const auto kept = kept_.find(sheet);
  return kept == kept_.end() || kept->second.old;
}

/// False when it cannot be told now.
bool PagesPane::Fetch(int sheet) {
  try {
    auto made = Shown()->sheetOf ? Shown()->sheetOf(sheet) : std::nullopt;
    if (!made || Shown() == nullptr) return false;
    kept_[sheet] = {std::move(*made)};
  } catch (...) {
    // It is not asked for again at once, to fail once more.
    kept_[sheet] = {};
    throw;
  }
  Host().Repaint(SheetPlace(sheet));
  if (sheet == Shown()->Current()) Host().Announce(Tidings::kContent, -1);
  return true;
}

/// Drops what is far from sight. Whatever cannot be told now is looked for again by Tick.
void PagesPane::FetchInSight() {
  if (Shown() == nullptr || Area().Empty()) return;
  const Span seen = InSight();
  std::erase_if(kept_, [&seen](const auto& kept) {
    return kept.first < seen.first - 1 || kept.first > seen.last + 1;
  });
  for (int sheet = seen.first; sheet <= seen.last; ++sheet) {
    if (!IsMissing(sheet)) continue;
    const bool made = Fetch(sheet);
    if (!made || Shown() == nullptr) return KeepWorking();
  }
  KeepWorking();
}

/// Those beside what is seen, too: scrolling comes to them next.
void PagesPane::Tick() {
  if (Shown() == nullptr) return Host().SetTimer(0);
  const Span seen = InSight();
  FetchInSight();
  if (Shown() == nullptr) return Host().SetTimer(0);
  for (const int sheet : {seen.last + 1, seen.first - 1}) {
    if (sheet >= 0 && sheet < Shown()->Count() && IsMissing(sheet)) {
      Fetch(sheet);
      return;
    }
  }
  if (Shown()->HasWork()) Shown()->Work();
  KeepWorking();
}

/// The timer runs while something is missing or to be done.
void PagesPane::KeepWorking() {
  if (Shown() == nullptr || Area().Empty()) return Host().SetTimer(0);
  bool wanted = Shown()->HasWork();
  const Span seen = InSight();
  for (int sheet = std::max(0, seen.first - 1); sheet <= seen.last + 1 && !wanted; ++sheet) {
    wanted = sheet < Shown()->Count() && IsMissing(sheet);
  }
  Host().SetTimer(wanted ? kTick : 0);
}

const controls::Sheet* PagesPane::CurrentSheet() const {
  const auto kept = Shown() == nullptr ? kept_.end() : kept_.find(Shown()->Current());
  return kept == kept_.end() ? nullptr : &kept->second.sheet;
}

Accessible PagesPane::Describe() const {
  Accessible described = Described(Role::kDocument);
  if (Shown() == nullptr) return described;
  described.value = "صفحه " + std::to_string(Shown()->Current() + 1);
  described.focusable = true;
  described.readOnly = true;
  return described;
}

int PagesPane::PartCount() const {
  const controls::Sheet* const sheet = CurrentSheet();
  return sheet == nullptr ? 0 : static_cast<int>(sheet->texts.size());
}

Accessible PagesPane::DescribePart(int part) const {
  const controls::Sheet* const sheet = CurrentSheet();
  if (sheet == nullptr || part < 0 || part >= PartCount()) return {};
  const controls::SheetText& text = sheet->texts[static_cast<std::size_t>(part)];
  const Rect page = SheetPlace(Shown()->Current());
  return {.role = Role::kLabel,
          .name = text.text,
          .place = OnDevice(text.box, {page.left, page.top}, PixelsPerPoint()).Common(Area()),
          .readOnly = true};
}

int PagesPane::PartAt(Point place) const {
  for (int part = 0; part < PartCount(); ++part) {
    if (DescribePart(part).place.Contains(place)) return part;
  }
  return -1;
}

}  // namespace screens
