#include "tools/Layout.h"

#include <string>

#include "host/modMain.h"

namespace tools {

using controls::Twips;

namespace {

constexpr Twips kLabelGap = 90;

}  // namespace

void Layout::Set(std::initializer_list<Row> rows) {
  width_ = form_.Width();
  height_ = form_.Height();
  rows_ = std::vector<Row>(rows);  // rows cannot be assigned
  int index = 0;
  for (const auto& [control, place, growth, accessKey, name, enabledIn] : rows_) {
    control.Move(place.left, place.top, place.width, place.height);
    control.SetTabIndex(index++);
    control.SetAccessibleName(std::string(name.heard));
    (name.label == nullptr ? control : *name.label).SetAccessKey(std::string(accessKey));
    if (name.label != nullptr) name.label->SetNamed(&control);
    if (name.labelWidth > 0) {
      name.label->Move(place.left + place.width + kLabelGap, place.top, name.labelWidth,
                       place.height);
    }
  }
}

void Layout::FollowSize() {
  if (form_.Width() < lowest_ || form_.Height() < lowest_) return;
  const Twips width = form_.Width() - width_;
  const Twips height = form_.Height() - height_;
  for (const Row& row : rows_) {
    const Growth& share = row.growth;
    host::ShiftControl(row.control, width * share.width, width * share.left, height * share.height,
                       height * share.top);
    if (row.name.labelWidth > 0) {
      host::ShiftControl(*row.name.label, 0, width * (share.left + share.width), 0,
                         height * share.top);
    }
  }
  width_ = form_.Width();
  height_ = form_.Height();
}

void Layout::EnableFor(unsigned mode) const {
  for (const Row& row : rows_) row.control.SetEnabled((row.enabledIn & mode) != 0);
}

}  // namespace tools
