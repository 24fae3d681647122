#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace platform {

enum class ReportOutput { kPrinter = 0, kScreen = 1 };

/// One run of the suite's report engine. Failures are RuntimeErrors with the engine's words.
class ReportEngine {
 public:
  virtual ~ReportEngine() = default;
  virtual void LoadReportFile(const std::string& path) = 0;
  virtual void SetConnectionString(const std::string& connectionString) = 0;
  /// `number` counts from 1; a formula reads "fmlID = 17".
  virtual void SetSelectionFormula(int number, std::string_view formula) = 0;
  virtual void Produce(ReportOutput output) = 0;
};

class ReportEngineFactory {
 public:
  virtual ~ReportEngineFactory() = default;
  virtual std::unique_ptr<ReportEngine> Create() = 0;
};

}  // namespace platform
