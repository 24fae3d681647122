#pragma once

#include <exception>
#include <string>

#include "platform/RuntimeError.h"

namespace screens {

/// What a screen tells the user of an error that no form trapped. UTF-8.
struct ErrorTexts {
  std::string title;
  std::string sentence;   // Persian, two or three lines
  std::string technical;  // English, to be read from the left and copied
  bool asked = false;     // it ended as the user asked, which is no error to him
};

/// What the program does once the user has read it; the sentence says so.
enum class AfterError { kGoesOn, kEnds };

/// A description may begin with Persian sentences, up to the last letter of that script and its
/// full stop: these go to the user's sentence, the rest is technical.
ErrorTexts TextsOf(const platform::RuntimeError& error, AfterError after = AfterError::kGoesOn);
ErrorTexts TextsOf(const std::exception& error, AfterError after = AfterError::kGoesOn);

}  // namespace screens
