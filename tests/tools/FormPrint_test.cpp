#include "tools/FormPrint.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/ResumeNext.h"
#include "support/ScriptedPlatform.h"

namespace {

using support::Exact;
using support::RowSetOf;
using testing::ElementsAre;

class FormPrintTest : public testing::Test {
 protected:
  FormPrintTest() {
    form.Load();
    form.cmbReport().AddItem("first");
    form.cmbReport().SetItemData(0, 31);
    form.cmbReport().AddItem("second");
    form.cmbReport().SetItemData(1, 32);
    Row("31", "a.html");
    Row("32", std::nullopt);
    outside.database.When(Exact(kSelect + "33")).Gives(RowSetOf({"ID", "FilePath"}));
  }
  void Row(const std::string& id, const support::Cell& path) {
    outside.database.When(Exact(kSelect + id)).Gives(RowSetOf({"ID", "FilePath"}, {{id, path}}));
  }

  const std::string kSelect = "Select * From tblZomirReportTemplate Where ID = ";
  support::ScriptedPlatform outside;
  host::modMain module{outside.Services()};
  tools::FormPrint form{module};
};

TEST_F(FormPrintTest, Confirm_ByEitherButton_KeepsThePathBeyondTheUnload) {
  const struct {
    controls::Button& button;
    int item;
    std::string path;
  } cases[] = {{form.cmdPrint, 0, "a.html"}, {form.cmdOk, 1, ""}, {form.cmdOk, 0, "a.html"}};
  for (const auto& c : cases) {
    outside.database.ForgetCalls();
    outside.screen.OnModal([&](controls::Form&) {
      form.cmbReport().SetListIndex(c.item);
      c.button.Click();
      EXPECT_FALSE(form.Visible());
    });
    form.Show(controls::Modality::kModal);
    EXPECT_FALSE(form.Loaded());
    EXPECT_EQ(form.TemplateFilePath(), c.path);
    EXPECT_THAT(outside.database.Log(), ElementsAre(kSelect + std::to_string(31 + c.item)));
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
  EXPECT_EQ(form.TemplateFilePath(), "");
}

TEST_F(FormPrintTest, Confirm_OfATemplateWithoutARow_TravelsOutAndTheNextChoiceWorks) {
  form.cmbReport().AddItem("gone");
  form.cmbReport().SetItemData(2, 33);
  form.cmbReport().SetListIndex(2);
  EXPECT_EQ(platform::ResumeNext([this] { form.cmdOk.Click(); }), platform::kNoCurrentRecord);
  EXPECT_TRUE(form.Loaded());
  form.cmbReport().SetListIndex(0);
  form.cmdOk.Click();
  EXPECT_EQ(form.TemplateFilePath(), "a.html");
  form.SetDocumnetID(3308);
  EXPECT_EQ(form.TemplateFilePath(), "") << "a form type forgets an earlier choice";
}

}  // namespace
