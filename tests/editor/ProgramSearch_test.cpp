#include "EditorHarness.h"

namespace editor {
namespace {

TEST_F(EditorTest, Search_Chosen_IsShownInAnyModeAndNothingChosenChangesNothing) {
  outside.database.When(Beginning("Select ID as"))
      .Gives(RowSetOf({"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k"},
                      {{"41", "", "", "", "", "", "", "", "", "", ""}}));
  form.ClearShow();
  form.cmdNew.Click();
  form.txtDescription.SetText("typed");
  outside.screen.OnModalForm<search::FormSearch>([](search::FormSearch& f) { f.cmdExit.Click(); });
  form.cmdSearch.Click();
  EXPECT_EQ(form.CurrentMode(), Mode::kCreate);
  EXPECT_EQ(form.txtDescription.Text(), "typed");

  // An open header is dropped without a question.
  outside.screen.OnModalForm<search::FormSearch>([](search::FormSearch& f) {
    f.txtID.SetText("41");
    f.cmdSearch.Click();
    f.flxSearch.SetRow(1);
    f.flxSearch.DblClick();
  });
  form.cmdSearch.Click();
  EXPECT_EQ(form.CurrentMode(), Mode::kView);
  EXPECT_EQ(form.txtID.Text(), "41");

  // The result still stands at the next use.
  form.View(40);
  outside.screen.OnModalForm<search::FormSearch>([](search::FormSearch& f) {
    EXPECT_EQ(f.txtID.Text(), "41");
    f.flxSearch.DblClick();
  });
  form.cmdSearch.Click();
  EXPECT_EQ(form.txtID.Text(), "41");
}

}  // namespace
}  // namespace editor
