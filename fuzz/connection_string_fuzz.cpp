// Connection strings: no password is left in what people read, nothing else of the string is lost
// there, and what a driver is given says the same as what was written.

#include <algorithm>

#include "Fuzz.h"
#include "adapters/odbc/ConnectionString.h"
#include "adapters/odbc/ConnectionWords.h"
#include "platform/RuntimeError.h"

namespace {

using namespace adapters::odbc;

bool IsPassword(const Word& word) {
  return word.key.ends_with("password") || word.key.ends_with("pwd");
}

void CheckRedacted(std::string_view text) {
  const Syntax syntax = SyntaxOf(text);
  const std::string shown = WithoutPassword(text);
  const Words before = ReadWords(text, syntax);
  const Words after = ReadWords(shown, syntax);
  fuzz::Require(before.size() == after.size(), "as many words", shown);
  for (std::size_t i = 0; i < before.size(); ++i) {
    fuzz::Require(before[i].key == after[i].key, "the same keys", shown);
    const bool starred = IsPassword(before[i]) && !before[i].written.empty();
    fuzz::Require(after[i].value == (starred ? "***" : before[i].value), "the value", shown);
  }
  const std::vector<std::string> passwords = Passwords(text);
  for (const Word& word : before) {
    fuzz::Require(!IsPassword(word) || word.value.empty() ||
                      std::find(passwords.begin(), passwords.end(), word.value) != passwords.end(),
                  "a password that is not known", word.value);
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

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = fuzz::Text(data, size);
  CheckRedacted(text);
  CheckTranslated(text, "ODBC Driver 18 for SQL Server");
  CheckTranslated(text, "FreeTDS");
  ConnectTimeout(text);
  return 0;
}
