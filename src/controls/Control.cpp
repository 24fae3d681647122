#include "controls/Control.h"

#include <algorithm>

#include "controls/Form.h"
#include "platform/RuntimeError.h"

namespace controls {

Subscription Observers::Subscribe(Listener listener) {
  auto entry = std::make_shared<Entry>(Entry{std::move(listener)});
  entries_->push_back(entry);
  return Subscription([entry, registered = std::weak_ptr<Entries>(entries_)] {
    entry->subscribed = false;
    if (const auto entries = registered.lock()) std::erase(*entries, entry);
  });
}

void Observers::Notify(const Change& change) const {
  if (entries_->empty()) return;
  const Entries listeners = *entries_;  // what a listener does to the list concerns the next change
  for (const auto& entry : listeners) {
    if (entry->subscribed) entry->listener(change);
  }
}

Control::Control(Container& parent, std::string name) : parent_(parent), name_(std::move(name)) {
  parent_.controls_.push_back(this);
}

Control::~Control() {
  std::erase(parent_.controls_, this);
}

Form& Control::ParentForm() const {
  return parent_.OwnForm();
}

void Control::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  Notify(Aspect::kEnabled);
}

void Control::SetVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  Notify(Aspect::kVisible);
}

void Control::SetLeft(Twips left) {
  Move(left, top_, width_, height_);
}

void Control::SetTop(Twips top) {
  Move(left_, top, width_, height_);
}

void Control::SetWidth(Twips width) {
  Move(left_, top_, width, height_);
}

void Control::SetHeight(Twips height) {
  Move(left_, top_, width_, height);
}

void Control::Move(Twips left, Twips top, Twips width, Twips height) {
  if (width < 0 || height < 0) {
    throw platform::RuntimeError(platform::kInvalidPropertyValue, "Invalid property value");
  }
  const bool resized = width != width_ || height != height_;
  if (!resized && left == left_ && top == top_) return;
  left_ = left;
  top_ = top;
  width_ = width;
  height_ = height;
  if (resized) Resized();
  Notify(Aspect::kBounds);
}

bool Control::Reachable() const {
  bool reachable = true;
  for (const Control* at = this; at != nullptr && reachable;
       at = dynamic_cast<const Control*>(&at->parent_)) {
    reachable = at->enabled_ && at->visible_;
  }
  return reachable;
}

void Control::SetFocus() {
  if (!Reachable() || !ParentForm().Visible()) {
    throw platform::RuntimeError(platform::kInvalidProcedureCall,
                                 "Invalid procedure call or argument");
  }
  ParentForm().GetScreen().SetFocus(*this);
}

Control* Container::FindControl(std::string_view name) const {
  for (Control* control : controls_) {
    if (control->Name() == name) return control;
    if (const auto* inner = dynamic_cast<const Container*>(control)) {
      if (Control* found = inner->FindControl(name)) return found;
    }
  }
  return nullptr;
}

}  // namespace controls
