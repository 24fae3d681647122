#include "controls/Question.h"

namespace controls {

Answer AnswerOfEnter(std::string_view title) {
  return title == "حذف" || title == "هشدار" ? Answer::kNo : Answer::kYes;
}

}  // namespace controls
