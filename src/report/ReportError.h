#pragma once

#include <cstdint>
#include <string>

#include "platform/RuntimeError.h"

namespace report {

/// Number of whatever is wrong with a template file itself.
inline constexpr std::int32_t kInvalidFileFormat = 321;

/// A report that cannot be made. The description is both texts, a line each.
class ReportError : public platform::RuntimeError {
 public:
  ReportError(std::int32_t number, std::string words, std::string technical)
      : RuntimeError(number, words + "\n" + technical, "report"),
        words_(std::move(words)),
        technical_(std::move(technical)) {}

  /// A Persian sentence for the user.
  const std::string& Words() const { return words_; }
  /// File, line and what is wrong there, for whoever mends the template.
  const std::string& Technical() const { return technical_; }

 private:
  std::string words_;
  std::string technical_;
};

/// Throws ReportError 321 about a line of the template that is called `name`.
[[noreturn]] void RefuseTemplate(const std::string& name, int line, const std::string& words,
                                 const std::string& technical);

}  // namespace report
