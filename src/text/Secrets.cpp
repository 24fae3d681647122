#include "text/Secrets.h"

#include <algorithm>
#include <vector>

#include "text/Text.h"

namespace text {

namespace {

constexpr std::size_t kShortestSureSecret = 4;
constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kStars = "***";

bool IsWordByte(char c) {
  return IsDigit(c) || IsLatinLetter(c) || static_cast<unsigned char>(c) >= 0x80;
}

/// A very short secret may be a part of any word; only where it stands alone is it the secret.
std::string OneStarredOut(std::string_view text, std::string_view secret) {
  std::string result;
  std::size_t from = 0;
  for (std::size_t hit = text.find(secret); hit != std::string_view::npos;
       hit = text.find(secret, from)) {
    const std::size_t end = hit + secret.size();
    const bool alone =
        (hit == 0 || !IsWordByte(text[hit - 1])) && (end == text.size() || !IsWordByte(text[end]));
    const bool isSecret = alone || secret.size() >= kShortestSureSecret;
    result.append(text.substr(from, hit - from)).append(isSecret ? kStars : secret);
    from = end;
  }
  return result.append(text.substr(from));
}

/// Whether a key that ends so is a password's; blanks within it count for nothing.
bool EndsInPasswordKey(std::string_view text) {
  constexpr std::string_view kLongest = "password";
  std::string key;
  for (std::size_t at = text.size(); at > 0 && key.size() < kLongest.size(); --at) {
    const char c = text[at - 1];
    if (kBlanks.find(c) != std::string_view::npos) continue;
    key.insert(key.begin(), Small(c));
  }
  return key == kLongest || key.ends_with("pwd");
}

struct Value {
  std::string plain;
  std::size_t end = 0;  // bytes that it takes where it was read
  bool closed = true;
};

/// The value in quotes or braces that `s` begins with. A closing mark that is doubled is itself;
/// FreeTDS takes one for itself too (`innerMarks`) that no ";" follows. One that is not closed goes
/// on to the end.
Value ReadQuoted(std::string_view s, bool innerMarks) {
  const char close = s.front() == '{' ? '}' : s.front();
  Value value;
  std::size_t at = 1;
  for (; at < s.size(); ++at) {
    if (s[at] == close) {
      const std::size_t next = s.find_first_not_of(' ', at + 1);
      const bool last = next == std::string_view::npos || s[next] == ';';
      const bool doubled = s.substr(at + 1).starts_with(close);
      if (innerMarks ? last : !doubled) {
        value.end = at + 1;
        return value;
      }
      if (doubled) ++at;
    }
    value.plain += s[at];
  }
  value.end = s.size();
  value.closed = false;
  return value;
}

/// What stands behind a password's "=": all that it may be read as.
std::vector<Value> Readings(std::string_view s) {
  std::vector<Value> readings;
  const auto add = [&](std::size_t from, std::size_t end) {
    readings.push_back({std::string(s.substr(from, end - from)), end});
  };
  const std::size_t end = std::min(s.find(';'), s.size());
  add(0, end);
  // A ";" that should have been quoted: what follows it is no key with a value.
  const std::size_t sign = s.find('=');
  const std::size_t far = sign == std::string_view::npos ? s.size() : s.rfind(';', sign);
  if (end > 0 && far != std::string_view::npos && far > end) add(0, far);
  if (s.empty() || std::string_view("\"'{").find(s.front()) == std::string_view::npos) {
    return readings;
  }
  for (const bool innerMarks : {false, true}) readings.push_back(ReadQuoted(s, innerMarks));
  if (!readings.back().closed) add(1, end);
  return readings;
}

/// Calls `visit` for each place behind the "=" of a password's key; also for a key that stands
/// within the value of another, since that may have been meant to end earlier.
template <typename Visit>
void ForEachPassword(std::string_view connectionString, Visit visit) {
  for (std::size_t sign = connectionString.find('='); sign != std::string_view::npos;
       sign = connectionString.find('=', sign + 1)) {
    if (!EndsInPasswordKey(connectionString.substr(0, sign))) continue;
    visit(std::min(connectionString.find_first_not_of(kBlanks, sign + 1), connectionString.size()));
  }
}

std::string_view WithoutBlanks(std::string_view s) {
  s.remove_prefix(std::min(s.find_first_not_of(kBlanks), s.size()));
  return s.substr(0, s.find_last_not_of(kBlanks) + 1);
}

/// Every text by which a password could show up in a message, the longest first, so that none is
/// cut by a part of it.
std::vector<std::string> Passwords(std::string_view connectionString) {
  std::vector<std::string> passwords;
  ForEachPassword(connectionString, [&](std::size_t from) {
    const std::string_view rest = connectionString.substr(from);
    for (const Value& reading : Readings(rest)) {
      const std::string_view trimmed = WithoutBlanks(reading.plain);
      passwords.emplace_back(trimmed);
      passwords.push_back(Replace(trimmed, "}", "}}"));
      passwords.push_back(reading.plain);
      passwords.emplace_back(WithoutBlanks(rest.substr(0, reading.end)));
    }
  });
  // Marks alone, an empty password's, stand in many messages.
  std::erase_if(passwords, [](const std::string& each) {
    return each.size() < kShortestSureSecret && std::ranges::none_of(each, IsWordByte);
  });
  std::ranges::stable_sort(passwords, std::greater(), &std::string::size);
  return passwords;
}

}  // namespace

std::string WithoutPasswords(std::string_view message, std::string_view connectionString) {
  std::string result(message);
  for (const std::string& each : Passwords(connectionString)) result = OneStarredOut(result, each);
  return result;
}

std::string ShownConnection(std::string_view connectionString) {
  std::string shown;
  std::size_t told = 0;
  ForEachPassword(connectionString, [&](std::size_t from) {
    std::size_t end = from;
    for (const Value& reading : Readings(connectionString.substr(from))) {
      end = std::max(end, from + reading.end);
    }
    end = std::min(connectionString.find(';', end), connectionString.size());
    if (end <= std::max(from, told)) return;
    if (from >= told) {
      shown.append(connectionString.substr(told, from - told)).append(kStars);
    }
    told = end;
  });
  return shown.append(connectionString.substr(told));
}

}  // namespace text
