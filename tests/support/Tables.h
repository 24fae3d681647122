#pragma once

#include <map>
#include <vector>

#include "support/Approved.h"
#include "text/Text.h"

namespace support {

/// "\x06" for the byte, "\400(9)" for 400 times what stands in the brackets.
inline std::string Unescaped(std::string text) {
  for (std::size_t at = 0; (at = text.find('\\', at)) != text.npos; ++at) {
    if (text[at + 1] == 'x') {
      text.replace(at, 4, 1, static_cast<char>(std::stoi(text.substr(at + 2, 2), nullptr, 16)));
    } else {
      std::size_t digits = 0;
      const int count = std::stoi(text.substr(at + 1), &digits);
      text.replace(at, digits + 4, static_cast<std::size_t>(count), text[at + digits + 2]);
    }
  }
  return text;
}

/// "a | b" in parts.
inline std::vector<std::string> Parts(const std::string& text) {
  std::vector<std::string> parts;
  for (std::size_t at = 0, end = 0; end < text.size(); at = end + 3) {
    end = std::min(text.find(" | ", at), text.size());
    parts.push_back(text.substr(at, end - at));
  }
  parts.resize(std::max<std::size_t>(parts.size(), 1));
  return parts;
}

using Function = std::function<std::string(const std::vector<std::string>& parts)>;

/// A file of what goes into functions and what comes out of them:
///
///   == NAME            the function that the lines below go through
///   INPUT => OUTPUT    with "\x06" as above; " | " parts an input
///
/// and lines of the reader's, which begin with "#", or are empty.
inline void ExpectTable(const std::string& file, const std::map<std::string, Function>& functions) {
  std::istringstream approved(Content(file));
  std::string came;
  Function function;
  for (std::string line; std::getline(approved, line);) {
    const std::size_t arrow = line.find("=>");
    if (line.starts_with("== ")) function = functions.at(line.substr(3));
    if (arrow != line.npos && !line.starts_with("#")) {
      auto parts = Parts(Unescaped(line.substr(0, arrow == 0 ? 0 : arrow - 1)));
      std::string output = function(parts);
      output = text::Replace(text::Replace(output, "\t", "\\x09"), "\n", "\\x0A");
      line = line.substr(0, arrow) + "=>" + (output.empty() ? "" : " " + output);
    }
    came += line + "\n";
  }
  ExpectApproved(file, came);
}

}  // namespace support
