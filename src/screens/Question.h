#pragma once

#include <string>
#include <string_view>

namespace screens {

/// What a message window of ours answers, in the numbers of the suite's message component. Esc and
/// the close box say no.
enum class Answer { kNo = 0, kYes = 1 };

/// Which sign a message window shows.
enum class MessageKind { kInformation, kQuestion, kError };

/// Of a message that is no question, by its title: whoever tells of an error says so there.
MessageKind KindOfMessage(std::string_view title);

/// The letter in the sign.
std::string_view SignOf(MessageKind kind);

/// `message` as a screen shows it: a path or foreign words between « and » are set apart (U+202A
/// ... U+202C), or their signs would stand at the wrong end within Persian. The text itself stays.
std::string ShownMessage(std::string_view message);

/// What Enter answers a question of this title before another button was chosen: no where stored
/// rows or a file would be lost.
Answer AnswerOfEnter(std::string_view title);

}  // namespace screens
