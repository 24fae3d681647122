#include "support/FakeScreen.h"

#include <gtest/gtest.h>

#include "platform/RuntimeError.h"

namespace support {

namespace {

class ModalUntilDone {
 public:
  explicit ModalUntilDone(int& depth) : depth_(depth) { ++depth_; }
  ~ModalUntilDone() { --depth_; }
  ModalUntilDone(const ModalUntilDone&) = delete;
  ModalUntilDone& operator=(const ModalUntilDone&) = delete;

 private:
  int& depth_;
};

}  // namespace

FakeScreen::~FakeScreen() {
  EXPECT_TRUE(actions_.empty()) << actions_.size() << " modal forms were expected and not shown";
}

void FakeScreen::Note(const std::string& line) {
  log.push_back(line);
  events_.push_back(line);
}

void FakeScreen::Show(controls::Form& form, controls::Modality modality) {
  if (modality == controls::Modality::kModeless) {
    if (hostIsModal || modalDepth_ > 0) {
      throw platform::RuntimeError(platform::kNonModalWhileModal,
                                   "Can't show non-modal form when modal form is displayed");
    }
    Note("show " + form.Name() + " modeless");
    return;
  }
  Note("show " + form.Name() + " modal");
  if (actions_.empty()) {
    ADD_FAILURE() << "nobody told what the user does on " << form.Name();
  } else {
    const auto action = std::move(actions_.front());
    actions_.pop_front();
    const ModalUntilDone modal(modalDepth_);
    action(form);
  }
  if (form.Visible()) form.Hide();
}

void FakeScreen::Hide(controls::Form& form) {
  Note("hide " + form.Name());
}

void FakeScreen::Unload(controls::Form& form) {
  Note("unload " + form.Name());
}

void FakeScreen::SetFocus(controls::Control& control) {
  Note("focus " + control.Name());
}

void FakeScreen::SetMousePointer(controls::MousePointer newPointer) {
  pointer = newPointer;
  Note("pointer " + std::to_string(static_cast<int>(newPointer)));
}

}  // namespace support
