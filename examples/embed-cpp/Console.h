#pragma once

#include <chrono>
#include <cstdio>
#include <memory>
#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "controls/Form.h"
#include "controls/Screen.h"
#include "host/DistPromoterProg.h"
#include "host/Services.h"
#include "platform/RuntimeError.h"

/// What a host gives the module, here with nothing but a console: forms are shown to nobody, the
/// database is a file, and what the host does not have it refuses with a RuntimeError.
namespace console {

[[noreturn]] inline void Refuse(const char* what) {
  throw platform::RuntimeError(platform::kCannotCreateComponent,
                               std::string("a console has no ") + what);
}

class Screen : public controls::Screen {
 public:
  void Show(controls::Form& form, controls::Modality modality) override {
    std::printf("shown: %s\n", form.Name().c_str());
    // Nobody is there who could close it.
    if (modality == controls::Modality::kModal) form.Hide();
  }
  void Hide(controls::Form&) override {}
  void Unload(controls::Form&) override {}
  void Breathe() override {}
  void SetFocus(controls::Control&) override {}
  controls::MousePointer GetMousePointer() const override { return pointer_; }
  void SetMousePointer(controls::MousePointer pointer) override { pointer_ = pointer; }
  void Beep() override {}
  void CopyToClipboard(const std::string& text) override { std::printf("%s\n", text.c_str()); }
  controls::Twips TextWidth(std::string_view text) const override {
    return 90.0 * static_cast<double>(text.size());
  }
  controls::Twips LineHeight() const override { return 225; }

 private:
  controls::MousePointer pointer_ = controls::MousePointer::kDefault;
};

class Connections : public platform::ConnectionFactory {
 public:
  std::unique_ptr<platform::Connection> Create(const std::string& connectionString) override {
    return std::make_unique<adapters::sqlite::SqliteConnection>(connectionString);
  }
};

class Nothing : public platform::ComponentFactory,
                public platform::Desktop,
                public platform::Excel,
                public platform::Progress,
                public platform::FileSystem,
                public platform::ReportEngineFactory {
 public:
  std::unique_ptr<platform::AutomationObject> Create(std::string_view) override {
    Refuse("components");
  }
  std::chrono::sys_days Today() const override {
    return std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
  }
  int MinutesSinceMidnight() const override { return 0; }
  std::uint32_t GetVersion() const override { return 0; }
  void LoadKeyboardLayout(std::string_view) override {}
  std::string ShowSave(const std::string&, std::string_view) override { Refuse("dialogs"); }
  std::unique_ptr<platform::ExcelApplication> CreateApplication() override {
    Refuse("spreadsheets");
  }
  void Begin(std::string_view, std::size_t) override {}
  bool Advance(std::size_t) override { return true; }
  void End() override {}
  bool UnderWay() const override { return false; }
  bool FileExists(const std::string&) override { return false; }
  std::string ReadFile(const std::string&) override { Refuse("files"); }
  std::unique_ptr<platform::TextFile> CreateTextFile(const std::string&) override {
    Refuse("files");
  }
  void Start(const std::string&) override { Refuse("other programs"); }
  std::unique_ptr<platform::ReportEngine> Create() override { Refuse("reports"); }
};

/// The control stands on no document and has no surface.
class Site : public platform::ControlSite {
 public:
  void PropertyChanged(std::string_view) override {}
  void SetExtenderHeight(double) override {}
  void SetExtenderWidth(double) override {}
  void SetExtenderVisible(bool) override {}
  void Entered() override {}
};

}  // namespace console
