#include "tools/FormPrint.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/ResumeNext.h"
#include "support/ScriptedPlatform.h"

namespace {

using support::RowSetOf;
using testing::ElementsAre;

// Template 31 has a path, 32 has none, 33 is gone.
class FormPrintTest : public testing::Test {
 protected:
  FormPrintTest() {
    form.Load();
    for (const std::int32_t id : {31, 32, 33}) {
      form.cmbReport().AddItem(std::to_string(id));
      form.cmbReport().SetItemData(form.cmbReport().NewIndex(), id);
    }
    const auto row = [this](const std::string& id, std::vector<std::vector<support::Cell>> path) {
      outside.database.When(support::Exact("Select * From tblZomirReportTemplate Where ID = " + id))
          .Gives(RowSetOf({"FilePath"}, path));
    };
    row("31", {{"a.html"}});
    row("32", {{std::nullopt}});
    row("33", {});
  }

  support::ScriptedPlatform outside;
  host::modMain module{outside.Services()};
  tools::FormPrint form{module};
};

TEST_F(FormPrintTest, Confirm_ByEitherButton_KeepsThePathBeyondTheUnload) {
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
}

TEST_F(FormPrintTest, Confirm_WithoutAChoice_SaysSoAndStays) {
  outside.screen.OnModal([&](controls::Form& shown) {
    form.cmbReport().Clear();
    for (controls::Button* button : {&form.cmdOk, &form.cmdPrint}) {
      outside.events.clear();
      button->Click();
      EXPECT_THAT(outside.events,
                  ElementsAre("focus cmbReport",
                              "message: هشدار | قالب گزارش مشخص نيست، آنرا مشخص سازيد."));
      EXPECT_TRUE(shown.Visible());
    }
  });
  form.Show(controls::Modality::kModal);
}

}  // namespace
