#include "support/Fakes.h"

namespace support {

using platform::PropertyValue;
using platform::RuntimeError;

std::unique_ptr<platform::ExcelApplication> FakeExcel::CreateApplication() {
  class Application : public platform::ExcelApplication {
   public:
    explicit Application(FakeExcel& excel) : excel_(excel) {}
    void AddWorkbook() override {
      Tell(excel_.beforeCall, "AddWorkbook");
      ++excel_.workbooks;
    }
    void SetVisible(bool shown) override {
      Tell(excel_.beforeCall, "SetVisible");
      excel_.visible = shown;
    }
    void SetCell(int row, int column, std::string_view text) override {
      Tell(excel_.beforeCall, "SetCell");
      if (excel_.workbooks == 0) throw RuntimeError(9, "Subscript out of range");
      excel_.written.emplace_back(Position{row, column}, text);
    }
    void Finish() override {
      Tell(excel_.beforeCall, "Finish");
      ++excel_.finished;
    }

   private:
    FakeExcel& excel_;
  };
  Tell(beforeCall, "CreateApplication");
  return std::make_unique<Application>(*this);
}

PropertyValue FakePropertyBag::ReadProperty(std::string_view key,
                                            const PropertyValue& defaultValue) {
  keys.emplace_back(key);
  const auto found = stored.find(key);
  return found == stored.end() ? defaultValue : found->second;
}

void FakePropertyBag::WriteProperty(std::string_view key, const PropertyValue& value,
                                    const PropertyValue& defaultValue) {
  keys.emplace_back(key);
  stored.erase(std::string(key));
  if (value != defaultValue) stored.emplace(key, value);
}

namespace {

class FakeTextFile : public platform::TextFile {
 public:
  FakeTextFile(FakeFileSystem& files, std::string path) : files_(files), path_(std::move(path)) {}
  void Write(std::string_view text) override {
    Tell(files_.beforeCall, "Write");
    text_ += text;
  }
  void WriteLineBreak() override { Write("\r\n"); }
  void Close() override {
    Tell(files_.beforeCall, "Close");
    files_.files[path_] = text_;
  }

 private:
  FakeFileSystem& files_;
  std::string path_;
  std::string text_;
};

class FakeReportEngine : public platform::ReportEngine {
 public:
  explicit FakeReportEngine(FakeReports& reports) : reports_(reports) {}
  void LoadReportFile(const std::string& path) override { reports_.Note("load " + path); }
  void SetConnectionString(const std::string& connectionString) override {
    reports_.Note("connect " + connectionString);
  }
  void SetSelectionFormula(int number, std::string_view formula) override {
    reports_.Note("formula " + std::to_string(number) + ": " + std::string(formula));
  }
  void Produce(platform::ReportOutput output) override {
    reports_.Note(output == platform::ReportOutput::kScreen ? "produce screen" : "produce printer");
  }

 private:
  FakeReports& reports_;
};

}  // namespace

std::string FakeFileSystem::ReadFile(const std::string& path) {
  Tell(beforeCall, "ReadFile");
  if (!files.contains(path)) throw RuntimeError(53, path + ": no such file");
  return files.at(path);
}

std::unique_ptr<platform::TextFile> FakeFileSystem::CreateTextFile(const std::string& path) {
  Tell(beforeCall, "CreateTextFile");
  return std::make_unique<FakeTextFile>(*this, path);
}

void FakeReports::Note(const std::string& line) {
  log.push_back(line);
  Tell(beforeCall, line);
}

std::unique_ptr<platform::ReportEngine> FakeReports::Create() {
  Note("create");
  return std::make_unique<FakeReportEngine>(*this);
}

}  // namespace support
