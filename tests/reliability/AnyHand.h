#pragma once

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "controls/Controls.h"
#include "controls/DateBox.h"
#include "controls/FlexGrid.h"
#include "controls/Form.h"
#include "controls/PageView.h"
#include "controls/Selector.h"

namespace reliability {

/// The same numbers on every machine, which the standard's distributions do not promise.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : random_(seed) {}
  int Upto(int most) {
    return static_cast<int>(random_() % (static_cast<std::uint64_t>(most) + 1));
  }
  bool OneIn(int n) { return Upto(n - 1) == 0; }
  template <typename All>
  const auto& Of(const All& all) {
    return all[random_() % all.size()];
  }

 private:
  std::mt19937_64 random_;
};

// clang-format off
constexpr std::array<std::string_view, 22> kTexts{
    "", "", " ", "1", "2", "3", "برنامه تازه", "ي", "it's new", "''", "'", "x', Notes='y", "%", "[",
    "_[^a]", "a\tb", "two\r\nlines", "99999999999999999999", "-1", "1e400", "&HFFFF", "1404/09/01"};
constexpr std::array<std::string_view, 14> kDates{
    "", "1404/09/01", "1404/09/02", "1404/09/05", "1404/9/3", "۱۴۰۴/۰۹/۰۴", "14040910", "04-09-07",
    "1404/12/30", "1403/12/30", "1404/13/01", "yesterday", "1404/08/30", "1404/10/01"};
// clang-format on

/// Does at random what a user can do with a control of each kind, one action a visit.
class AnyHand : public controls::ControlVisitor {
 public:
  using Action = std::function<void()>;
  /// `act` is given each action with its name, to do it.
  AnyHand(Dice& dice, std::chrono::sys_days today,
          std::function<void(const std::string&, const Action&)> act)
      : dice_(dice), today_(today), act_(std::move(act)) {}

  void Visit(controls::Label&) override {}
  void Visit(controls::ProgressBar&) override {}
  void Visit(controls::Frame&) override {}
  void Visit(controls::PageView&) override {}  // on no form of the module
  void Visit(controls::TextBox& box) override {
    const std::string text(dice_.Of(kTexts));
    if (box.Enabled()) Act(box, text, [&] { box.SetText(text); });
  }
  void Visit(controls::Button& button) override {
    Act(button, "", [&] { button.Click(); });
  }
  void Visit(controls::CheckBox& box) override {
    Act(box, "", [&] { box.Click(); });
  }
  void Visit(controls::ComboBox& box) override {
    if (box.Enabled()) Act(box, "", [&] { box.SetListIndex(dice_.Upto(box.ListCount()) - 1); });
  }
  void Visit(controls::DateBox& box) override {
    const std::string text(dice_.Of(kDates));
    Act(box, text, [&] {
      if (dice_.OneIn(3)) {
        box.PressKey(static_cast<controls::DateBox::Key>(dice_.Upto(3)), today_);
      } else {
        box.EnterTyped(text);
      }
    });
  }
  void Visit(controls::Selector& selector) override {
    if (!selector.Enabled()) return;
    Act(selector, "", [&] {
      if (dice_.OneIn(3)) return selector.ChooseNone();
      selector.LoadList();
      const auto narrowed = selector.Narrow(dice_.OneIn(4) ? dice_.Of(kTexts) : "");
      if (narrowed.empty()) return;
      selector.Choose(narrowed[static_cast<std::size_t>(
          dice_.Upto(std::min(static_cast<int>(narrowed.size()), 8) - 1))]);
      EXPECT_FALSE(selector.DisplayText().empty());
    });
  }
  void Visit(controls::FlexGrid& grid) override {
    const int row = dice_.OneIn(5) ? 0 : dice_.Upto(std::min(grid.Rows(), 40));
    const int col = dice_.Upto(grid.Cols());
    const int kind = dice_.Upto(9);
    Act(grid, std::to_string(kind) + " " + std::to_string(row) + "," + std::to_string(col), [&] {
      if (kind == 9) {
        grid.PressKey(static_cast<controls::FlexGrid::Key>(dice_.Upto(9)), dice_.OneIn(2), 10);
        return;
      }
      grid.MouseDown(row, col, dice_.OneIn(8) ? 2 : 1, dice_.OneIn(4) ? 1 : 0);
      if (kind == 8) return grid.MouseDrag(dice_.Upto(grid.Rows()), dice_.Upto(grid.Cols()));
      grid.Click();
      if (kind == 7) grid.DblClick();
      if (kind == 6 && col < grid.Cols()) grid.DragColWidth(col, dice_.Upto(3000));
    });
  }

 private:
  void Act(const controls::Control& control, const std::string& how, const Action& act) {
    act_(control.ParentForm().Name() + "." + control.Name() + " " + how, act);
  }
  Dice& dice_;
  std::chrono::sys_days today_;
  std::function<void(const std::string&, const Action&)> act_;
};

}  // namespace reliability
