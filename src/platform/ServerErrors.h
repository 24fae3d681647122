#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

/// What the user is told of an error of the server, by its number, before the server's own words:
/// Persian; empty for a number of which nothing friendlier is known. The embedded database, whose
/// numbers are the server's, tells the same. `database` is the database's name, for an engine that
/// knows it.
std::string ServerSentence(std::int32_t number, std::string_view database = {});

/// `words` as a Persian text holds what runs from left to right: a path, a name, a server's words.
/// Each line is set apart by itself (U+202A ... U+202C), since a line's end ends the setting.
std::string LeftToRight(std::string_view words);

/// An error's description: the sentence for the user, then the words of whoever failed on lines of
/// their own. Without a sentence the words alone.
std::string Described(std::string_view sentence, std::string_view words);

}  // namespace platform
