#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace batch {

/// What one batch of visits is made of.
struct BatchInsert {
  std::int32_t programId;
  std::int32_t promoterId;
  std::string_view dates;         // id list of compact date ids: 13920705,13920712
  std::string_view customerIds;   // id list
  std::string_view notesLiteral;  // null, or the text between quotes with its own quotes doubled
};

/// The statement that writes a visit for every day and customer that the promoter does not have yet
/// in the program, numbered from 1 by day and customer.
std::string BatchInsertStatement(const BatchInsert& insert);

}  // namespace batch
