#include "adapters/windows/Secrets.h"

#include <algorithm>
#include <vector>

namespace adapters::windows {

namespace {

constexpr std::size_t kShortestSureSecret = 4;

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

/// The longest first, so that none is cut by a part of it.
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
  std::erase(passwords, std::string());
  std::sort(passwords.begin(), passwords.end(),
            [](const std::string& a, const std::string& b) { return a.size() > b.size(); });
  return passwords;
}

bool IsWordByte(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
         static_cast<unsigned char>(c) >= 0x80;
}

std::string StarredOut(std::string_view text, std::string_view password) {
  std::string result;
  std::size_t from = 0;
  for (std::size_t hit = text.find(password); hit != std::string_view::npos;
       hit = text.find(password, from)) {
    const std::size_t end = hit + password.size();
    const bool alone =
        (hit == 0 || !IsWordByte(text[hit - 1])) && (end == text.size() || !IsWordByte(text[end]));
    const bool isPassword = alone || password.size() >= kShortestSureSecret;
    result.append(text.substr(from, hit - from)).append(isPassword ? "***" : password);
    from = end;
  }
  return result.append(text.substr(from));
}

}  // namespace

std::string WithoutPasswords(std::string_view message, std::string_view connectionString) {
  std::string result(message);
  for (const std::string& password : Passwords(connectionString)) {
    result = StarredOut(result, password);
  }
  return result;
}

}  // namespace adapters::windows
