#include "screens/PreviewForm.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/RuntimeError.h"
#include "report/Typewriter.h"
#include "support/ErrorNumber.h"
#include "support/FakeProgress.h"
#include "support/FakeScreen.h"

namespace screens {
namespace {

using support::NumberOf;
using testing::ElementsAre;
using testing::IsEmpty;

/// So many paragraphs, of which one cannot be read.
struct Paragraphs : report::Markup {
  explicit Paragraphs(std::size_t many) : count(many) {}
  bool Next(std::string& text, int& line) override {
    if (onNext) onNext();
    if (at == count) return false;
    if (at == broken) throw platform::RuntimeError(1205, "deadlock");
    text += "<p>" + std::to_string(at++) + "</p>";
    line = 1;
    return true;
  }
  report::MarkupPlace Where() const override { return {.node = at, .turns = {}}; }
  void GoTo(const report::MarkupPlace& place) override { at = place.node; }

  std::size_t count;
  std::size_t at = 0;
  std::size_t broken = ~std::size_t{0};
  std::function<void()> onNext;
};

class PreviewFormTest : public testing::Test {
 protected:
  void Open(std::size_t paragraphs) {
    auto body = std::make_unique<Paragraphs>(paragraphs);
    markup = body.get();
    report::FilledReport filled;
    filled.title = "فروش";
    filled.body = std::move(body);
    pages = std::make_unique<report::Pages>(std::move(filled), letters);
    form = std::make_unique<PreviewForm>(screen, progress, *pages, outlets);
  }
  std::string Position() const { return form->lblPosition.Caption(); }
  std::string CountOf() const { return std::to_string(pages->Count()); }

