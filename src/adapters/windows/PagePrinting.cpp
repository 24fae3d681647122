#include "adapters/windows/PagePrinting.h"

#include <windows.h>

#include <cderr.h>
#include <commdlg.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <string>

#include "adapters/windows/Com.h"
#include "adapters/windows/ModalLoop.h"
#include "adapters/windows/Wide.h"
#include "adapters/windows/WinSurface.h"
#include "platform/RuntimeError.h"
#include "screens/PaintSheet.h"
#include "screens/PutPages.h"

namespace adapters::windows {

namespace {

constexpr std::int32_t kPrinterError = 482;

[[noreturn]] void ThrowRefused(const std::string& words, const std::string& technical) {
  throw platform::RuntimeError(kPrinterError, words + "\n" + technical, "report");
}

/// What the dialog leaves to its caller.
class PrintDialog {
 public:
  explicit PrintDialog(const report::Pages& pages) {
    dialog_.lStructSize = sizeof dialog_;
    SetUp(pages);
    dialog_.hwndOwner = DialogOwner();
    dialog_.Flags = PD_RETURNDC | PD_USEDEVMODECOPIESANDCOLLATE | PD_NOSELECTION |
                    PD_HIDEPRINTTOFILE | PD_NOWARNING;
    dialog_.nMinPage = dialog_.nFromPage = 1;
    dialog_.nMaxPage = dialog_.nToPage =
        static_cast<WORD>(std::min<int>(pages.Count(), std::numeric_limits<WORD>::max()));
  }
  ~PrintDialog() {
    if (dialog_.hDC != nullptr) DeleteDC(dialog_.hDC);
    if (dialog_.hDevMode != nullptr) GlobalFree(dialog_.hDevMode);
    if (dialog_.hDevNames != nullptr) GlobalFree(dialog_.hDevNames);
  }
  PrintDialog(const PrintDialog&) = delete;
  PrintDialog& operator=(const PrintDialog&) = delete;

  /// False when the user cancelled it.
  bool Ask() {
    if (PrintDlgW(&dialog_)) return true;
    ThrowUnlessCancelled();
    return false;
  }
  HDC Printer() const { return dialog_.hDC; }
  bool SomePages() const { return (dialog_.Flags & PD_PAGENUMS) != 0; }
  int From() const { return dialog_.nFromPage; }
  int To() const { return dialog_.nToPage; }

 private:
  /// The default printer, to begin with, on paper as the pages are.
  void SetUp(const report::Pages& pages) {
    dialog_.Flags = PD_RETURNDEFAULT | PD_NOWARNING;
    if (!PrintDlgW(&dialog_)) ThrowUnlessCancelled();
    if (dialog_.hDevMode == nullptr) return;
    auto* const mode = static_cast<DEVMODEW*>(GlobalLock(dialog_.hDevMode));
    if (mode == nullptr) return;
    mode->dmFields |= DM_ORIENTATION | DM_PAPERSIZE;
    mode->dmOrientation = pages.Width() > pages.Height() ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
    mode->dmPaperSize = DMPAPER_A4;
    GlobalUnlock(dialog_.hDevMode);
  }
  static void ThrowUnlessCancelled() {
    const DWORD code = CommDlgExtendedError();
    if (code == 0) return;
    const bool none =
        code == PDERR_NODEFAULTPRN || code == PDERR_NODEVICES || code == PDERR_PRINTERNOTFOUND;
    ThrowRefused(none ? "چاپگري در اين رايانه نيست." : "چاپگر پاسخ نمي دهد.",
                 "PrintDlg: " + std::to_string(code));
  }

  PRINTDLGW dialog_{};
};

/// A job of a printer, which is taken back unless it was finished.
class Job {
 public:
  Job(HDC printer, const std::string& title) : printer_(printer) {
    const std::wstring name = Wide(title);
    DOCINFOW document{};
    document.cbSize = sizeof document;
    document.lpszDocName = name.c_str();
    begun_ = StartDocW(printer, &document) > 0;
    // A printer that writes files asks for a name.
    if (!begun_ && GetLastError() != ERROR_CANCELLED) Refuse();
  }
  ~Job() {
    if (begun_) AbortDoc(printer_);
  }
  Job(const Job&) = delete;
  Job& operator=(const Job&) = delete;

  bool Begun() const { return begun_; }
  void BeginPage() {
    if (StartPage(printer_) <= 0) Refuse();
  }
  void EndPage() {
    if (::EndPage(printer_) <= 0) Refuse();
  }
  void Finish() {
    if (EndDoc(printer_) <= 0) Refuse();
    begun_ = false;
  }

 private:
  [[noreturn]] static void Refuse() {
    ThrowRefused("چاپگر پاسخ نمي دهد.", SystemText(HRESULT_FROM_WIN32(GetLastError())));
  }

  HDC printer_;
  bool begun_ = false;
};

}  // namespace

void PrintPages(report::Pages& pages, platform::Progress& progress, const Theme& look, HDC printer,
                int first, int end) {
  const auto caps = [printer](int which) { return GetDeviceCaps(printer, which); };
  // Another paper than A4 gets the pages made smaller or larger.
  const double scale =
      std::min(caps(PHYSICALWIDTH) / pages.Width(), caps(PHYSICALHEIGHT) / pages.Height());
  const screens::Point corner{-caps(PHYSICALOFFSETX), -caps(PHYSICALOFFSETY)};
  Job job(printer, pages.Title());
  if (!job.Begun()) return;
  const auto print = [&](const controls::Sheet& sheet) {
    job.BeginPage();
    WinSurface surface(printer, look);
    screens::PaintSheet(sheet, surface, corner, scale,
                        screens::OnDevice({0, 0, sheet.width, sheet.height}, corner, scale));
    job.EndPage();
  };
  if (screens::PutPages(pages, progress, "چاپ گزارش", first, end, print)) job.Finish();
}

void PrintPages(report::Pages& pages, platform::Progress& progress, const Theme& look) {
  PrintDialog dialog(pages);
  if (!dialog.Ask()) return;
  const int count = pages.Count();
  const int first = dialog.SomePages() ? std::clamp(dialog.From() - 1, 0, count - 1) : 0;
  const int end = dialog.SomePages() ? std::clamp(dialog.To(), first + 1, count) : count;
  PrintPages(pages, progress, look, dialog.Printer(), first, end);
}

}  // namespace adapters::windows
