#include "tools/FormSendToTextFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "support/ScriptedPlatform.h"

namespace {

using support::Answer;
using support::Message;
using testing::ElementsAre;
using tools::FormSendToTextFile;

class FormSendToTextFileTest : public testing::Test {
 protected:
  struct Result {
    bool confirmed = false;
    std::string fileName;
    std::string delimiter;
  };
  Result Ask(const std::function<void(FormSendToTextFile&)>& user) {
    outside.screen.OnModalForm<FormSendToTextFile>(user);
    Result r;
    std::int32_t reportId = -1;
    bool newLine = false;
    bool headers = false;
    bool plainMoney = false;
    r.confirmed =
        form.getTextFileName(reportId, r.fileName, r.delimiter, newLine, headers, plainMoney);
    EXPECT_FALSE(form.Loaded()) << "unloaded after each use";
    return r;
  }
  void Choose(const std::string& path) {
    outside.fileDialog.chosen = path;
    form.cmdSave.Click();
  }

  support::ScriptedPlatform outside;
  host::modMain module{outside.Services()};
  FormSendToTextFile form{module};
};

TEST_F(FormSendToTextFileTest, Confirmed_GivesTheDelimiter) {
  const struct {
    std::string typed;
    std::string delimiter;
  } cases[] = {{"^t", "\t"}, {" ^T  ", "\t"},      {" ; ", " ; "},
               {"", ""},     {"^t=Tab", "^t=Tab"}, {"^tt", "^tt"}};
  for (const auto& c : cases) {
    const Result r = Ask([&](FormSendToTextFile& f) {
      f.txtDelimiter.SetText(c.typed);
      Choose("a.txt");
      f.cmdOk.Click();
    });
    EXPECT_TRUE(r.confirmed);
    EXPECT_EQ(r.delimiter, c.delimiter);
  }
}

TEST_F(FormSendToTextFileTest, Confirm_WithoutAFile_SaysSoAndStays) {
  const Result r = Ask([this](FormSendToTextFile& f) {
    f.cmdSave.Click();  // the dialog is cancelled: nothing chosen
    f.cmdOk.Click();
    EXPECT_TRUE(f.Visible());
    Choose("a.txt");
    f.CloseBox();
  });
  EXPECT_FALSE(r.confirmed);
  EXPECT_THAT(outside.components.messages,
              ElementsAre(Message{"خطا", "لطفاً با دكمه ذخيره در، نام فايل را مشخص كنيد.", 0}));
  EXPECT_THAT(outside.fileDialog.shown,
              testing::Each(std::pair<std::string, std::string>{"", "فايل متني"}));
}

TEST_F(FormSendToTextFileTest, ExistingFile_IsAskedAbout) {
  outside.fileSystem.files = {{"old.txt", ""}};
  const struct {
    Answer answer;
    std::string shown;
  } cases[] = {{Answer::kNo, "first.txt"}, {Answer::kYes, "old.txt"}, {Answer::kClosed, "old.txt"}};
  for (const auto& c : cases) {
    outside.components.messages.clear();
    outside.fileDialog.shown.clear();
    outside.components.WillAnswer({c.answer});
    const Result r = Ask([&](FormSendToTextFile& f) {
      Choose("first.txt");
      Choose("old.txt");
      EXPECT_EQ(f.txtSaveFileName.Text(), c.shown);
      f.cmdOk.Click();
    });
    EXPECT_TRUE(r.confirmed);
    EXPECT_EQ(r.fileName, "old.txt") << "the declined path too stays the stored one";
    EXPECT_THAT(outside.components.messages,
                ElementsAre(Message{"هشدار", "فايل مورد نظر تكراري است، آيا بازنويسي شود؟", 1}));
    EXPECT_EQ(outside.fileDialog.shown.back().first, "first.txt") << "offers the current name";
  }
}

}  // namespace
