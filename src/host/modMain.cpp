#include "host/modMain.h"

#include <cmath>
#include <limits>
#include <utility>
#include <variant>

#include "calendar/Gregorian.h"
#include "platform/ResumeNext.h"
#include "text/Text.h"

namespace host {

using platform::AutomationValue;
using platform::ResumeNext;
using platform::RuntimeError;

namespace {

// What the message component is told and tells.
constexpr std::int32_t kInformation = 0;
constexpr std::int32_t kQuestion = 1;
constexpr std::int32_t kAnsweredNo = 0;
constexpr std::int32_t kAnsweredYes = 1;
constexpr std::int32_t kFormBackColor = 14411760;
constexpr std::int32_t kBottomBackColor = 13490407;
constexpr std::int32_t kFrameBackColor = 15791353;

constexpr std::uint32_t kMajorVersionMask = 0xFF;
constexpr std::size_t kDateTextLength = 10;

/// Counts a message among those that are up, for as long as it is.
class Counted {
 public:
  explicit Counted(int& count) : count_(count) { ++count_; }
  ~Counted() { --count_; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

 private:
  int& count_;
};

}  // namespace

double NumericValue(std::string_view text) {
  if (text::Trim(text).empty()) return -1;
  if (text == "True") return 1;
  const double value = text::LeadingNumber(text::Replace(text, "/", ""));
  // A number that no double holds is an overflow, which is resumed: nothing was assigned.
  return std::isfinite(value) ? value : 0;
}

std::int32_t NumericId(std::string_view text) {
  const double value = std::trunc(NumericValue(text));
  using Limits = std::numeric_limits<std::int32_t>;
  if (value < Limits::min() || value > Limits::max()) {
    throw RuntimeError(platform::kOverflow, "Overflow");
  }
  return static_cast<std::int32_t>(value);
}

void ShiftControl(controls::Control& control, controls::Twips widthDelta, controls::Twips leftDelta,
                  controls::Twips heightDelta, controls::Twips topDelta) {
  ResumeNext([&] { control.SetWidth(control.Width() + widthDelta); });
  ResumeNext([&] { control.SetLeft(control.Left() + leftDelta); });
  ResumeNext([&] { control.SetHeight(control.Height() + heightDelta); });
  ResumeNext([&] { control.SetTop(control.Top() + topDelta); });
}

void modMain::ConnectDataEnvironment() {
  // The old one goes first, with its connection and the selectors', so that there are never two. A
  // connection opens itself on the first statement, so there is nothing to open and close here
  // beforehand.
  dtEn_.reset();
  lookupConnection_.reset();
  dtEn_ = std::make_unique<DataEnvironment>(services_.connections, context_.connectionString);
}

DataEnvironment& modMain::DtEn() {
  if (!dtEn_) ConnectDataEnvironment();
  return *dtEn_;
}

bool modMain::HasPermission(std::int32_t formPermissionId) {
  return DtEn().spZomirHasPermission(context_.userId, formPermissionId) != 0;
}

void modMain::ShowMessage(std::string_view title, std::string_view message) {
  ShowNotice(title, message, kInformation);
}

int modMain::AskQuestion(std::string_view title, std::string_view message) {
  const std::optional<std::int32_t> answer = ShowNotice(title, message, kQuestion);
  if (answer == kAnsweredYes) return kYes;
  if (answer == kAnsweredNo) return kNo;
  return 0;
}

std::optional<std::int32_t> modMain::ShowNotice(std::string_view title, std::string_view message,
                                                std::int32_t formType) {
  std::unique_ptr<platform::AutomationObject> notice;
  // 429, the component is not registered, is silent; so is every other failure to make it.
  ResumeNext([&] { notice = services_.components.Create("comNotice.comNTC"); });
  if (!notice) return std::nullopt;
  const std::pair<std::string_view, AutomationValue> properties[] = {
      {"FormTitle", std::string(title)},
      {"FormMessage", std::string(message)},
      {"FormType", formType},
      {"FormBackColor", kFormBackColor},
      {"BtmBackColor", kBottomBackColor},
      {"FrameBackColor", kFrameBackColor},
  };
  for (const auto& property : properties) {
    ResumeNext([&] { notice->Put(property.first, property.second); });
  }
  {
    const Counted up(notices_);
    ResumeNext([&] { notice->Call("ClearShow"); });
  }
  if (formType != kQuestion) return std::nullopt;
  AutomationValue answer;
  ResumeNext([&] { answer = notice->Get("Resualt"); });  // the component spells it so
  const std::int32_t* number = std::get_if<std::int32_t>(&answer);
  return number ? std::optional(*number) : std::nullopt;
}

bool modMain::LoadReportTemplates(ReportTemplateForm& form) {
  Recordset& templates = DtEn().sqlReportTemplate();
  templates.Run("Select * from tblZomirReportTemplate where FormTypeID = " +
                std::to_string(form.DocumnetID()));
  const bool found = templates.RecordCount() >= 1;
  if (found) {
    controls::ComboBox& list = form.cmbReport();
    list.Clear();
    for (; !templates.Eof(); templates.MoveNext()) {
      list.AddItem(std::string(templates.Text("Title")));
      list.SetItemData(list.NewIndex(), NumericId(templates.Text("ID")));
    }
  } else {
    ShowMessage("اطلاع ", "قالبي براي گزارش گيري در سيستم موجود نيست .آن را ايجاد كنيد .");
  }
  templates.Close();
  return found;
}

std::chrono::sys_days modMain::GetServerDate() {
  std::chrono::sys_days result = services_.desktop.Today();
  if (context_.connectionString.empty()) return result;
  ResumeNext([&] {
    Recordset& serverDate = DtEn().sqlProgram();
    serverDate.Run("Select getdate() as today");
    if (serverDate.RecordCount() == 0) return;
    const std::string_view today = serverDate.Text("today").substr(0, kDateTextLength);
    result = calendar::GregorianFromText(today).value_or(result);
  });
  return result;
}

bool modMain::AskSaveFileName(std::string& fileName, std::string_view filter) {
  // Cancelling raises an error too: the name stays, and the caller tests it.
  ResumeNext([&] {
    fileName = services_.desktop.ShowSave(fileName.empty() ? saveFolder_ : fileName, filter);
    saveFolder_ = fileName.substr(0, fileName.find_last_of("/\\") + 1);
  });
  return true;
}

void modMain::SwitchKeyboard() {
  const std::uint32_t major = services_.desktop.GetVersion() & kMajorVersionMask;
  if (major == 4) {
    keyboardLayout_ = "00000401";
  } else if (major >= 5) {
    keyboardLayout_ = "00000429";
  }
  // A layout that the machine cannot load keeps no form from opening.
  ResumeNext([&] { services_.desktop.LoadKeyboardLayout(keyboardLayout_); });
}

platform::RowSet modMain::Lookup(const std::string& connectionString,
                                 const std::string& statement) {
  if (!lookupConnection_ || lookupConnectionString_ != connectionString) {
    lookupConnection_ = services_.connections.Create(connectionString);
    lookupConnectionString_ = connectionString;
  }
  return lookupConnection_->Execute(statement);
}

}  // namespace host
