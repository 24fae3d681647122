#include "text/Text.h"

#include <cmath>

#include "support/Tables.h"
#include "text/CellText.h"
#include "text/Fold.h"
#include "text/Secrets.h"

namespace {

using Given = std::vector<std::string>;

TEST(Text, Functions_MakeOfTextsWhatIsWrittenDown) {
  support::ExpectTable(
      "tests/text/texts.txt",
      {{"LeadingNumber",
        [](const Given& given) { return text::DecimalText(text::LeadingNumber(given.at(0))); }},
       {"DecimalText",
        [](const Given& given) {
          return text::DecimalText(std::strtod(given.at(0).c_str(), nullptr));
        }},
       {"Trim",
        [](const Given& given) { return "[" + std::string(text::Trim(given.at(0))) + "]"; }},
       {"Replace",
        [](const Given& given) { return text::Replace(given.at(0), given.at(1), given.at(2)); }},
       {"Mid",
        [](const Given& given) {
          return std::string(
              text::Mid(given.at(0), std::stoul(given.at(1)), std::stoul(given.at(2))));
        }},
       {"Length", [](const Given& given) { return std::to_string(text::Length(given.at(0))); }},
       {"LatinDigits", [](const Given& given) { return text::LatinDigits(given.at(0)); }},
       {"FoldForLookup", [](const Given& given) { return text::FoldForLookup(given.at(0)); }},
       {"WithoutPasswords",
        [](const Given& given) { return text::WithoutPasswords(given.at(1), given.at(0)); }},
       {"ShownConnection", [](const Given& given) { return text::ShownConnection(given.at(0)); }}});
}

TEST(Text, BrokenUtf8_PassesThrough) {
  for (const std::string_view broken :
       {"\xD9", "a\xE2\x80", "\xD9\xD9\x85", "\xF0\x9F\x98", "\x80"}) {
    EXPECT_EQ(text::FoldForLookup(broken), broken);
  }
  EXPECT_EQ(text::LatinDigits("۵ي\xD9\x8E A\xDB"), "5ي\xD9\x8E A\xDB");
  EXPECT_EQ(text::Mid("\xD9", 1, 5), "\xD9");
}

TEST(CellText, DaysTimesBytesAndReals_AreWrittenAsEveryEngineGivesThem) {
  std::string cell;
  text::AppendDay(cell, 622, 3, 21);
  text::AppendTimeOfDay(cell, 0, 0, 0);
  EXPECT_EQ(cell, "0622-03-21");
  text::AppendTimeOfDay(cell, 0, 5, 59);
  EXPECT_EQ(cell, "0622-03-21 00:05:59");
  cell = "0x";
  text::AppendHex(cell, std::as_bytes(std::span("\x0A\xF7", 2)));
  EXPECT_EQ(cell, "0x0AF7");
  EXPECT_EQ(text::RealText(0.1F), "0.1");
}

}  // namespace
