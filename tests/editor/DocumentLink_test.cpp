#include "EditorHarness.h"

namespace editor {
namespace {

const std::string kViewer = "comVoucherView.comVoucherView1";
const std::string kLookup = "Select Top 1 DocumentID";
const Message kNotAllowed{"خطا", "شما مجاز به انجام اين عمليات نيستيد.", 0};

class DocumentLinkTest : public EditorTest {
 protected:
  DocumentLinkTest() {
    outside.database.When(Beginning("Select Isnull(BasePath,'')"))
        .Gives(RowSetOf({"InstallDirectory"}, {{"C:\\Suite\\"}}));
    form.View(40);
    outside.database.ForgetCalls();
  }
  void Register(const std::string& refusedMember = {}) {
    outside.components.others[kViewer] = [this, refusedMember] {
      return std::make_unique<support::FakeObject>(told, [=](std::string_view member) {
        if (member == refusedMember) throw platform::RuntimeError(438, "no such member");
      });
    };
  }
  /// Creating the viewer fails with this number.
  void FailCreation(std::int32_t number) {
    outside.components.others[kViewer] = [number]() -> std::unique_ptr<platform::AutomationObject> {
      throw platform::RuntimeError(number, "failed");
    };
  }

  std::vector<std::string> told;
};

TEST_F(DocumentLinkTest, Viewer_IsToldTheContextAndTheDocument) {
  Register();
  outside.database.When(Beginning(kLookup)).Gives(RowSetOf({"DocumentID"}, {{"70"}}));
  form.cmdViewAccountDoc.Click();
  EXPECT_THAT(told,
              ElementsAre("UserID=1", "PositionID=2", "OLEConnectionString=office", "View 70"));
  outside.database.When(Beginning(kLookup)).Gives(RowSetOf({"DocumentID"}));
  form.cmdViewAccountDoc.Click();
  EXPECT_EQ(told.back(), "View -1") << "opened too when there is none";
  EXPECT_THAT(outside.desktop.started, IsEmpty());
  EXPECT_THAT(Said(), IsEmpty());
}

TEST_F(DocumentLinkTest, MissingViewer_IsRegisteredAndTriedOnceMore) {
  // Registration that helps, that does not, and that cannot even be started.
  for (const int outcome : {0, 1, 2}) {
    outside.components.others.clear();
    outside.Forget();
    outside.desktop.onStart = [&] {
      if (outcome == 0) Register();
      if (outcome == 2) throw platform::RuntimeError(53, "File not found");
    };
    form.cmdViewAccountDoc.Click();
    EXPECT_THAT(outside.desktop.started,
                ElementsAre("Regsvr32  \"C:\\Suite\\System\\comVoucherView.ocx\" /s"));
    EXPECT_THAT(First(2, outside.components.created), ElementsAre(kViewer, kViewer));
    EXPECT_EQ(Said(), std::vector<Message>(outcome == 0 ? 0 : 1, kNotAllowed));
  }
  EXPECT_EQ(told.back(), "View -1");
}

TEST_F(DocumentLinkTest, OtherFailures_AreIgnored) {
  FailCreation(70);
  form.cmdViewAccountDoc.Click();
  EXPECT_THAT(outside.desktop.started, IsEmpty());
  // The component is there after registration, but fails otherwise.
  FailCreation(429);
  outside.desktop.onStart = [this] { FailCreation(70); };
  form.cmdViewAccountDoc.Click();
  EXPECT_EQ(outside.desktop.started.size(), 1U);
  Register("PositionID");
  form.cmdViewAccountDoc.Click();
  EXPECT_THAT(told, ElementsAre("UserID=1", "OLEConnectionString=office", "View -1"));
  Register("View");
  form.cmdViewAccountDoc.Click();
  EXPECT_THAT(Said(), IsEmpty());
}

TEST_F(DocumentLinkTest, InsertDocumentObject_TiesTheObjectAndCopiesABranch) {
  for (const auto& [classId, objectId] : {std::pair(18, 8), {19, 8}, {0, 8}, {19, 0}}) {
    std::int32_t ids[] = {70, 2, 5, classId, objectId};
    EXPECT_FALSE(form.InsertDocumentObject(ids[0], ids[1], ids[2], ids[3], ids[4]));
  }
  EXPECT_THAT(outside.database.Log(),
              ElementsAre(testing::HasSubstr("Select 70, 2, Sequence, 18, 8 from"),
                          testing::HasSubstr("Select 70, 2, Sequence, 19, 8 from"),
                          testing::StartsWith("update tblAccountDocumentDetail set BranchID=8 ")));
}

TEST_F(DocumentLinkTest, GetAssetGroupAccountID_GivesTheAccountOrMinusOne) {
  const auto answer = [&](const std::vector<std::vector<support::Cell>>& rows) {
    outside.database.When(Holding("tblAssetGroup x Where x.ID=3"))
        .Gives(RowSetOf({"AssetGroupAccountID"}, rows));
    return form.GetAssetGroupAccountID(3);
  };
  EXPECT_EQ(answer({{"55"}}), 55);
  EXPECT_EQ(answer({{std::nullopt}}), -1) << "a group without account";
  EXPECT_EQ(answer({}), -1) << "no such group";
}

}  // namespace
}  // namespace editor
