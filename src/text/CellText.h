#pragma once

#include <cstddef>
#include <span>
#include <string>

/// The texts in which every engine gives a database cell (platform/RowSet.h), so that a result
/// reads the same whichever driver brought it.
namespace text {

/// yyyy-mm-dd.
void AppendDay(std::string& out, int year, unsigned month, unsigned day);
/// " hh:mm:ss" behind a day; nothing at midnight.
void AppendTimeOfDay(std::string& out, unsigned hour, unsigned minute, unsigned second);
/// Two capital hexadecimal digits a byte; a binary cell is "0x" and these.
void AppendHex(std::string& out, std::span<const std::byte> bytes);
/// A four-byte number has seven digits to show; those of its eight-byte image are noise.
std::string RealText(float value);

}  // namespace text
