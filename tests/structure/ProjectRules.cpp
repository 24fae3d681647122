#include <algorithm>
#include <set>
#include <string>
#include <string_view>

#include "structure/IncludeRules.h"

namespace structure {
namespace {

// Left out on purpose: whatever reads the clock, files, locale or environment by itself (ctime,
// filesystem, fstream, iostream, locale, regex, cstdlib), and threads.
constexpr std::string_view kStandardHeaders =
    "algorithm array bit bitset cassert cctype charconv chrono climits cmath "
    "compare concepts cstddef cstdint cstring deque exception functional "
    "initializer_list iterator limits list map memory memory_resource new "
    "numeric optional queue ranges ratio set span stack stdexcept string "
    "string_view system_error tuple type_traits typeinfo unordered_map "
    "unordered_set utility variant vector";

std::set<std::string> Words(std::string_view text) {
  std::set<std::string> words;
  while (!text.empty()) {
    const auto end = std::min(text.find(' '), text.size());
    words.emplace(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return words;
}

}  // namespace

const Rules& ProjectRules() {
  using enum LayerRule::Outside;
  // Adapters see the module's plain side, never each other; report is what screen adapters share.
  static const std::set<std::string> adapterMayInclude = {"text", "calendar", "platform",
                                                          "controls", "host"};
  static const std::set<std::string> screenMayInclude = {"text",     "calendar", "platform",
                                                         "controls", "host",     "adapters/report"};
  static const Rules rules{
      .layers =
          {
              {"text", {}, kStandardOnly},
              {"calendar", {"text"}, kStandardOnly},
              {"platform", {}, kStandardOnly},
              {"controls", {"text", "calendar", "platform"}, kStandardOnly},
              {"host", {"text", "calendar", "platform", "controls"}, kStandardOnly},
              {"tools", {"text", "calendar", "platform", "controls", "host"}, kStandardOnly},
              {"batch",
               {"text", "calendar", "platform", "controls", "host", "tools"},
               kStandardOnly},
              {"search",
               {"text", "calendar", "platform", "controls", "host", "tools"},
               kStandardOnly},
              {"editor",
               {"text", "calendar", "platform", "controls", "host", "tools", "batch", "search"},
               kStandardOnly},
              {"module",
               {"text", "calendar", "platform", "controls", "host", "tools", "batch", "search",
                "editor"},
               kStandardOnly},
              {"adapters/report", adapterMayInclude, kAny},
              {"adapters/qt", screenMayInclude, kAny},
              {"adapters/windows", screenMayInclude, kAny},
              {"adapters/*", adapterMayInclude, kAny},
              // Makes its database through an adapter, and is told nothing of the module.
              {"demo", {"text", "calendar", "platform", "adapters/*"}, kAny},
              // Composition roots: the only ones that see both the module and the adapters.
              {"apps/*",
               {"text", "calendar", "platform", "controls", "host", "tools", "batch", "search",
                "editor", "module", "adapters/*", "demo"},
               kAny},
          },
      .standardHeaders = Words(kStandardHeaders),
      .exceptions = {},
  };
  return rules;
}

}  // namespace structure
