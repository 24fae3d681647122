#pragma once

#include <string>
#include <string_view>

#include "controls/Screen.h"

namespace about {

/// As menus name it.
inline constexpr std::string_view kTitle = "درباره برنامه";

/// UTF-8.
struct Facts {
  std::string_view program;  // as its file is called
  std::string toolkit;       // with its version; empty for none besides the system's
  std::string office;        // the full path of its file, or a server's connection string
  std::string notices;       // the file of the libraries' licences; empty where there is none
};

/// Tells them together with the version, in a message that can be copied, and waits. No password is
/// told.
void Show(controls::Screen& screen, const Facts& facts);

}  // namespace about
