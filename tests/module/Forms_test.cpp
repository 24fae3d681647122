// What every form keeps: its controls stand inside it and apart from each other at any size, and
// each can be reached by keys alone and is told by its name.

#include <array>
#include <map>
#include <set>
#include <tuple>

#include "module/Office.h"
#include "screens/AccessKeys.h"
#include "screens/AccessibleNames.h"
#include "screens/TabOrder.h"
#include "text/Fold.h"

namespace module {
namespace {

class FormsTest : public OfficeTest {
 protected:
  FormsTest() {
    Control().ClearShow();
    Editor().cmdNew.Click();  // the mode in which most can be typed
  }
  std::vector<controls::Form*> Forms() {
    editor::FormMain& editor = Editor();
    return {&editor, &editor.BatchForm(), &editor.SearchForm(), &editor.PrintForm(),
            &editor.SearchForm().TextFileForm()};
  }

  /// Fields and buttons, those that only show included.
  static std::vector<controls::Control*> Stops(const controls::Form& form) {
    std::vector<controls::Control*> stops = support::AllControls(form);
    std::erase_if(stops, [](const controls::Control* control) {
      return !control->Visible() || dynamic_cast<const controls::Label*>(control) != nullptr ||
             dynamic_cast<const controls::Frame*>(control) != nullptr;
    });
    return stops;
  }
};

TEST_F(FormsTest, EveryControlThatTakesKeys_IsInItsFormsTabOrderOnce) {
  for (const controls::Form* form : Forms()) {
    const std::vector<controls::Control*> order = screens::TabSequence(*form);
    for (controls::Control* control : support::AllControls(*form)) {
      if (!screens::IsKeyboardKind(*control) || !control->Visible()) continue;
      EXPECT_EQ(std::ranges::count(order, control), 1) << form->Name() << "." << control->Name();
    }
  }
}

TEST_F(FormsTest, EveryFieldAndButton_HasANameThatNoOtherOfItsFormHas) {
  for (const controls::Form* form : Forms()) {
    std::set<std::string> names;
    for (const controls::Control* control : Stops(*form)) {
      const std::string name = screens::AccessibleName(*control);
      EXPECT_THAT(name, testing::Not(testing::AnyOf("", testing::EndsWith(":"))))
          << form->Name() << "." << control->Name();
      EXPECT_TRUE(names.insert(name).second) << form->Name() << " has two: " << name;
    }
  }
  EXPECT_EQ(screens::AccessibleName(Editor().BatchForm().flxPath.cmdSelectNone),
            "لغو انتخاب همه، مسيرها");
}

// Small signs under a list and what has no label are left out.
TEST_F(FormsTest, EveryCaptionedControlThatTakesKeys_HasALetterOfItsCaptionToItself) {
  for (const controls::Form* form : Forms()) {
    std::set<std::string> letters;
    for (const controls::Control* control : support::AllControls(*form)) {
      const std::string& letter = control->AccessKey();
      std::string caption;
      if (const auto* label = dynamic_cast<const controls::Label*>(control)) {
        const bool reached = label->Named() != nullptr && label->Named()->Enabled();
        if (reached) caption = label->Caption();
      } else if (control->ToolTip().empty()) {
        if (const auto* box = dynamic_cast<const controls::CheckBox*>(control)) {
          caption = box->Caption();
        } else if (const auto* button = dynamic_cast<const controls::Button*>(control)) {
          caption = button->Caption();
        }
      }
      EXPECT_EQ(caption.empty(), letter.empty()) << form->Name() << "." << control->Name();
      if (letter.empty()) continue;
      EXPECT_TRUE(screens::AccessKeySpan(caption, letter)) << caption << " without " << letter;
      EXPECT_TRUE(letters.insert(text::FoldForLookup(letter)).second)
          << form->Name() << " has two: " << letter;
    }
  }
}

/// From the edges of a container to the nearest of its controls; an overlap fails the test.
std::array<double, 4> Margins(const controls::Container& on, double width, double height,
                              const std::string& where) {
  std::array<double, 4> margins{width, height, width, height};
  std::vector<const controls::Control*> before;
  for (const controls::Control* each : on.Controls()) {
    if (!each->Visible()) continue;
    const double right = each->Left() + each->Width();
    const double bottom = each->Top() + each->Height();
    for (const controls::Control* other : before) {
      EXPECT_TRUE(right <= other->Left() + 0.01 || bottom <= other->Top() + 0.01 ||
                  each->Left() + 0.01 >= other->Left() + other->Width() ||
                  each->Top() + 0.01 >= other->Top() + other->Height())
          << each->Name() << " stands on " << other->Name() << where;
    }
    before.push_back(each);
    const std::array<double, 4> own{each->Left(), each->Top(), width - right, height - bottom};
    for (std::size_t i = 0; i < own.size(); ++i) margins[i] = std::min(margins[i], own[i]);
  }
  return margins;
}

TEST_F(FormsTest, EveryForm_AtAnySize_KeepsItsControlsApartAndItsMarginsAsTheyAre) {
  for (controls::Form* form : Forms()) {
    const double width = form->Width();
    const double height = form->Height();
    std::map<const controls::Container*, std::array<double, 4>> designed;
    const bool sizable = form->BorderStyle() == controls::Form::Border::kSizable;
    for (const auto& [w, h] : {std::pair(width, height),
                               {width + 7000, height + 5000},
                               {form->MinWidth(), form->MinHeight()},
                               {width, height}}) {
      if (!sizable && w != width) continue;
      form->Resize(w, h);
      std::vector<std::tuple<const controls::Container*, double, double>> all{{form, w, h}};
      for (const controls::Control* control : support::AllControls(*form)) {
        const auto* frame = dynamic_cast<const controls::Frame*>(control);
        if (frame != nullptr) all.emplace_back(frame, frame->Width(), frame->Height());
      }
      for (const auto& [on, onWidth, onHeight] : all) {
        const std::string where = " of " + form->Name() + " at " + std::to_string(w);
        const auto margins = Margins(*on, onWidth, onHeight, where);
        const auto& as = designed.try_emplace(on, margins).first->second;
        for (std::size_t i = 0; i < as.size(); ++i) {
          EXPECT_NEAR(margins[i], as[i], 30) << "edge " << i << where;
          EXPECT_GE(margins[i], 0) << "edge " << i << where;
        }
      }
    }
  }
}

}  // namespace
}  // namespace module
