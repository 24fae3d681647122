#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace adapters::sqlite {

/// A column's or an expression's type on the server.
struct Type {
  enum class Kind {
    kNull,  ///< of NULL alone
    kInt,   ///< 32 bits
    kBigint,
    kNumber,  ///< float or decimal
    kBit,
    kText,
    kDate,    ///< held as the whole number yyyymmdd
    kMoment,  ///< held as a date, or as the text "yyyymmdd hh:mm:ss"
    kBlob,
  };
  Kind kind = Kind::kNull;
  std::size_t length = 0;  ///< the most characters of a text; 0 without limit

  bool Is(Kind other) const { return kind == other; }
  /// int, bigint, float, decimal and bit.
  bool IsNumeric() const { return kind >= Kind::kInt && kind <= Kind::kBit; }
};

inline constexpr Type kIntType{Type::Kind::kInt};
inline constexpr Type kDateType{Type::Kind::kDate};
inline Type TextType(std::size_t length) {
  return {Type::Kind::kText, length};
}

/// The server's name of a type.
std::string_view NameOf(Type::Kind kind);

/// The type that a column's declaration names, in the words of the server or of SQLite.
Type DeclaredType(std::string_view declared);

/// The int that a text spells to CONVERT: blanks around it, a sign; nothing but these is 0. Throws
/// 245 for any other text, 248 for a number beyond 32 bits.
std::int32_t IntOf(std::string_view text);
/// 8115 for a number beyond 32 bits.
std::int32_t IntOf(std::int64_t number);

/// The whole number yyyymmdd of a day written yyyymmdd or yyyy-mm-dd; 241 for any other text and
/// for a day that no calendar has.
std::int32_t DateOf(std::string_view text);
/// yyyymmdd, perhaps with " hh:mm:ss" behind it, as it is held; 241 for any other text, 242 for a
/// moment that is none.
std::string MomentOf(std::string_view text);
/// yyyy-mm-dd of a whole number yyyymmdd.
std::string DateText(std::int64_t date);

}  // namespace adapters::sqlite
