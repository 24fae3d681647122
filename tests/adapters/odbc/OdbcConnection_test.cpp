#include "adapters/odbc/OdbcConnection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>

#include "adapters/odbc/Aside.h"
#include "adapters/odbc/StandInServer.h"
#include "support/Answers.h"
#include "support/FakeProgress.h"

namespace adapters::odbc {
namespace {

using namespace std::chrono_literals;
using Failure = platform::RuntimeError;
using platform::Parameter;
using support::FailureOf;
using support::Lines;
using testing::AllOf;
using testing::AnyOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

constexpr std::string_view kNames = "1|نیک\u200Cپی\n2|علي كاظمي";
constexpr std::string_view kLost = "ارتباط با پايگاه داده قطع شد.";
constexpr std::string_view kUnreachable = "پايگاه داده در دسترس نيست.";

Failure FailureOf(OdbcConnection& connection, std::string_view statement) {
  return FailureOf([&] { connection.Execute(statement); });
}

class OdbcTest : public testing::Test {
 protected:
  StandInServer server;
  OdbcConnection connection{server.Address(), 1s};
};

TEST_F(OdbcTest, Statements_areSentOnceAsTheyAreAndAnsweredAsWrittenDown) {
  auto sent = support::ExpectAnswers("tests/adapters/odbc/answers.sql", connection,
                                     [](std::string words) { return words; });
  EXPECT_THAT(server.Heard("login"), ElementsAre("sa|s3cret|suite"));
  EXPECT_THAT(server.Heard("call"), IsEmpty()) << "never prepared";
  for (std::string& each : sent) each = text::Replace(each, "\n", "\\n");
  EXPECT_EQ(server.Heard("batch"), sent);
  // The driver takes the mark for a parameter and says nothing.
  EXPECT_THAT(FailureOf(connection, "nonsense ?").Description(), HasSubstr("without a reason"));
  std::string longText;
  for (int i = 0; i < 10000; ++i) longText += "نیک\u200Cپی، يك. ";
  EXPECT_EQ(Lines(connection.Execute("select replicate(10000)")), longText);
}

TEST_F(OdbcTest, Procedure_getsItsParametersAndReturnsItsValue) {
  const Parameter permission[] = {{"@UserID", 5}, {"@FormPermissionID", -330801}};
  EXPECT_EQ(connection.CallProcedure("spZomirHasPermission", permission), 1);
  const std::chrono::sys_days day = std::chrono::year(2025) / 3 / 21;
  const Parameter action[] = {{"@Text", "”نیک\u200Cپی“ it's"}, {"@Empty", ""}, {"@Date", day}};
  EXPECT_EQ(connection.CallProcedure("spZomirInsertFormAction", action), 0);
  EXPECT_EQ(connection.CallProcedure("spAnswerRows", {}), -6);
  const auto failureOf = [&](std::string_view name) {
    return FailureOf([&] { connection.CallProcedure(name, {}); });
  };
  EXPECT_THAT(failureOf("spFail").Description(), HasSubstr("مجاز نیست."));
  EXPECT_EQ(failureOf("spNone").Number(), 2812);
  EXPECT_THAT(failureOf("spVanish").Description(), StartsWith(std::string(kLost)));
  EXPECT_EQ(connection.CallProcedure("spZomirHasPermission", permission), 1);
  EXPECT_THAT(
      server.Heard("call"),
      ElementsAre("spZomirHasPermission(5, -330801)",
                  "spZomirInsertFormAction('”نیک\u200Cپی“ it's', '', 2025-03-21)", "spAnswerRows()",
                  "spFail()", "spNone()", "spVanish()", "spZomirHasPermission(5, -330801)"));
  EXPECT_THAT(server.Heard("login"), testing::SizeIs(2));
}

TEST(OdbcConnection, OleDbString_reachesTheServer) {
  const StandInServer server;
  OdbcConnection connection("Provider=SQLOLEDB.1;Data Source=127.0.0.1," + server.Port() +
                            ";Initial Catalog=suite;User ID=sa;Password=\"p;w}{'آ\"");
  EXPECT_EQ(Lines(connection.Execute("select N'نیک\u200Cپی'")), "نیک\u200Cپی");
  EXPECT_THAT(server.Heard("login"), ElementsAre("sa|p;w}{'آ|suite"));
}

TEST(OdbcConnection, FailedLogin_saysWhyWithoutThePassword) {
  const struct {
    std::string behaviour;
    int number;
    std::string words;
  } cases[] = {
      {"refuse", 18456, "سرور پايگاه داده اجازه ورود نداد."},
      {"close", 0, std::string(kUnreachable)},
      {"silent", 0, "سرور پايگاه داده به درخواست اتصال پاسخ نداد."},
  };
  for (const auto& [behaviour, number, words] : cases) {
    const StandInServer server(behaviour);
    OdbcConnection connection(server.Address(), 1s);
    const Failure failure = FailureOf(connection, "select 1");
    EXPECT_EQ(failure.Number() == 18456, number == 18456) << failure.Description();
    EXPECT_NE(failure.Number(), 0);
    EXPECT_THAT(failure.Description(), AllOf(StartsWith(words), Not(HasSubstr("s3cret"))));
    EXPECT_THAT(server.Heard("batch"), IsEmpty());
  }
}

TEST_F(OdbcTest, LostServer_failsTheStatementOnceAndIsFoundAgainByTheNext) {
  const std::string names = "select ID, Name from tblEmployee";
  EXPECT_EQ(FailureOf(connection, names).Description(), "");
  for (const std::string statement :
       {"vanish at once", "vanish within the rows", "vanish after the rows"}) {
    const Failure failure = FailureOf(connection, statement);
    EXPECT_NE(failure.Number(), 0) << statement;
    EXPECT_THAT(failure.Description(), StartsWith(std::string(kLost))) << statement;
    EXPECT_EQ(Lines(connection.Execute(names)), kNames) << statement;
  }
  EXPECT_THAT(server.Heard("batch"),
              ElementsAre(names, "vanish at once", names, "vanish within the rows", names,
                          "vanish after the rows", names));
  EXPECT_THAT(server.Heard("login"), testing::SizeIs(4));
}

TEST_F(OdbcTest, ServerGone_isNamedUnreachableOrLostAndFoundAgain) {
  const std::string names = "select ID, Name from tblEmployee";
  server.Command("away");
  const Failure absent = FailureOf(connection, names);
  EXPECT_NE(absent.Number(), 0);
  EXPECT_THAT(absent.Description(),
              AllOf(StartsWith(std::string(kUnreachable)), Not(HasSubstr("s3cret"))));
  server.Command("back");
  EXPECT_EQ(FailureOf(connection, names).Description(), "");
  server.Command("away");
  EXPECT_THAT(FailureOf(connection, names).Description(), StartsWith(std::string(kLost)))
      << "while idle";
  EXPECT_THAT(FailureOf(connection, names).Description(), StartsWith(std::string(kUnreachable)));
  server.Command("back");
  EXPECT_EQ(Lines(connection.Execute(names)), kNames);
  EXPECT_THAT(server.Heard("batch"), ElementsAre(names, names));
}

TEST_F(OdbcTest, OneLoss_isToldOnceAndTheOthersOfTheStringAreOpenedAnew) {
  const std::string names = "select ID, Name from tblEmployee";
  server::Outages outages;
  const StandInServer elsewhere;
  OdbcConnection first(server.Address(), outages.Of("one"), nullptr, 1s);
  OdbcConnection second(server.Address(), outages.Of("one"), nullptr, 1s);
  OdbcConnection stranger(elsewhere.Address(), outages.Of("other"), nullptr, 1s);
  for (OdbcConnection* each : {&first, &second, &stranger}) each->Execute(names);
  server.Command("away");
  server.Command("back");
  EXPECT_THAT(FailureOf(first, names).Description(), StartsWith(std::string(kLost)));
  EXPECT_EQ(Lines(second.Execute(names)), kNames);
  EXPECT_EQ(Lines(first.Execute(names)), kNames);
  stranger.Execute(names);
  // A statement that a server refuses, or that took too long, is no news of the others.
  FailureOf(second, "fail 1205");
  OdbcConnection impatient(server.Address() + "Statement Timeout=1;", outages.Of("one"), nullptr,
                           1s);
  FailureOf(impatient, "work on");
  EXPECT_EQ(Lines(first.Execute(names)), kNames);
  EXPECT_THAT(server.Heard("login"), testing::SizeIs(5));
  EXPECT_THAT(elsewhere.Heard("login"), testing::SizeIs(1));
  // Of a server that does not answer a login the sessions are as dead.
  server.Command("away");
  OdbcConnection late(server.Address(), outages.Of("one"), nullptr, 1s);
  EXPECT_THAT(FailureOf(late, names).Description(), StartsWith(std::string(kUnreachable)));
  server.Command("back");
  EXPECT_EQ(Lines(second.Execute(names)), kNames);
}

TEST_F(OdbcTest, Session_endsWithItsConnection) {
  OdbcConnection(server.Address(), 1s).Execute("select ID, Name from tblEmployee");
  for (int tries = 0; tries < 200 && server.Heard("left").empty(); ++tries) {
    std::this_thread::sleep_for(20ms);
  }
  EXPECT_THAT(server.Heard("left"), ElementsAre("sa"));
}

TEST_F(OdbcTest, ServerFallenSilent_isGivenUpAfterTheStatementsTime) {
  OdbcConnection impatient(server.Address() + "Statement Timeout=1;", 1s);
  for (const std::string statement : {"work on", "fall silent within the rows"}) {
    EXPECT_THAT(FailureOf(impatient, statement).Description(),
                StartsWith("پايگاه داده در زمان مقرر پاسخ نداد"));
    EXPECT_EQ(Lines(impatient.Execute("select ID, Name from tblEmployee")), kNames);
  }
  EXPECT_THAT(server.Heard("login"), testing::SizeIs(3));
}

/// A user who waits: what holds of the driver's calls holds of those on another thread.
class WaitingTest : public OdbcTest {
 protected:
  std::unique_ptr<OdbcConnection> Connect(const std::string& words = "") {
    return std::make_unique<OdbcConnection>(server.Address() + words, outages.Of("one"), &progress,
                                            15s);
  }
  void AwaitLeft(std::size_t count) {
    for (int tries = 0; tries < 500 && server.Heard("left").size() < count; ++tries) {
      std::this_thread::sleep_for(20ms);
    }
    EXPECT_THAT(server.Heard("left"), testing::SizeIs(count));
  }

