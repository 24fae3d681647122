#include "adapters/windows/Passwords.h"

#include <algorithm>
#include <vector>

#include "text/Secrets.h"

namespace adapters::windows {

namespace {

std::string_view TrimBlanks(std::string_view s) {
  constexpr std::string_view kBlanks = " \t\r\n";
  s.remove_prefix(std::min(s.find_first_not_of(kBlanks), s.size()));
  return s.substr(0, s.find_last_not_of(kBlanks) + 1);
}

bool IsPasswordKey(std::string_view key) {
  std::string lower;
  for (const char c : TrimBlanks(key))
    lower += c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
  return lower.ends_with("password") || lower.ends_with("pwd");
}

/// Bytes of the quoted value that `s` begins with, which is appended to `value` with doubled
/// closing marks single; 0 when it begins with none.
std::size_t ReadQuoted(std::string_view s, std::string& value) {
  if (s.empty() || std::string_view("\"'{").find(s.front()) == std::string_view::npos) return 0;
  const char close = s.front() == '{' ? '}' : s.front();
  for (std::size_t at = 1; at < s.size(); ++at) {
    if (s[at] != close) {
      value += s[at];
    } else if (at + 1 < s.size() && s[at + 1] == close) {
      value += s[at++];
    } else {
      return at + 1;
    }
  }
  return 0;
}

/// Every text by which a password could show up in a message.
std::vector<std::string> Passwords(std::string_view rest) {
  std::vector<std::string> passwords;
  for (;;) {
    const std::size_t sign = rest.find_first_of("=;");
    if (sign == std::string_view::npos) break;
    const std::string_view key = rest.substr(0, sign);
    const bool hasValue = rest[sign] == '=';
    rest.remove_prefix(sign + 1);
    if (!hasValue) continue;
    rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
    const std::string_view plain = rest.substr(0, rest.find(';'));
    std::string quoted;
    const std::size_t quotedBytes = ReadQuoted(rest, quoted);
    const std::size_t bytes = quotedBytes == 0 ? plain.size() : quotedBytes;
    if (IsPasswordKey(key)) {
      // Which of these it is, the provider knows.
      passwords.emplace_back(TrimBlanks(plain));
      passwords.emplace_back(rest.substr(0, bytes));
      if (quotedBytes != 0) passwords.push_back(std::move(quoted));
    }
    rest.remove_prefix(bytes);
  }
  return passwords;
}

}  // namespace

std::string WithoutPasswords(std::string_view message, std::string_view connectionString) {
  return text::StarredOut(message, Passwords(connectionString));
}

}  // namespace adapters::windows
