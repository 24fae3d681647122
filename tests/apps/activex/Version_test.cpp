// What the properties of the files show, as Windows reads it.

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "LoadedLibrary.h"

namespace {

using adapters::windows::Utf8;
using adapters::windows::Wide;

class VersionInfo {
 public:
  explicit VersionInfo(std::wstring file) {
    std::ranges::replace(file, L'/', L'\\');
    data_.resize(GetFileVersionInfoSizeW(file.c_str(), nullptr));
    if (!data_.empty()) {
      GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(data_.size()), data_.data());
    }
  }
  std::string Text(const std::string& name) const {
    const std::wstring path = Wide("\\StringFileInfo\\040904B0\\" + name);
    void* text = nullptr;
    UINT units = 0;
    if (data_.empty() || !VerQueryValueW(data_.data(), path.c_str(), &text, &units)) return "none";
    return Utf8(static_cast<const wchar_t*>(text));
  }
  /// "1.2.3.4"; the installer's updates and the system go by the numbers.
  std::string Numbers() const {
    void* block = nullptr;
    UINT size = 0;
    if (data_.empty() || !VerQueryValueW(data_.data(), L"\\", &block, &size)) return "none";
    const auto& fixed = *static_cast<const VS_FIXEDFILEINFO*>(block);
    EXPECT_EQ(fixed.dwFileVersionMS, fixed.dwProductVersionMS);
    EXPECT_EQ(fixed.dwFileVersionLS, fixed.dwProductVersionLS);
    const auto word = [](DWORD value) { return std::to_string(value); };
    return word(HIWORD(fixed.dwFileVersionMS)) + '.' + word(LOWORD(fixed.dwFileVersionMS)) + '.' +
           word(HIWORD(fixed.dwFileVersionLS)) + '.' + word(LOWORD(fixed.dwFileVersionLS));
  }

 private:
  std::vector<char> data_;
};

void ExpectShown(const VersionInfo& info, const std::string& file) {
  EXPECT_TRUE((info.Numbers() + ".").starts_with(PROMOTER_VERSION ".")) << info.Numbers();
  EXPECT_EQ(info.Text("FileVersion"), PROMOTER_VERSION);
  EXPECT_EQ(info.Text("ProductVersion"), PROMOTER_VERSION);
  EXPECT_EQ(info.Text("ProductName"), "DistPromoterProg");
  EXPECT_EQ(info.Text("CompanyName"), PROMOTER_COMPANY);
  EXPECT_EQ(info.Text("LegalCopyright"), PROMOTER_COPYRIGHT);
  EXPECT_EQ(info.Text("OriginalFilename"), file);
}

TEST(Version, IsTheProjectsInTheControlAndItsContainer) {
  const VersionInfo control{test::OcxPath()};
  ExpectShown(control, "DistPromoterProg.ocx");
  EXPECT_EQ(control.Text("FileDescription"), "Promoter programs of the distribution");
  // Designers offer to register only those that say so.
  EXPECT_EQ(control.Text("OLESelfRegister"), "");
  const VersionInfo container{Wide(PROMOTER_CONTAINER)};
  ExpectShown(container, "activex-host.exe");
  EXPECT_EQ(container.Text("FileDescription"), "Trial container of DistPromoterProg");
}

}  // namespace