  support::Events events;
  support::FakeScreen screen{events};
  support::FakeProgress progress;
  report::Typewriter letters;
  std::vector<int> put;
  PageOutlets outlets{.print = [this](report::Pages& all) { put.push_back(all.Count()); },
                      .savePdf = nullptr};
  Paragraphs* markup = nullptr;
  std::unique_ptr<report::Pages> pages;
  std::unique_ptr<PreviewForm> form;
};

TEST_F(PreviewFormTest, Opening_ShowsTheFirstPageAndCountsTheRestInPieces) {
  Open(20'000);
  EXPECT_EQ(form->Caption(), "پيش‌نمايش چاپ - فروش");
  EXPECT_FALSE(form->cmdPdf.Visible()) << "nothing writes such files";
  EXPECT_EQ(Position(), "صفحه 1 از ...");
  EXPECT_LT(markup->at, 1000U) << "not all of it is read";
  EXPECT_TRUE(form->view.sheetOf(0).has_value());
  int pieces = 0;
  int counted = form->view.Count();
  while (form->view.HasWork()) {
    form->view.Work();
    ++pieces;
    EXPECT_GT(form->view.Count(), counted - 1);
    EXPECT_LE(form->view.Count(), counted + 8);
    counted = form->view.Count();
  }
  EXPECT_GT(pieces, 10);
  EXPECT_TRUE(pages->Finished());
  EXPECT_EQ(Position(), "صفحه 1 از " + CountOf());
  form->Show(controls::Modality::kModeless);
  form->cmdLast.Click();
  EXPECT_EQ(Position(), "صفحه " + CountOf() + " از " + CountOf());
  form->cmdPrevious.Click();
  form->cmdNext.Click();
  form->cmdNext.Click();
  EXPECT_EQ(form->view.Current(), pages->Count() - 1);
  form->cmdLarger.Click();
  EXPECT_EQ(form->lblZoom.Caption(), "120٪");
  form->cmdSmaller.Click();
  EXPECT_EQ(form->lblZoom.Caption(), "100٪");
  form->cmdWhole.Click();
  EXPECT_EQ(form->view.GetFit(), controls::PageView::Fit::kSheet);
  form->cmdFirst.Click();
  EXPECT_EQ(form->view.Current(), 0);
  EXPECT_THAT(progress.begun, IsEmpty()) << "it was counted already";
}

TEST_F(PreviewFormTest, WhereFilesAreWritten_HasAButtonForIt) {
  outlets.savePdf = [this](report::Pages& all) { put.push_back(-all.Count()); };
  Open(3);
  EXPECT_TRUE(form->cmdPdf.Visible());
  form->cmdPdf.Click();
  EXPECT_THAT(put, ElementsAre(-1));
}

TEST_F(PreviewFormTest, ReadingThatLetsTheUserAct_IsNotEntered) {
  Open(20'000);
  int read = 0;
  markup->onNext = [&] {
    const std::size_t at = markup->at;
    form->view.Work();
    EXPECT_FALSE(form->view.sheetOf(0).has_value());
    form->cmdPrint.Click();
    form->view.GoToLast();
    EXPECT_EQ(markup->at, at);
    ++read;
  };
  form->view.Work();
  EXPECT_TRUE(form->view.sheetOf(0).has_value());
  form->cmdPrint.Click();
  EXPECT_GT(read, 100);
  EXPECT_THAT(put, ElementsAre(pages->Count()));
}

TEST_F(PreviewFormTest, RestThatCannotBeRead_IsToldOnceAndLeavesWhatWasReached) {
  Open(20'000);
  markup->broken = 10'000;
  int errors = 0;
  while (form->view.HasWork()) errors += NumberOf([&] { form->view.Work(); }) == 1205 ? 1 : 0;
  EXPECT_EQ(errors, 1);
  EXPECT_GT(pages->Count(), 20);
  EXPECT_EQ(Position(), "صفحه 1 از " + CountOf() + "+");
  EXPECT_EQ(NumberOf([&] { form->cmdPrint.Click(); }), 1205) << "half a report is none";
  EXPECT_EQ(progress.ended, 1);
  EXPECT_THAT(put, IsEmpty());
  EXPECT_TRUE(form->view.sheetOf(pages->Count() - 2).has_value());
  // The database is there again.
  markup->broken = ~std::size_t{0};
  form->view.GoToLast();
  EXPECT_EQ(Position(), "صفحه " + CountOf() + " از " + CountOf());
  EXPECT_TRUE(pages->Finished());
}

TEST_F(PreviewFormTest, LastPage_CanBeGivenUp) {
  Open(20'000);
  form->view.Work();
  form->view.GoTo(2);
  progress.stopAtCall = 5;
  form->view.GoToLast();
  EXPECT_THAT(progress.begun, ElementsAre(std::pair(std::string("شمردن صفحه ها"), std::size_t{0})));
  EXPECT_EQ(progress.ended, 1);
  EXPECT_EQ(Position(), "صفحه 3 از ...");
  EXPECT_TRUE(form->view.HasWork()) << "it is counted on the side again";
  form->cmdPrint.Click();
  EXPECT_THAT(put, IsEmpty());
  progress.stopAtCall = 0;
  form->view.GoToLast();
  EXPECT_EQ(form->view.Current(), pages->Count() - 1);
  EXPECT_FALSE(form->view.HasWork());
}

TEST_F(PreviewFormTest, Window_IsClosedByItsButtonOrEsc) {
  for (const bool byKey : {false, true}) {
    Open(10);
    screen.OnModal([&](controls::Form&) {
      EXPECT_EQ(form->FirstFocus(), &form->view);
      byKey ? static_cast<void>(form->PressEscape()) : form->cmdClose.Click();
      EXPECT_FALSE(form->Visible());
    });
    form->Run();
  }
}

TEST_F(PreviewFormTest, ReportForThePrinter_IsPrintedWithoutAWindow) {
  const auto show = [&] {
    report::FilledReport filled;
    filled.body = std::make_unique<Paragraphs>(500);
    ShowReport(std::move(filled), platform::ReportOutput::kPrinter, screen, progress, letters,
               outlets);
  };
  show();
  ASSERT_EQ(put.size(), 1U);
  EXPECT_GT(put[0], 3);
  progress.stopAtCall = 1;
  show();
  EXPECT_EQ(put.size(), 1U);
}

}  // namespace
}  // namespace screens
