// Connection strings: no password is left in what people read, nothing else of the string is lost
// there, what a driver is given says the same as what was written, and only our own word is kept
// from it.

#include <algorithm>

#include "Fuzz.h"
#include "adapters/odbc/ConnectionString.h"
#include "adapters/server/ConnectionWords.h"
#include "adapters/server/StatementLimit.h"
#include "platform/RuntimeError.h"
#include "text/Secrets.h"

namespace {

using namespace adapters::odbc;
using namespace adapters::server;

constexpr std::size_t kSurelyOne = 4;  // a shorter one may be a part of any word
constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kLetters =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";

bool IsPassword(const Word& word) {
  return word.key.ends_with("password") || word.key.ends_with("pwd");
}

/// Whatever a password is, what people read is the same; and a message holds none of it.
void CheckRedacted(std::string_view text) {
  const std::string shown = text::ShownConnection(text);
  for (const Syntax syntax : {Syntax::kOleDb, Syntax::kOdbc}) {
    for (const Word& word : ReadWords(text, syntax)) {
      // Blanks at its ends are in every message.
      const std::size_t first = word.value.find_first_not_of(kBlanks);
      const std::size_t last = word.value.find_last_not_of(kBlanks);
      if (!IsPassword(word) || last - first + 1 < kSurelyOne) continue;
      const std::string message = text::WithoutPasswords("<" + word.value + ">", text);
      fuzz::Require(message == "<***>" || message.find(word.value) == std::string::npos,
                    "a password in a message", message);
      const bool plain = word.value.find_first_not_of(kLetters) == std::string::npos;
      if (!plain || text.find(word.value) != text.rfind(word.value)) continue;
      fuzz::Require(shown.find(word.value) == std::string::npos, "a password is shown", shown);
    }
  }
}

void CheckTranslated(std::string_view text, const std::string& driver) {
  std::string translated;
  try {
    translated = OdbcConnectionString(text, {{{driver, driver + ".so"}}, {}});
  } catch (const platform::RuntimeError& error) {
    fuzz::Require(!error.Description().empty(), "a refusal says why");
    return;
  }
  // FreeTDS ends a value in braces in a way of its own.
  if (SyntaxOf(text) != Syntax::kOleDb || driver == "FreeTDS") return;
  const Words said = ReadWords(text, Syntax::kOleDb);
  const Words given = ReadWords(translated, Syntax::kOdbc);
  const auto same = [&](std::string_view name, std::initializer_list<std::string_view> keys) {
    const Word* from = FindWord(said, keys, Syntax::kOleDb);
    const Word* to = FindWord(given, {name}, Syntax::kOdbc);
    if (to != nullptr) {
      fuzz::Require(from != nullptr && from->value == to->value, name, translated);
    }
  };
  same("database", {"initialcatalog", "database"});
  same("uid", {"userid", "uid", "user", "username"});
  same("pwd", {"password", "pwd"});
  same("app", {"applicationname", "app"});
  const auto drivers =
      std::count_if(given.begin(), given.end(), [](const Word& w) { return w.key == "driver"; });
  fuzz::Require(drivers == 1, "one driver", translated);
}

void CheckLimit(std::string_view text) {
  std::string rest;
  try {
    rest = TakeStatementLimit(text).rest;
  } catch (const platform::RuntimeError&) {
    return;
  }
  const Syntax syntax = SyntaxOf(text);
  Words expected = ReadWords(text, syntax);
  std::erase_if(expected, [](const Word& w) { return w.key == "statementtimeout"; });
  const Words left = ReadWords(rest, syntax);
  const bool same = std::ranges::equal(left, expected, [](const Word& one, const Word& other) {
    return one.key == other.key && one.value == other.value;
  });
  fuzz::Require(same, "the other words are left", rest);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = fuzz::Text(data, size);
  CheckRedacted(text);
  CheckTranslated(text, "ODBC Driver 18 for SQL Server");
  CheckTranslated(text, "FreeTDS");
  ConnectTimeout(text);
  CheckLimit(text);
  return 0;
}