  server::Outages outages;
  support::FakeProgress progress;
  const std::string names = "select ID, Name from tblEmployee";
};

TEST_F(WaitingTest, SlowStatement_IsAskedAboutOnTheCallersThread) {
  const auto waiting = Connect();
  const std::thread::id own = std::this_thread::get_id();
  progress.onAdvance = [&] {
    EXPECT_EQ(std::this_thread::get_id(), own);
    EXPECT_THAT(FailureOf(*waiting, names).Number(), platform::kStillExecuting);
  };
  EXPECT_EQ(Lines(waiting->Execute("wait 600")), kNames);
  EXPECT_GE(progress.advanced.size(), 600U / 50);
  EXPECT_EQ(FailureOf(*waiting, "fail 1205").Number(), 1205);
  EXPECT_EQ(waiting->CallProcedure("spAnswerRows", {}), -6);
  const Parameter permission[] = {{"@UserID", 5}, {"@Text", "نیک\u200Cپی"}};
  EXPECT_EQ(waiting->CallProcedure("spZomirHasPermission", permission), 1);
  EXPECT_THAT(server.Heard("call"), testing::Contains("spZomirHasPermission(5, 'نیک\u200Cپی')"));
  EXPECT_THAT(FailureOf(*waiting, "vanish at once").Description(), StartsWith(std::string(kLost)));
  EXPECT_EQ(Lines(waiting->Execute(names)), kNames);
  EXPECT_EQ(progress.ended, static_cast<int>(progress.begun.size()));
}

TEST_F(WaitingTest, Cancelled_EndsSoonAndKeepsTheSession) {
  const auto waiting = Connect();
  waiting->Execute(names);
  const struct {
    std::string statement;
    bool perhapsStored;
  } cases[] = {{"work on", true}, {"Select and work on", false}, {"work on", true}};
  for (const auto& [statement, perhapsStored] : cases) {
    progress.stopAtCall = 3;
    const auto begin = std::chrono::steady_clock::now();
    const Failure failure = FailureOf(*waiting, statement);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, server::kCancelLimit);
    EXPECT_EQ(failure.Number(), platform::kUserInterrupt);
    EXPECT_THAT(failure.Description(), StartsWith("كار پايگاه داده به خواست شما متوقف شد"));
    EXPECT_EQ(failure.Description().find("پيش از آنكه آن را تكرار كنيد") != std::string::npos,
              perhapsStored);
    progress.stopAtCall = 0;
    EXPECT_EQ(Lines(waiting->Execute(names)), kNames);
  }
  progress.stopAtCall = 3;
  const Failure procedure = FailureOf([&] { waiting->CallProcedure("spWorkOn", {}); });
  EXPECT_EQ(procedure.Number(), platform::kUserInterrupt);
  EXPECT_THAT(procedure.Description(), HasSubstr("شايد پيش از آن چيزي ثبت شده باشد"));
  progress.stopAtCall = 0;
  EXPECT_EQ(waiting->CallProcedure("spAnswerRows", {}), -6);
  EXPECT_THAT(server.Heard("call"), ElementsAre("spWorkOn()", "spAnswerRows()")) << "sent once";
  EXPECT_THAT(server.Heard("login"), testing::SizeIs(1));
}

TEST_F(WaitingTest, RowsThatComeSlowly_AreReadWholeAndNoPartOfThemOnceCancelled) {
  const auto waiting = Connect();
  const platform::RowSet whole = waiting->Execute("Select slowly");
  EXPECT_EQ(whole.RowCount(), 60U);
  EXPECT_EQ(whole.Text(59, 0), "60");
  EXPECT_GE(progress.advanced.size(), 3U) << "asked while rows were on their way";
  for (const std::size_t at : {1U, 3U, 6U}) {
    progress.stopAtCall = at;
    EXPECT_EQ(FailureOf(*waiting, "Select slowly").Number(), platform::kUserInterrupt);
    progress.stopAtCall = 0;
    EXPECT_EQ(Lines(waiting->Execute(names)), kNames) << "and nothing that was left over";
  }
  EXPECT_THAT(server.Heard("login"), testing::SizeIs(1));
}

TEST_F(WaitingTest, Cancelled_OnASilentServer_IsGivenUpAndEndsByItself) {
  const auto waiting = Connect("Statement Timeout=5;");
  const auto neighbour = Connect();
  for (OdbcConnection* each : {waiting.get(), neighbour.get()}) each->Execute(names);
  progress.stopAtCall = 3;
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(FailureOf(*waiting, "fall silent within the rows").Number(), platform::kUserInterrupt);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, server::kCancelLimit + 1500ms);
  progress.stopAtCall = 0;
  EXPECT_EQ(Lines(waiting->Execute(names)), kNames) << "by a session of its own";
  EXPECT_EQ(Lines(neighbour->Execute(names)), kNames);
  EXPECT_THAT(server.Heard("login"), testing::SizeIs(3)) << "it is no outage";
  AwaitLeft(1);
}

