#include "adapters/odbc/Utf16.h"

#include <algorithm>

#include "text/Utf8.h"

namespace adapters::odbc {

namespace {

bool IsHighSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}
bool IsLowSurrogate(char32_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

}  // namespace

Utf16 ToUtf16(std::string_view text) {
  Utf16 units;
  units.reserve(text.size() + 1);
  for (std::size_t at = 0; at < text.size();) {
    const char32_t code = text::TakeCharacter(text, at);
    if (code < 0x10000) {
      units.push_back(static_cast<SQLWCHAR>(code));
    } else {
      units.push_back(static_cast<SQLWCHAR>(0xD800 + ((code - 0x10000) >> 10U)));
      units.push_back(static_cast<SQLWCHAR>(0xDC00 + (code & 0x3FFU)));
    }
  }
  units.push_back(0);
  return units;
}

void AppendUtf8(std::string& out, std::span<const SQLWCHAR> text) {
  constexpr std::size_t kMostBytes = 3;  // of a unit; a pair of them takes four
  const std::size_t before = out.size();
  out.resize(before + text.size() * kMostBytes);
  char* end = out.data() + before;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t code = text[i];
    if (IsHighSurrogate(code) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      code = 0x10000 + ((code - 0xD800) << 10U) + (text[++i] - 0xDC00U);
    } else if (IsHighSurrogate(code) || IsLowSurrogate(code)) {
      code = text::kReplacement;
    }
    end = text::PutUtf8(end, code);
  }
  out.resize(static_cast<std::size_t>(end - out.data()));
}

std::string ToUtf8(const Utf16& buffer, SQLINTEGER length) {
  const std::size_t limit = length < 0 ? 0 : static_cast<std::size_t>(length);
  const std::span shown = std::span(buffer).first(std::min(limit, buffer.size()));
  const auto end = std::find(shown.begin(), shown.end(), SQLWCHAR{0});
  std::string out;
  AppendUtf8(out, {shown.begin(), end});
  return out;
}

}  // namespace adapters::odbc
