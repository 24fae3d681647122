#include "adapters/server/ConnectionWords.h"

#include <algorithm>

#include "text/Text.h"

namespace adapters::server {

namespace {

class WordReader {
 public:
  WordReader(std::string_view text, Syntax syntax) : all_(text), rest_(text), syntax_(syntax) {}

  Words Run() {
    Words words;
    for (;;) {
      rest_.remove_prefix(std::min(rest_.find_first_not_of("; \t\r\n"), rest_.size()));
      if (rest_.empty()) return words;
      Word word;
      word.from = all_.size() - rest_.size();
      word.key = Key();
      Value(word.value);
      rest_.remove_prefix(std::min(rest_.find(';'), rest_.size()));
      word.end = all_.size() - rest_.size() + (rest_.empty() ? 0 : 1);
      words.push_back(std::move(word));
    }
  }

 private:
  /// Up to the "=", which is skipped with the blanks behind it. In an OLE DB string a doubled "="
  /// belongs to the key.
  std::string Key() {
    std::string key;
    while (!rest_.empty() && rest_.front() != ';') {
      const char c = rest_.front();
      rest_.remove_prefix(1);
      if (c == '=') {
        if (syntax_ == Syntax::kOdbc || !rest_.starts_with('=')) {
          rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size()));
          break;
        }
        rest_.remove_prefix(1);
      }
      key += c;
    }
    return Folded(key);
  }

  void Value(std::string& value) {
    const char first = rest_.empty() ? '\0' : rest_.front();
    if (syntax_ == Syntax::kOdbc && first == '{') return Quoted('}', value);
    if (syntax_ == Syntax::kOleDb && (first == '"' || first == '\'')) return Quoted(first, value);
    value = text::Trim(rest_.substr(0, rest_.find(';')));
  }

  /// A closing mark doubled is itself. FreeTDS takes one for itself too that no ";" follows.
  void Quoted(char close, std::string& value) {
    rest_.remove_prefix(1);
    while (!rest_.empty()) {
      const char c = rest_.front();
      rest_.remove_prefix(1);
      if (c == close) {
        const std::size_t next = rest_.find_first_not_of(' ');
        if (next == std::string_view::npos || rest_[next] == ';') return;
        if (rest_.front() == close) rest_.remove_prefix(1);
      }
      value += c;
    }
  }

  std::string_view all_;
  std::string_view rest_;  // what is not read yet
  Syntax syntax_;
};

bool NamesProvider(const Words& words) {
  return FindWord(words, {"provider"}, Syntax::kOleDb) != nullptr;
}

}  // namespace

std::string Folded(std::string_view name) {
  std::string folded;
  for (const char c : name) {
    if (c != ' ') folded += text::Small(c);
  }
  return folded;
}

Words ReadWords(std::string_view text, Syntax syntax) {
  return WordReader(text, syntax).Run();
}

Syntax SyntaxOf(std::string_view text) {
  return NamesProvider(ReadWords(text, Syntax::kOleDb)) &&
                 NamesProvider(ReadWords(text, Syntax::kOdbc))
             ? Syntax::kOleDb
             : Syntax::kOdbc;
}

const Word* FindWord(const Words& words, std::initializer_list<std::string_view> keys,
                     Syntax syntax) {
  const auto matches = [&](const Word& word) {
    return std::find(keys.begin(), keys.end(), word.key) != keys.end();
  };
  if (syntax == Syntax::kOdbc) {
    const auto found = std::find_if(words.begin(), words.end(), matches);
    return found == words.end() ? nullptr : &*found;
  }
  const auto found = std::find_if(words.rbegin(), words.rend(), matches);
  return found == words.rend() ? nullptr : &*found;
}

}  // namespace adapters::server
