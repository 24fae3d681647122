#pragma once

#include <string_view>

namespace controls {

/// What a message window of ours answers, in the numbers of the suite's message component. Esc and
/// the close box say no.
enum class Answer { kNo = 0, kYes = 1 };

/// What Enter answers a question of this title before another button was chosen: no where stored
/// rows or a file would be lost.
Answer AnswerOfEnter(std::string_view title);

}  // namespace controls
