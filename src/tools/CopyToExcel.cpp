#include "tools/CopyToExcel.h"

#include <memory>

#include "platform/RuntimeError.h"

namespace tools {

namespace {

// Takes the progress display away before any message is shown.
class Running {
 public:
  Running(platform::Progress& progress, std::size_t total) : progress_(progress) {
    progress_.Begin("انتقال به اكسل", total);
  }
  ~Running() { progress_.End(); }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  platform::Progress& progress_;
};

void CopyCells(const host::Services& services, const controls::FlexGrid& grid) {
  const std::unique_ptr<platform::ExcelApplication> application =
      services.excel.CreateApplication();
  application->AddWorkbook();
  application->SetVisible(true);
  const Running running(services.progress, static_cast<std::size_t>(grid.Rows()));
  for (int row = 0; row < grid.Rows(); ++row) {
    for (int col = 0; col < grid.Cols(); ++col) {
      application->SetCell(row + 1, col + 1, grid.TextMatrix(row, col));
    }
    if (!services.progress.Advance(static_cast<std::size_t>(row) + 1)) {
      throw platform::RuntimeError(platform::kUserInterrupt, "انتقال به اكسل توسط كاربر متوقف شد.");
    }
  }
  application->Finish();
}

}  // namespace

void CopyToExcel(host::modMain& module, const controls::FlexGrid& grid) {
  try {
    CopyCells(module.GetServices(), grid);
  } catch (const platform::RuntimeError& error) {
    module.ShowMessage("اشکال در انتقال به اکسل", error.Description());
    return;
  }
  module.ShowMessage("موفقيت", "انتقال به اكسل با موفقيت انجام شد");
}

}  // namespace tools
