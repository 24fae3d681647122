#include "text/PersianOrder.h"

#include <array>
#include <cstddef>
#include <cstdint>

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

constexpr bool IsTail(unsigned char c) {
  return (c & 0xC0U) == 0x80U;
}

// Reads one character and moves past it. Overlong forms and surrogates are taken for what they
// spell: no text is refused, equal bytes are equal weights.
std::uint32_t NextWeight(const unsigned char*& at, const unsigned char* end) {
  const std::uint32_t lead = *at;
  const std::ptrdiff_t left = end - at;
  if (lead < 0x80) {
    ++at;
    return kRanks.low[lead];
  }
  if ((lead & 0xE0U) == 0xC0U && left >= 2 && IsTail(at[1])) {
    const std::uint32_t c = (lead & 0x1FU) << 6U | (at[1] & 0x3FU);
    at += 2;
    return kRanks.low[c] != 0 ? kRanks.low[c] : kUnranked | c;
  }
  if ((lead & 0xF0U) == 0xE0U && left >= 3 && IsTail(at[1]) && IsTail(at[2])) {
    const std::uint32_t c = (lead & 0xFU) << 12U | (at[1] & 0x3FU) << 6U | (at[2] & 0x3FU);
    at += 3;
    const bool isPunctuation = c >= 0x2000 && c - 0x2000 < kRanks.punctuation.size();
    const std::uint8_t rank = isPunctuation ? kRanks.punctuation[c - 0x2000] : std::uint8_t{0};
    return rank != 0 ? rank : kUnranked | c;
  }
  if ((lead & 0xF8U) == 0xF0U && left >= 4 && IsTail(at[1]) && IsTail(at[2]) && IsTail(at[3])) {
    const std::uint32_t c =
        (lead & 0x7U) << 18U | (at[1] & 0x3FU) << 12U | (at[2] & 0x3FU) << 6U | (at[3] & 0x3FU);
    at += 4;
    return kUnranked | c;
  }
  ++at;
  return kUnranked | (kBrokenByte + lead);
}

const unsigned char* BytesOf(std::string_view s) {
  return reinterpret_cast<const unsigned char*>(s.data());
}

}  // namespace

std::weak_ordering ComparePersian(std::string_view a, std::string_view b) {
  const unsigned char* atA = BytesOf(a);
  const unsigned char* atB = BytesOf(b);
  const unsigned char* const endA = atA + a.size();
  const unsigned char* const endB = atB + b.size();
  while (atA != endA && atB != endB) {
    const std::uint32_t weightA = NextWeight(atA, endA);
    const std::uint32_t weightB = NextWeight(atB, endB);
    if (weightA != weightB) return weightA <=> weightB;
  }
  return (atA != endA) <=> (atB != endB);
}

void AppendSortKey(std::string_view s, std::string& key) {
  // Through a buffer: a call of append for every byte costs more than the ranking itself.
  std::array<char, 256> buffer;
  std::size_t used = 0;
  const unsigned char* at = BytesOf(s);
  const unsigned char* const end = at + s.size();
  while (at != end) {
    if (used + 4 > buffer.size()) {
      key.append(buffer.data(), used);
      used = 0;
    }
    const std::uint32_t weight = NextWeight(at, end);
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
