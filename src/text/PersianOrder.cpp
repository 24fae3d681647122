#include "text/PersianOrder.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "text/Utf8.h"

namespace text {

namespace {

// A character's weight in the order: its rank, or for a character without one kUnranked and its
// code point below that.
constexpr std::uint32_t kUnranked = 0xFFU << 24U;
// A byte that is no UTF-8 counts as a character of its own beyond all code points.
constexpr std::uint32_t kBrokenByte = 0x200000;

// Ranks of the characters up to U+07FF and of the general punctuation; 0 is none.
struct Ranks {
  std::array<std::uint8_t, 0x800> low{};
  std::array<std::uint8_t, 0x70> punctuation{};  // from U+2000
};

// Blanks, then what joins and parts words and sentences, in the order of the code points.
constexpr std::u32string_view kBlanks = U" \u00A0\u200C\u200D\u200E\u200F\u2009\u202F";
constexpr std::u32string_view kMarks =
    U"\u00AB\u00B7\u00BB\u060C\u061B\u061F\u066A\u066B\u066C"
    U"\u066D\u06D4\u2010\u2011\u2013\u2014\u2018\u2019\u201C"
    U"\u201D\u2022\u2026\u2039\u203A";
// Hamza and the letters that carry it follow alef, teh marbuta and its kin follow heh. Letters in
// brackets are equal to the one before them: the other kinds of kaf and yeh.
constexpr std::u32string_view kLetters =
    U"\u0622\u0627\u0671\u0621\u0623\u0625\u0624\u0626"                // آ ا ٱ ء أ إ ؤ ئ
    U"\u0628\u067E\u062A\u062B\u062C\u0686\u062D\u062E"                // ب پ ت ث ج چ ح خ
    U"\u062F\u0630\u0631\u0632\u0698\u0633\u0634\u0635"                // د ذ ر ز ژ س ش ص
    U"\u0636\u0637\u0638\u0639\u063A\u0641\u0642(\u06A9\u0643)\u06AF"  // ض ط ظ ع غ ف ق ک ك گ
    U"\u0644\u0645\u0646\u0648\u0647\u0629\u06C0(\u06CC\u064A)\u0649";  // ل م ن و ه ة ۀ ی ي ى

consteval void Rank(Ranks& ranks, char32_t c, std::uint8_t rank) {
  if (c < 0x800) {
    ranks.low[c] = rank;
  } else {
    ranks.punctuation[c - 0x2000] = rank;
  }
}

consteval Ranks MakeRanks() {
  Ranks ranks;
  std::uint8_t rank = 0;
  const auto isWordCharacter = [](char32_t c) consteval {
    return (c >= U'0' && c <= U'9') || (c >= U'A' && c <= U'Z') || (c >= U'a' && c <= U'z');
  };
  for (const char32_t c : kBlanks) Rank(ranks, c, ++rank);
  for (char32_t c = 0; c < 0x80; ++c) {
    if (c != U' ' && !isWordCharacter(c)) Rank(ranks, c, ++rank);
  }
  for (const char32_t c : kMarks) Rank(ranks, c, ++rank);
  for (char32_t digit = 0; digit < 10; ++digit) {
    ++rank;
    Rank(ranks, U'0' + digit, rank);
    Rank(ranks, U'\u06F0' + digit, rank);
    Rank(ranks, U'\u0660' + digit, rank);
  }
  for (char32_t c = U'A'; c <= U'z'; ++c) {
    if (isWordCharacter(c)) Rank(ranks, c, ++rank);
  }
  bool sameRank = false;
  for (const char32_t c : kLetters) {
    if (c == U'(' || c == U')') {
      sameRank = c == U'(';
      if (sameRank) ++rank;
    } else {
      Rank(ranks, c, sameRank ? rank : ++rank);
    }
  }
  return ranks;
}

constexpr Ranks kRanks = MakeRanks();
static_assert(kRanks.low[0x649] > kRanks.low[0x648] && kRanks.low[0x649] < 0xFF,
              "all ranks fit below the byte of the unranked");

// Reads one character and moves past it.
std::uint32_t NextWeight(std::string_view s, std::size_t& at) {
  const std::size_t begin = at;
  const char32_t c = TakeCharacter(s, at);
  std::uint8_t rank = 0;
  if (c < kRanks.low.size()) {
    rank = kRanks.low[c];
  } else if (c - 0x2000 < kRanks.punctuation.size()) {
    rank = kRanks.punctuation[c - 0x2000];
  } else if (c == kReplacement && at == begin + 1) {
    return kUnranked | (kBrokenByte + static_cast<unsigned char>(s[begin]));
  }
  return rank != 0 ? rank : kUnranked | c;
}

}  // namespace

std::weak_ordering ComparePersian(std::string_view a, std::string_view b) {
  std::size_t atA = 0;
  std::size_t atB = 0;
  while (atA != a.size() && atB != b.size()) {
    const std::uint32_t weightA = NextWeight(a, atA);
    const std::uint32_t weightB = NextWeight(b, atB);
    if (weightA != weightB) return weightA <=> weightB;
  }
  return (atA != a.size()) <=> (atB != b.size());
}

void AppendSortKey(std::string_view s, std::string& key) {
  // Through a buffer: a call of append for every byte costs more than the ranking itself.
  std::array<char, 256> buffer;
  std::size_t used = 0;
  for (std::size_t at = 0; at != s.size();) {
    if (used + 4 > buffer.size()) {
      key.append(buffer.data(), used);
      used = 0;
    }
    const std::uint32_t weight = NextWeight(s, at);
    if (weight >= kUnranked) {
      for (const unsigned shift : {24U, 16U, 8U}) {
        buffer[used++] = static_cast<char>(weight >> shift & 0xFFU);
      }
    }
    buffer[used++] = static_cast<char>(weight & 0xFFU);
  }
  key.append(buffer.data(), used);
}

}  // namespace text
