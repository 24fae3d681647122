#include "screens/ErrorGuard.h"

#include "screens/MessageForm.h"

namespace screens {

void ErrorGuard::Tell(const ErrorTexts& texts) noexcept {
  outlets_.note(texts.technical);
  if (screen_ == nullptr) return outlets_.lastResort(texts);
  try {
    // What failed under the hourglass will not take it away any more.
    screen_->SetMousePointer(controls::MousePointer::kDefault);
    MessageForm(*screen_, {.title = texts.title,
                           .text = texts.sentence,
                           .technical = texts.asked ? std::string() : texts.technical,
                           .kind = texts.asked ? MessageKind::kInformation : MessageKind::kError})
        .Ask();
  } catch (const std::exception&) {
    outlets_.lastResort(texts);
  }
}

}  // namespace screens
