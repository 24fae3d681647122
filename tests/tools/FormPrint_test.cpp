#include "tools/FormPrint.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/ResumeNext.h"
#include "support/ScriptedPlatform.h"

namespace {

// Template 31 has a path, 32 has none, 33 is gone.
TEST(FormPrint, Confirm_ByEitherButton_KeepsThePathBeyondTheUnloadOrSaysWhatIsMissing) {
  support::ScriptedPlatform outside;
  host::modMain module(outside.Services());
  tools::FormPrint form(module);
  const std::vector<std::vector<support::Cell>> paths[] = {{{"a.html"}}, {{std::nullopt}}, {}};
  form.Load();
  for (const int item : {0, 1, 2}) {
    const std::string id = std::to_string(31 + item);
    form.cmbReport().AddItem(id);
    form.cmbReport().SetItemData(item, 31 + item);
    outside.database.When(support::Exact("Select * From tblZomirReportTemplate Where ID = " + id))
        .Gives(support::RowSetOf({"FilePath"}, paths[item]));
  }
  const struct {
    controls::Button& button;
    int item;
    std::string path;
    std::int32_t error;
  } cases[] = {{form.cmdPrint, 0, "a.html", 0},
               {form.cmdOk, 1, "", 0},
               {form.cmdOk, 2, "", platform::kNoCurrentRecord},
               {form.cmdOk, 0, "a.html", 0}};
  for (const auto& c : cases) {
    form.Load();
    form.cmbReport().SetListIndex(c.item);
    EXPECT_EQ(platform::ResumeNext([&] { c.button.Click(); }), c.error);
    EXPECT_EQ(form.Loaded(), c.error != 0);
    EXPECT_EQ(form.TemplateFilePath(), c.path);
  }
  outside.screen.OnModal([&](controls::Form& shown) {
    form.cmbReport().Clear();
    for (controls::Button* button : {&form.cmdOk, &form.cmdPrint}) {
      outside.events.clear();
      button->Click();
      EXPECT_THAT(outside.events,
                  testing::ElementsAre("focus cmbReport",
                                       "message: هشدار | قالب گزارش مشخص نيست، آنرا مشخص سازيد."));
      EXPECT_TRUE(shown.Visible());
    }
  });
  form.Show(controls::Modality::kModal);
}

}  // namespace
