#pragma once

#include <string>

namespace desktop {

/// A line of the standard input. On a terminal `prompt` asks for it and what is typed is not shown;
/// whatever ends or stops the program meanwhile (Ctrl+C, Ctrl+Z), the terminal shows again what is
/// typed next. Empty at the end of the input.
std::string ReadHiddenLine(const char* prompt);

}  // namespace desktop
