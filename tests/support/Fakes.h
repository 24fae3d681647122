#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/ControlSite.h"
#include "platform/Desktop.h"
#include "platform/Excel.h"
#include "platform/FileSystem.h"
#include "platform/PropertyBag.h"
#include "platform/ReportEngine.h"
#include "platform/RuntimeError.h"
#include "support/Events.h"
#include "support/FakeProgress.h"

namespace support {

class FakeDesktop : public platform::Desktop {
 public:
  BeforeCall beforeCall;  // of what can fail
  /// 1404/01/01, 08:30.
  std::chrono::sys_days today = std::chrono::year{2025} / std::chrono::March / std::chrono::day{21};
  std::chrono::sys_days Today() const override { return today; }
  int MinutesSinceMidnight() const override { return 8 * 60 + 30; }

  std::uint32_t version = 10;
  std::uint32_t GetVersion() const override { return version; }

  /// The layouts loaded, in order.
  std::vector<std::string> loaded;
  void LoadKeyboardLayout(std::string_view layout) override {
    Tell(beforeCall, "LoadKeyboardLayout");
    loaded.emplace_back(layout);
  }

  /// The path that the user chooses; none cancels the dialog.
  std::optional<std::string> chosen;
  /// Beginning and filter of every dialog shown.
  std::vector<std::pair<std::string, std::string>> shown;
  std::string ShowSave(const std::string& begin, std::string_view filter) override {
    Tell(beforeCall, "ShowSave");
    shown.emplace_back(begin, filter);
    if (chosen) return *chosen;
    throw platform::RuntimeError(platform::kFileDialogCancelled, "Cancel was selected.");
  }

  /// The command lines started, in order.
  std::vector<std::string> started;
  std::function<void()> onStart;
  void Start(const std::string& commandLine) override {
    Tell(beforeCall, "Start");
    started.push_back(commandLine);
    if (onStart) onStart();
  }
};

/// A spreadsheet application whose cells the test can read.
class FakeExcel : public platform::Excel {
 public:
  using Position = std::pair<int, int>;  // row and column, from 1
  BeforeCall beforeCall;

  bool visible = false;
  int workbooks = 0;
  /// How many copies were finished.
  int finished = 0;
  /// Every cell in the order of writing.
  std::vector<std::pair<Position, std::string>> written;
  std::unique_ptr<platform::ExcelApplication> CreateApplication() override;
};

class FakePropertyBag : public platform::PropertyBag {
 public:
  std::map<std::string, platform::PropertyValue, std::less<>> stored;
  /// Keys in the order in which they were read or written.
  std::vector<std::string> keys;
  platform::PropertyValue ReadProperty(std::string_view key,
                                       const platform::PropertyValue& defaultValue) override;
  void WriteProperty(std::string_view key, const platform::PropertyValue& value,
                     const platform::PropertyValue& defaultValue) override;
};

class FakeControlSite : public platform::ControlSite {
 public:
  /// "changed UserID", "height 100", "width 100", "invisible", "entered", in order.
  std::vector<std::string> log;
  void PropertyChanged(std::string_view key) override {
    log.push_back("changed " + std::string(key));
  }
  void SetExtenderHeight(double height) override {
    log.push_back("height " + std::to_string(static_cast<int>(height)));
  }
  void SetExtenderWidth(double width) override {
    log.push_back("width " + std::to_string(static_cast<int>(width)));
  }
  void SetExtenderVisible(bool visible) override {
    log.emplace_back(visible ? "visible" : "invisible");
  }
  void Entered() override { log.emplace_back("entered"); }
};

/// Files by path; a text file's content is there once it was closed, its line breaks as "\r\n".
class FakeFileSystem : public platform::FileSystem {
 public:
  std::map<std::string, std::string> files;
  BeforeCall beforeCall;
  bool FileExists(const std::string& path) override {
    Tell(beforeCall, "FileExists");
    return files.contains(path);
  }
  std::string ReadFile(const std::string& path) override;
  std::unique_ptr<platform::TextFile> CreateTextFile(const std::string& path) override;
};

/// Report engines that note what they are told: "create", "load a.html", "connect office",
/// "formula 1: fmlID = 7", "produce screen".
class FakeReports : public platform::ReportEngineFactory {
 public:
  std::vector<std::string> log;
  BeforeCall beforeCall;  // hears the log's lines
  std::unique_ptr<platform::ReportEngine> Create() override;
  void Note(const std::string& line);
};

}  // namespace support
