#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "calendar/SolarHijriDate.h"
#include "controls/Control.h"
#include "controls/Controls.h"
#include "controls/Selector.h"
#include "host/DataEnvironment.h"
#include "host/HostContext.h"
#include "host/Services.h"

namespace host {

/// Answers of AskQuestion.
inline constexpr int kYes = 6;
inline constexpr int kNo = 7;

using calendar::FirstOfNextMonth;

/// -1 for a text of blanks, 1 for "True", else the number that the text begins with once every "/"
/// is gone: 1402/05/09 is 14020509. Never throws; a number too large for a double is 0.
double NumericValue(std::string_view text);

/// NumericValue as a 32-bit id, the fraction cut off; throws RuntimeError 6 "Overflow".
std::int32_t NumericId(std::string_view text);

/// Adds the deltas, twips, to Width, Left, Height and Top in that order, each with errors resumed.
void ShiftControl(controls::Control& control, controls::Twips widthDelta, controls::Twips leftDelta,
                  controls::Twips heightDelta, controls::Twips topDelta);

/// What LoadReportTemplates needs of a form: the list to fill and the form type to fill it for.
class ReportTemplateForm {
 public:
  virtual ~ReportTemplateForm() = default;
  virtual controls::ComboBox& cmbReport() = 0;
  virtual std::int32_t DocumnetID() const = 0;
};

/// The module-wide state and the routines that every form calls.
class modMain : public controls::LookupSource {
 public:
  explicit modMain(const Services& services) : services_(services) {}
  ~modMain() override = default;
  modMain(const modMain&) = delete;
  modMain& operator=(const modMain&) = delete;

  const Services& GetServices() const { return services_; }
  const HostContext& Context() const { return context_; }
  /// Only DistPromoterProg sets it.
  void SetContext(HostContext context) { context_ = std::move(context); }

  /// Drops the data environment with its connection and recordsets, and the connection of Lookup,
  /// and points a fresh one at the context's connection string. Touches no server: the first
  /// statement opens the connection.
  void ConnectDataEnvironment();
  /// Made on first use.
  DataEnvironment& DtEn();

  /// Asks the permission procedure for the context's user.
  bool HasPermission(std::int32_t formPermissionId);

  /// An information dialog of the suite's message component. Silent where the component is not
  /// registered or fails.
  void ShowMessage(std::string_view title, std::string_view message);
  /// A yes/no dialog: kYes, kNo, or 0 when neither was answered or there is no component.
  int AskQuestion(std::string_view title, std::string_view message);
  /// One of the two is up: a routine waits for the user.
  bool NoticeIsUp() const { return notices_ > 0; }
  /// A routine waits for the database, and windows are painted meanwhile.
  bool StatementRuns() const { return services_.connections.Busy(); }

  /// Fills the form's list with the report templates of its form type; when there are none, says so
  /// to the user, leaves the list alone and returns false. Throws what the database throws.
  bool LoadReportTemplates(ReportTemplateForm& form);

  /// The server's date; the machine's where there is no connection string or the server fails.
  std::chrono::sys_days GetServerDate();

  /// Shows the Save As dialog and stores the chosen path. Always true: a cancelled dialog leaves
  /// the file name as it was, and the caller tests the name. Without a name the dialog begins in
  /// the folder of the file chosen last.
  bool AskSaveFileName(std::string& fileName, std::string_view filter);

  /// Switches the keyboard to the Persian layout of the operating system's version; a version that
  /// is not known keeps the layout chosen before.
  void SwitchKeyboard();

  /// Gives a selector the context's connection string and its pair of lookup views.
  void SetViews(controls::Selector& selector, const std::string& major,
                const std::string& minor) const {
    selector.SetConnectionString(context_.connectionString);
    selector.SetViews(major, minor);
  }

  /// The hourglass from the first BeginWork to the EndWork of the outermost; in pairs, which
  /// tools::Hourglass sees to.
  void BeginWork() {
    if (workDepth_++ == 0) services_.screen.SetMousePointer(controls::MousePointer::kHourglass);
  }
  void EndWork() {
    if (--workDepth_ == 0) services_.screen.SetMousePointer(controls::MousePointer::kDefault);
  }

  /// Over a connection of the selectors' own, which is kept until the data environment is rebuilt
  /// or another string is asked for.
  platform::RowSet Lookup(const std::string& connectionString,
                          const std::string& statement) override;

 private:
  std::optional<std::int32_t> ShowNotice(std::string_view title, std::string_view message,
                                         std::int32_t formType);

  Services services_;
  HostContext context_;
  std::unique_ptr<DataEnvironment> dtEn_;
  std::string keyboardLayout_;
  std::unique_ptr<platform::Connection> lookupConnection_;
  std::string lookupConnectionString_;
  std::string saveFolder_;  // with its separator; empty before a file was chosen
  int notices_ = 0;
  int workDepth_ = 0;  // works begun and not ended
};

}  // namespace host
