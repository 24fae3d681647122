#include "EditorHarness.h"

namespace editor {
namespace {

using platform::AutomationValue;
using testing::IsEmpty;

const std::string kViewer = "comVoucherView.comVoucherView1";
const std::string kLookup =
    "Select Top 1 DocumentID from tblAccountDocumentDetail Where FormID=40 and FormTypeID=3308";
const Message kNotAllowed{"خطا", "شما مجاز به انجام اين عمليات نيستيد.", 0};

/// A document viewer that notes what it is told: "UserID=1", "View 70".
class FakeViewer : public platform::AutomationObject {
 public:
  FakeViewer(std::vector<std::string>& told, std::string refused)
      : told_(told), refused_(std::move(refused)) {}
  void Put(std::string_view member, const AutomationValue& value) override {
    Note(member, "=", value);
  }
  AutomationValue Get(std::string_view /*member*/) override { return {}; }
  AutomationValue Call(std::string_view member,
                       std::span<const AutomationValue> arguments) override {
    Note(member, " ", arguments.front());
    return {};
  }

 private:
  void Note(std::string_view member, const std::string& mark, const AutomationValue& value) {
    if (member == refused_) throw platform::RuntimeError(438, "no such member");
    const auto* number = std::get_if<std::int32_t>(&value);
    told_.push_back(std::string(member) + mark +
                    (number != nullptr ? std::to_string(*number) : std::get<std::string>(value)));
  }
  std::vector<std::string>& told_;
  std::string refused_;
};

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
      return std::make_unique<FakeViewer>(told, refusedMember);
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
  outside.database.When(Exact(kLookup))
      .Gives(RowSetOf({"DocumentID"}, {{"70"}}))
      .Gives(RowSetOf({"DocumentID"}));
  form.cmdViewAccountDoc.Click();
  EXPECT_THAT(outside.database.Log(),
              ElementsAre("spZomirHasPermission(@UserID=1, @FormPermissionID=303)", kLookup));
  EXPECT_THAT(told,
              ElementsAre("UserID=1", "PositionID=2", "OLEConnectionString=office", "View 70"));
  told.clear();
  form.cmdViewAccountDoc.Click();
  EXPECT_EQ(told.back(), "View -1") << "opened too when there is none";
  EXPECT_THAT(outside.launcher.started, IsEmpty());
  EXPECT_THAT(Said(), IsEmpty());
  outside.database.Refuse(303);
  form.cmdViewAccountDoc.Click();
  EXPECT_THAT(Said(), ElementsAre(kNotAllowed));
  EXPECT_EQ(outside.database.Statements().size(), 2U);
}

TEST_F(DocumentLinkTest, MissingViewer_IsRegisteredAndTriedOnceMore) {
  const std::string command = "Regsvr32  \"C:\\Suite\\System\\comVoucherView.ocx\" /s";
  outside.launcher.onStart = [this] { Register(); };
  form.cmdViewAccountDoc.Click();
  EXPECT_THAT(outside.launcher.started, ElementsAre(command));
  EXPECT_EQ(told.back(), "View -1");
  EXPECT_THAT(Said(), IsEmpty());

  // Registration that does not help, and one that cannot even be started.
  for (const bool starts : {true, false}) {
    outside.components.others.clear();
    outside.components.created.clear();
    outside.launcher.started.clear();
    outside.launcher.onStart = [starts] {
      if (!starts) throw platform::RuntimeError(53, "File not found");
    };
    form.cmdViewAccountDoc.Click();
    EXPECT_THAT(outside.launcher.started, ElementsAre(command));
    EXPECT_THAT(outside.components.created, ElementsAre(kViewer, kViewer, "comNotice.comNTC"));
    EXPECT_THAT(Said(), ElementsAre(kNotAllowed));
  }
}

TEST_F(DocumentLinkTest, OtherFailures_AreIgnored) {
  FailCreation(70);
  form.cmdViewAccountDoc.Click();
  EXPECT_THAT(outside.launcher.started, IsEmpty());
  // The component is there after registration, but fails otherwise.
  FailCreation(429);
  outside.launcher.onStart = [this] { FailCreation(70); };
  form.cmdViewAccountDoc.Click();
  EXPECT_EQ(outside.launcher.started.size(), 1U);
  Register("PositionID");
  form.cmdViewAccountDoc.Click();
  EXPECT_THAT(told, ElementsAre("UserID=1", "OLEConnectionString=office", "View -1"));
  Register("View");
  form.cmdViewAccountDoc.Click();
  EXPECT_THAT(Said(), IsEmpty());
}

TEST_F(DocumentLinkTest, InsertDocumentObject_TiesTheObjectAndCopiesABranch) {
  const auto insert = [this](std::int32_t classId, std::int32_t objectId) {
    outside.database.ForgetCalls();
    std::int32_t documentId = 70;
    std::int32_t rowNumber = 2;
    std::int32_t accountId = 5;
    EXPECT_FALSE(form.InsertDocumentObject(documentId, rowNumber, accountId, classId, objectId));
    return outside.database.Log();
  };
  const auto tie = [](const std::string& classId) {
    return "insert into tblAccountDocumentObjects (DocumentID, RowNumber, Sequence, ClassID, "
           "ObjectID)  Select 70, 2, Sequence, " +
           classId +
           ", 8 from tblAccountRelatedClasses ac  Where ac.AccountID=5 and ac.ClassID=" + classId +
           " and not Exists(Select x.* from tblAccountDocumentObjects x where x.ClassID= " +
           classId + " and x.DocumentID=70 and x.RowNumber=2)";
  };
  EXPECT_THAT(insert(18, 8), ElementsAre(tie("18")));
  EXPECT_THAT(insert(19, 8), ElementsAre(tie("19"),
                                         "update tblAccountDocumentDetail set BranchID=8 Where "
                                         "DocumentID=70 and RowNumber=2"));
  EXPECT_THAT(insert(0, 8), IsEmpty());
  EXPECT_THAT(insert(19, 0), IsEmpty());
}

TEST_F(DocumentLinkTest, GetAssetGroupAccountID_GivesTheAccountOrMinusOne) {
  const std::string statement = "Select x.AssetGroupAccountID from tblAssetGroup x Where x.ID=3";
  outside.database.When(Exact(statement))
      .Gives(RowSetOf({"AssetGroupAccountID"}, {{"55"}}))
      .Gives(RowSetOf({"AssetGroupAccountID"}, {{std::nullopt}}))
      .Gives(RowSetOf({"AssetGroupAccountID"}));
  EXPECT_EQ(form.GetAssetGroupAccountID(3), 55);
  EXPECT_EQ(form.GetAssetGroupAccountID(3), -1) << "a group without account";
  EXPECT_EQ(form.GetAssetGroupAccountID(3), -1) << "no such group";
}

}  // namespace
}  // namespace editor
