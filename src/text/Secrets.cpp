#include "text/Secrets.h"

#include <algorithm>

namespace text {

namespace {

constexpr std::size_t kShortestSureSecret = 4;

bool IsWordByte(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
         static_cast<unsigned char>(c) >= 0x80;
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
    result.append(text.substr(from, hit - from)).append(isSecret ? "***" : secret);
    from = end;
  }
  return result.append(text.substr(from));
}

}  // namespace

std::string StarredOut(std::string_view text, std::vector<std::string> secrets) {
  std::erase(secrets, std::string());
  // The longest first, so that none is cut by a part of it.
  std::stable_sort(secrets.begin(), secrets.end(),
                   [](const std::string& a, const std::string& b) { return a.size() > b.size(); });
  std::string result(text);
  for (const std::string& secret : secrets) result = OneStarredOut(result, secret);
  return result;
}

}  // namespace text
