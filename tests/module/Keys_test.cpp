// What can be reached by keys alone, on every form.

#include "screens/TabOrder.h"
#include "module/Office.h"

namespace module {
namespace {

class KeysTest : public OfficeTest {
 protected:
  std::vector<controls::Form*> Forms() {
    editor::FormMain& editor = Editor();
    return {&editor, &editor.BatchForm(), &editor.SearchForm(), &editor.PrintForm(),
            &editor.SearchForm().TextFileForm()};
  }
};

TEST_F(KeysTest, EveryControlThatTakesKeys_IsInItsFormsTabOrderOnce) {
  for (const controls::Form* form : Forms()) {
    const std::vector<controls::Control*> order = screens::TabSequence(*form);
    for (controls::Control* control : support::AllControls(*form)) {
      if (!screens::TakesKeyboard(*control)) continue;
      if (const editor::EnabledIn* row = editor::FindEnabledIn(control->Name());
          row != nullptr && form == &Editor() && !row->edit && !row->view) {
        continue;  // shows, and never takes keys
      }
      EXPECT_EQ(std::ranges::count(order, control), 1) << form->Name() << "." << control->Name();
    }
  }
}

}  // namespace
}  // namespace module
