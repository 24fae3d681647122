// Planners before the module, as the files of tests/module/sessions tell them. Their day, which
// shows every form and all that is stored, is replayed by the test of the statements.

#include "module/Session.h"

namespace module {
namespace {

class Sessions : public testing::TestWithParam<const char*> {};

TEST_P(Sessions, Replayed_AreToldAsApproved) {
  Session session;
  session.Replay(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Planners, Sessions,
                         testing::Values("host", "opening", "header", "visits", "life", "document",
                                         "printing", "batch", "lists", "search", "export"),
                         [](const auto& session) { return std::string(session.param); });

}  // namespace
}  // namespace module
