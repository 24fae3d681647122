#pragma once

#include <span>
#include <string_view>

namespace demo {

// The words that a sample office is put together from. The letters are those of the suite's own
// data: yeh always Arabic, kaf Arabic (the generator gives some rows the Persian one).

std::span<const std::string_view> FirstNames();
std::span<const std::string_view> Surnames();

/// A kind of activity and the word that a shop of that kind carries before its name.
struct Activity {
  std::string_view name;
  std::string_view shopWord;
  int share;  // of all customers, in hundredths
};
std::span<const Activity> Activities();

/// What a shop is called after its kind: "بهار" of "سوپرماركت بهار".
std::span<const std::string_view> ShopNames();

struct City {
  std::string_view name;
  std::string_view areaCode;
  std::span<const std::string_view> regions;
};
/// One branch each; the first is the head office.
std::span<const City> Cities();

/// Main streets with their kind ("خيابان آزادي"); a path runs along one.
std::span<const std::string_view> Streets();
std::span<const std::string_view> Alleys();

/// Notes of a program, of a batch of visits, and what a promoter reports of a visit.
std::span<const std::string_view> ProgramNotes();
std::span<const std::string_view> VisitNotes();
std::span<const std::string_view> VisitResults();

}  // namespace demo
