#include "tools/FormSendToTextFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "support/ScriptedPlatform.h"

namespace {

using support::Answer;
using support::Message;
using testing::ElementsAre;
using tools::FormSendToTextFile;

class FormSendToTextFileTest : public testing::Test {
 protected:
  // What the form gives; no file name when it was not confirmed.
  std::optional<std::string> Ask(const std::function<void(FormSendToTextFile&)>& user) {
    outside.screen.OnModalForm<FormSendToTextFile>(user);
    std::int32_t reportId = -1;
    std::string fileName;
    bool tick = false;
    const bool confirmed = form.getTextFileName(reportId, fileName, delimiter, tick, tick, tick);
    EXPECT_FALSE(form.Loaded()) << "unloaded after each use";
    return confirmed ? std::optional(fileName) : std::nullopt;
  }
  void Choose(const std::string& path) {
    outside.desktop.chosen = path;
    form.cmdSave.Click();
  }

  support::ScriptedPlatform outside;
  host::modMain module{outside.Services()};
  FormSendToTextFile form{module};
  std::string delimiter;
};

TEST_F(FormSendToTextFileTest, Confirm_WithoutAFile_SaysSoAndStays) {
  EXPECT_FALSE(Ask([this](FormSendToTextFile& f) {
    f.cmdSave.Click();  // the dialog is cancelled: nothing chosen
    f.cmdOk.Click();
    EXPECT_TRUE(f.Visible());
    Choose("a.txt");
    f.CloseBox();
  }));
  EXPECT_THAT(outside.components.messages,
              ElementsAre(Message{"خطا", "لطفاً با دكمه ذخيره در، نام فايل را مشخص كنيد.", 0}));
  EXPECT_THAT(outside.desktop.shown,
              testing::Each(std::pair<std::string, std::string>{"", "فايل متني"}));
}

TEST_F(FormSendToTextFileTest, ExistingFile_IsAskedAboutAndConfirmedGivesTheDelimiter) {
  outside.fileSystem.files = {{"old.txt", ""}};
  const struct {
    Answer answer;
    std::string shown, typed, delimiter;
  } cases[] = {{Answer::kNo, "first.txt", "^t", "\t"},
               {Answer::kYes, "old.txt", "^t=Tab", "^t=Tab"},
               {Answer::kClosed, "old.txt", "^", "^"}};
  for (const auto& c : cases) {
    outside.components.messages.clear();
    outside.components.WillAnswer({c.answer});
    const auto fileName = Ask([&](FormSendToTextFile& f) {
      EXPECT_EQ(f.txtDelimiter.Text(), "^t");
      f.txtDelimiter.SetText(c.typed);
      Choose("first.txt");
      Choose("old.txt");
      EXPECT_EQ(f.txtSaveFileName.Text(), c.shown);
      f.cmdOk.Click();
    });
    EXPECT_EQ(fileName, "old.txt") << "the declined path too stays the stored one";
    EXPECT_EQ(delimiter, c.delimiter);
    EXPECT_THAT(outside.components.messages,
                ElementsAre(Message{"هشدار", "فايل مورد نظر تكراري است، آيا بازنويسي شود؟", 1}));
    EXPECT_EQ(outside.desktop.shown.back().first, "first.txt") << "offers the current name";
  }
}

TEST_F(FormSendToTextFileTest, Name_WithoutAnEnding_GetsOneBeforeItsFileIsAskedAbout) {
  const std::pair<std::string, std::string> names[] = {
      {"/a.b/list", "/a.b/list.txt"},
      {"C:\\a.b\\list.", "C:\\a.b\\list.txt"},
      {"list.CSV", "list.CSV"},
      {"ليست ۱۴۰۴.۰۲.۱۵", "ليست ۱۴۰۴.۰۲.۱۵.txt"},
  };
  for (const auto& [typed, written] : names) {
    outside.components.messages.clear();
    outside.fileSystem.files = {{written, ""}};
    outside.components.WillAnswer({Answer::kYes});
    EXPECT_EQ(Ask([&, path = typed](FormSendToTextFile& f) {
                Choose(path);
                f.cmdOk.Click();
              }),
              written);
    EXPECT_EQ(outside.components.messages.size(), 1U) << written;
  }
  Ask([this](FormSendToTextFile&) { Choose("x"); });
  EXPECT_EQ(outside.desktop.shown[1].first, "/a.b/") << "where the last file was";
  EXPECT_EQ(outside.desktop.shown.back().first, "");
}

TEST_F(FormSendToTextFileTest, Dialog_ThatCannotBeShown_IsNotConfirmed) {
  EXPECT_FALSE(Ask([](FormSendToTextFile&) { throw platform::RuntimeError(7, "no window"); }));
}

}  // namespace