TEST_F(WaitingTest, Cancelled_DuringTheLogin_IsLeftAtOnce) {
  const StandInServer silent("silent");
  OdbcConnection waiting(silent.Address(), outages.Of("silent"), &progress, 2s);
  progress.stopAtCall = 3;
  const auto begin = std::chrono::steady_clock::now();
  const Failure failure = FailureOf(waiting, "insert twice");
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 1500ms);
  EXPECT_EQ(failure.Number(), platform::kUserInterrupt);
  EXPECT_THAT(failure.Description(), Not(AnyOf(HasSubstr("تكرار"), HasSubstr("s3cret"))));
  progress.stopAtCall = 0;
  EXPECT_EQ(Lines(Connect()->Execute(names)), kNames);
  EXPECT_THAT(FailureOf(waiting, names).Description(), HasSubstr("به درخواست اتصال پاسخ نداد"));
}

// A driver that takes its time is not asked without pause.
TEST(Aside, Cancelled_AsksTheDriverNowAndThen) {
  support::FakeProgress progress;
  progress.stopAtCall = 1;
  platform::RunningStatement running(&progress);
  int cancels = 0;
  const auto begin = std::chrono::steady_clock::now();
  const auto wait = [] {
    std::this_thread::sleep_for(400ms);
    return 0;
  };
  const auto cancel = [&cancels] { ++cancels; };
  EXPECT_THROW(RunAside(running, wait, cancel, 10s), server::Failure);
  EXPECT_GE(cancels, 1);
  EXPECT_LE(cancels, 1 + (std::chrono::steady_clock::now() - begin) / 250ms);
}

}  // namespace
}  // namespace adapters::odbc
