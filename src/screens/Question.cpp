#include "screens/Question.h"

#include <algorithm>

#include "platform/ServerErrors.h"
#include "text/Text.h"

namespace screens {

namespace {

constexpr std::string_view kOpening = "«";
constexpr std::string_view kClosing = "»";

/// A path may have Persian names in it; a Persian name has no letter of the other script.
bool RunsFromLeft(std::string_view words) {
  return !words.starts_with("\u202A") && std::ranges::any_of(words, text::IsLatinLetter);
}

}  // namespace

MessageKind KindOfMessage(std::string_view title) {
  // "اشکال" alone asks for what is missing.
  const bool error = title.starts_with("خطا") || title.starts_with("اشکال در");
  return error ? MessageKind::kError : MessageKind::kInformation;
}

std::string_view SignOf(MessageKind kind) {
  switch (kind) {
    case MessageKind::kQuestion:
      return "؟";
    case MessageKind::kError:
      return "!";
    case MessageKind::kInformation:
      break;
  }
  return "i";
}

std::string ShownMessage(std::string_view message) {
  std::string shown;
  for (;;) {
    const std::size_t begin = message.find(kOpening);
    const std::size_t end = message.find(kClosing, begin);
    if (end == std::string_view::npos) return shown.append(message);
    const std::size_t inside = begin + kOpening.size();
    const std::string_view words = message.substr(inside, end - inside);
    shown.append(message.substr(0, inside));
    if (RunsFromLeft(words)) {
      shown.append(platform::LeftToRight(words));
    } else {
      shown.append(words);
    }
    shown.append(kClosing);
    message.remove_prefix(end + kClosing.size());
  }
}

Answer AnswerOfEnter(std::string_view title) {
  return title == "حذف" || title == "هشدار" ? Answer::kNo : Answer::kYes;
}

}  // namespace screens
