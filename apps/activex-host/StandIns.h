#pragma once

#include <windows.h>

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/windows/Desktop.h"
#include "adapters/windows/ErrorGuard.h"
#include "adapters/windows/Theme.h"
#include "adapters/windows/WinScreen.h"
#include "apps/activex/Databases.h"
#include "screens/Components.h"

namespace activexhost {

/// Puts the project's own components in the place of those of the suite that are not installed, for
/// this program alone: without them the module says nothing and shows no document. Their
/// registration is volatile and goes with this object, the user's registry is left as it was.
class StandIns {
 public:
  /// Throws RuntimeError.
  StandIns();
  ~StandIns();
  StandIns(const StandIns&) = delete;
  StandIns& operator=(const StandIns&) = delete;

  /// Where the components show themselves, with words of the program's own.
  adapters::windows::WinScreen& Screen() { return screen_; }
  adapters::windows::ErrorGuard& Guard() { return guard_; }

 private:
  struct Registration {
    HKEY root;
    std::wstring key;
    DWORD cookie;
  };
  void Add(std::string_view progId, std::span<const std::string_view> members, const CLSID& id);

  adapters::windows::ErrorGuard guard_;
  adapters::windows::WinDesktop desktop_;
  adapters::windows::Theme theme_;
  adapters::windows::WinScreen screen_{guard_, desktop_, theme_};
  activex::Databases databases_;
  screens::Components components_{guard_, screen_, databases_};
  std::vector<Registration> registrations_;
};

}  // namespace activexhost
