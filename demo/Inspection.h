#pragma once

#include <string>
#include <vector>

namespace demo {

/// What is wrong with an office's file (UTF-8 path), a line for each finding, Persian and then
/// English: damage, rows that refer to none, tables, views and indexes that are missing or others
/// than OfficeSchema makes, visits that stand twice on a day. Of one kind the first hundred are
/// told; so is a version other than this program's. What the office has besides is its own affair.
/// Only reads. Throws RuntimeError when the file cannot be opened, is none of the suite's or made
/// by a newer program.
std::vector<std::string> InspectOffice(const std::string& path);

}  // namespace demo
