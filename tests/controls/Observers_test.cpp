#include "controls/Control.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using controls::Aspect;
using controls::Change;
using controls::Subscription;

TEST(Observers, ListenersThatComeAndGoInsideACall_HearFromThenOn) {
  controls::Observers model;
  std::string heard;
  Subscription first, third, joined;
  first = model.Subscribe([&](const Change&) {
    heard += '1';
    first.Reset();
    third.Reset();
    joined = model.Subscribe([&](const Change&) { heard += '4'; });
  });
  const Subscription second = model.Subscribe([&](const Change&) { heard += '2'; });
  third = model.Subscribe([&](const Change&) { heard += '3'; });
  model.Notify({Aspect::kText});
  EXPECT_EQ(heard, "12");
  model.Notify({Aspect::kText});
  EXPECT_EQ(heard, "1224");
}

TEST(Observers, SubscriptionAndModel_MayEndInEitherOrder) {
  auto model = std::make_unique<controls::Observers>();
  const auto kept = std::make_shared<int>(7);
  Subscription outliving = model->Subscribe([kept](const Change&) {});
  Subscription ending = model->Subscribe([&](const Change&) { model.reset(); });
  model->Notify({Aspect::kText});
  EXPECT_EQ(model, nullptr);
  outliving = std::move(ending);
  EXPECT_EQ(kept.use_count(), 1);
}

}  // namespace
