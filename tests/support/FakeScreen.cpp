#include "support/FakeScreen.h"

#include <gtest/gtest.h>

#include <memory>

#include "platform/RuntimeError.h"

namespace support {

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
  if (modality == controls::Modality::kWaiting) return Note("show " + form.Name() + " waiting");
  Note("show " + form.Name() + " modal");
  if (actions_.empty() && !otherwise) {
    ADD_FAILURE() << "nobody told what the user does on " << form.Name();
  } else {
    const auto action = actions_.empty() ? otherwise : std::move(actions_.front());
    if (!actions_.empty()) actions_.pop_front();
    // Counted down also when the action throws.
    const auto countDown = [](int* depth) { --*depth; };
    ++modalDepth_;
    const std::unique_ptr<int, decltype(countDown)> up(&modalDepth_, countDown);
    action(form);
  }
  if (form.Visible()) form.Hide();
}

controls::Twips FakeScreen::TextWidth(std::string_view text) const {
  int letters = 0;
  for (const char byte : text) letters += (byte & 0xC0) != 0x80 ? 1 : 0;
  return 90.0 * letters;
}

void FakeScreen::SetMousePointer(controls::MousePointer newPointer) {
  pointer = newPointer;
  Note("pointer " + std::to_string(static_cast<int>(newPointer)));
}

}  // namespace support
