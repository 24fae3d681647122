#include <sstream>

#include "structure/IncludeRules.h"

namespace structure {
namespace {

LayerRule Rule(const std::string& layer, const std::string& mayInclude, bool anyLibrary = false) {
  std::istringstream words(mayInclude);
  LayerRule rule{layer, {}, anyLibrary};
  for (std::string word; words >> word;) rule.mayInclude.insert(word);
  return rule;
}

}  // namespace

const std::vector<LayerRule>& ProjectRules() {
  // Adapters see the module's plain side, never each other, but for server: what the ways to a
  // server share.
  static const std::string plain = "text calendar platform controls host ";
  static const std::string forms = plain + "tools batch search editor ";
  static const std::vector<LayerRule> rules{
      Rule("text", ""),
      Rule("calendar", "text"),
      Rule("platform", ""),
      Rule("controls", "text calendar platform"),
      Rule("report", "text calendar platform controls"),
      Rule("screens", "text calendar platform controls report"),
      Rule("host", "text calendar platform controls"),
      Rule("tools", plain),
      Rule("batch", plain + "tools"),
      Rule("search", plain + "tools"),
      Rule("editor", plain + "tools batch search"),
      Rule("module", forms),
      Rule("adapters/server", "text platform", true),
      Rule("adapters/qt", plain + "screens report", true),
      Rule("adapters/windows", plain + "screens report adapters/server", true),
      Rule("adapters/odbc", plain + "adapters/server", true),
      Rule("adapters/*", plain, true),
      // Makes its database through an adapter, and is told nothing of the module.
      Rule("demo", "text calendar platform adapters/*", true),
      // A user's day, told without a screen.
      Rule("apps/tour", "text screens", true),
      // What a host's command line may say of a connection, and whom it tells of a user.
      Rule("apps/connection", "platform host", true),
      // What every program says of itself.
      Rule("apps/version", "", true),
      Rule("apps/about", "text controls screens apps/version", true),
      // Composition roots: the only ones that see both the module and the adapters.
      Rule("apps/activex", plain + "screens report module adapters/*", true),
      // The trial container takes the control's databases, nothing else of it.
      Rule("apps/*",
           forms + "screens report module adapters/* demo apps/about apps/connection apps/tour "
                   "apps/version apps/activex",
           true),
  };
  return rules;
}

}  // namespace structure
