#include <iterator>
#include <set>
#include <sstream>
#include <string>

#include "structure/IncludeRules.h"

namespace structure {
namespace {

// Left out on purpose: whatever reads the clock, files, locale or environment by itself (ctime,
// filesystem, fstream, iostream, locale, regex, cstdlib), and threads.
constexpr const char* kStandardHeaders =
    "algorithm array bit bitset cassert cctype charconv chrono climits cmath "
    "compare concepts cstddef cstdint cstring deque exception functional "
    "initializer_list iterator limits list map memory memory_resource new "
    "numeric optional queue ranges ratio set span stack stdexcept string "
    "string_view system_error tuple type_traits typeinfo unordered_map "
    "unordered_set utility variant vector";

std::set<std::string> Words(const std::string& text) {
  std::istringstream words(text);
  return {std::istream_iterator<std::string>(words), {}};
}

}  // namespace

const Rules& ProjectRules() {
  using enum LayerRule::Outside;
  // Adapters see the module's plain side, never each other; report is what screen adapters share.
  static const std::string plain = "text calendar platform controls host ";
  static const Rules rules{
      .layers =
          {
              {"text", {}, kStandardOnly},
              {"calendar", {"text"}, kStandardOnly},
              {"platform", {}, kStandardOnly},
              {"controls", Words("text calendar platform"), kStandardOnly},
              {"host", Words("text calendar platform controls"), kStandardOnly},
              {"tools", Words(plain), kStandardOnly},
              {"batch", Words(plain + "tools"), kStandardOnly},
              {"search", Words(plain + "tools"), kStandardOnly},
              {"editor", Words(plain + "tools batch search"), kStandardOnly},
              {"module", Words(plain + "tools batch search editor"), kStandardOnly},
              {"adapters/report", Words(plain), kAny},
              {"adapters/qt", Words(plain + "adapters/report"), kAny},
              {"adapters/windows", Words(plain + "adapters/report"), kAny},
              {"adapters/*", Words(plain), kAny},
              // Makes its database through an adapter, and is told nothing of the module.
              {"demo", Words("text calendar platform adapters/*"), kAny},
              // A user's day, told without a screen.
              {"apps/tour", {}, kAny},
              // Composition roots: the only ones that see both the module and the adapters.
              {"apps/activex", Words(plain + "module adapters/*"), kAny},
              // The trial container takes the control's databases, nothing else of it.
              {"apps/*",
               Words(plain +
                     "tools batch search editor module adapters/* demo apps/tour apps/activex"),
               kAny},
          },
      .standardHeaders = Words(kStandardHeaders),
      .exceptions = {},
  };
  return rules;
}

}  // namespace structure
