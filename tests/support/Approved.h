#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <string>

#include "support/TestFolder.h"

namespace support {

/// A long text must be what stands in an approved file. What came instead is left in the folder for
/// passing files, or with DISTPROMOTER_APPROVE=1 in the approved one, to be looked at.
inline void ExpectApproved(const std::string& file, const std::string& text) {
  const std::string approved = Content(file);
  EXPECT_FALSE(approved.empty()) << "no approved file " << file;
  if (approved == text) return;
  if (std::getenv("DISTPROMOTER_APPROVE") != nullptr) {
    std::ofstream(file, std::ios::binary) << text;
    return;
  }
  const auto differs = std::ranges::mismatch(approved, text).in2;
  std::string came = file + ".came";
  for (const char part : {'/', ':'}) std::ranges::replace(came, part, '-');
  came = testing::TempDir() + came;
  std::ofstream(came, std::ios::binary) << text;
  ADD_FAILURE() << "differs from line " << 1 + std::count(text.begin(), differs, '\n') << ": diff "
                << file << " " << came;
}

/// The same of what comes of many texts: each stands in the file behind "== what it shows", and
/// behind "--" its outcome.
inline void ExpectOutcomes(const std::string& file,
                           const std::function<std::string(const std::string& text)>& outcomeOf) {
  std::istringstream approved(Content(file));
  std::string came;
  std::string text;
  bool given = false;
  for (std::string line; std::getline(approved, line);) {
    if (line.starts_with("== ")) {
      came += line + "\n";
      text.clear();
      given = true;
    } else if (given && line == "--") {
      came += text + "--\n" + outcomeOf(text) + "\n";
      given = false;
    } else if (given) {
      text += line + "\n";
    }
  }
  ExpectApproved(file, came);
}

}  // namespace support
