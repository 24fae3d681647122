// What can be reached by keys alone and is told by its name, on every form.

#include <set>

#include "module/Office.h"
#include "screens/AccessKeys.h"
#include "screens/AccessibleNames.h"
#include "screens/TabOrder.h"
#include "text/Fold.h"

namespace module {
namespace {

class KeysTest : public OfficeTest {
 protected:
  KeysTest() {
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

TEST_F(KeysTest, EveryControlThatTakesKeys_IsInItsFormsTabOrderOnce) {
  for (const controls::Form* form : Forms()) {
    const std::vector<controls::Control*> order = screens::TabSequence(*form);
    for (controls::Control* control : support::AllControls(*form)) {
      if (!screens::IsKeyboardKind(*control) || !control->Visible()) continue;
      EXPECT_EQ(std::ranges::count(order, control), 1) << form->Name() << "." << control->Name();
    }
  }
}

TEST_F(KeysTest, EveryFieldAndButton_HasANameThatNoOtherOfItsFormHas) {
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
TEST_F(KeysTest, EveryCaptionedControlThatTakesKeys_HasALetterOfItsCaptionToItself) {
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

}  // namespace
}  // namespace module
