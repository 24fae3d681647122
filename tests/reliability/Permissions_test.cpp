// Every action that has a right, with it and without it, on a planner's day.

#include <algorithm>

#include "module/OfficeDay.h"

namespace module {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kRefusal = "message: خطا | شما به انجام اين عمليات مجاز نيستيد.";

/// An action, the right that it asks for, and what the user is told without it.
constexpr struct Right {
  std::string_view action;
  std::int32_t permission;
  std::string_view refusal;
} kRights[] = {
    {"open", 111, "message: خطا | شما مجاز به انجام اين عمليات نيستيد. نقش ”111“"},
    {"view", 111, "message: خطا | شما مجاز به انجام اين عمليات نيستيد. نقش ”111“"},
    {"cmdNew", 330801, kRefusal},
    {"cmdEdit", 330802, kRefusal},
    {"cmdDelete", 330803, ""},
    {"cmdTempSave", 330805, kRefusal},
    {"cmdFinalSave", 330806, kRefusal},
    {"cmdBackToTemp", 330807, kRefusal},
    {"cmdViewAccountDoc", 303, "message: خطا | شما مجاز به انجام اين عمليات نيستيد."},
};
/// These write and ask for no right but the one to open the editor.
constexpr std::string_view kWriteWithoutRight[] = {"cmdAddBatch", "cmdDeleteSelected",
                                                   "other modules"};

bool AsksForARight(const std::string& sent) {
  return sent.starts_with("spZomirHasPermission");
}

std::string Asking(std::int32_t permission) {
  return "spZomirHasPermission 1 " + std::to_string(permission);
}

TEST(Permissions, EveryAction_WithItsRight_AsksForItFirstAndForNoOther) {
  OfficeDay day;
  day.Play();
  std::size_t acted = 0;
  for (const OfficeDay::Action& action : day.actions) {
    std::vector<std::string> asked;
    std::ranges::copy_if(action.sent, std::back_inserter(asked), AsksForARight);
    const auto* right = std::ranges::find(kRights, action.name, &Right::action);
    if (right != std::end(kRights)) {
      ++acted;
      ASSERT_THAT(asked, ElementsAre(Asking(right->permission))) << action.name;
      EXPECT_EQ(action.sent.front(), asked.front()) << action.name;
      EXPECT_THAT(action.told, IsEmpty()) << action.name;
    } else {
      EXPECT_THAT(asked, IsEmpty()) << action.name;
      EXPECT_EQ(!std::ranges::all_of(action.sent, IsSelect),
                std::ranges::count(kWriteWithoutRight, action.name) == 1)
          << action.name;
    }
  }
  EXPECT_GT(acted, std::size(kRights)) << "some of them more than once";
}

TEST(Permissions, EveryAction_WithoutItsRight_SendsNothingMoreAndSaysSo) {
  for (const Right& right : kRights) {
    SCOPED_TRACE(right.action);
    OfficeDay day({}, right.permission);
    day.Play();
    bool refused = false;
    for (const OfficeDay::Action& action : day.actions) {
      if (action.name != right.action || action.sent.empty()) continue;  // its button is disabled
      refused = true;
      EXPECT_THAT(action.sent, ElementsAre(Asking(right.permission)));
      EXPECT_EQ(action.told, std::vector<std::string>(right.refusal.empty() ? 0 : 1,
                                                      std::string(right.refusal)));
    }
    EXPECT_TRUE(refused);
  }
}

}  // namespace
}  // namespace module
