#include <gtest/gtest.h>
#include <windows.h>

#include <set>
#include <string>

#include "LoadedLibrary.h"

namespace {

using adapters::windows::Utf8;
using adapters::windows::Wide;
using test::kProgId;
using Registration = test::LoadedLibrary;
using Call = HRESULT(STDAPICALLTYPE*)();
using Install = HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR);

void AddKeys(HKEY parent, const std::wstring& path, std::set<std::wstring>& keys) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
  wchar_t name[256];
  for (DWORD i = 0, size = 256;
       RegEnumKeyExW(key, i, name, &size, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
       ++i, size = 256) {
    keys.insert(path + L"\\" + name);
    AddKeys(parent, path + L"\\" + name, keys);
  }
  RegCloseKey(key);
}

std::set<std::wstring> Keys(HKEY root) {
  std::set<std::wstring> keys;
  AddKeys(root, L"Software\\Classes", keys);
  return keys;
}

std::string Value(HKEY root, const std::string& path, const wchar_t* name = nullptr) {
  wchar_t value[400];
  DWORD size = sizeof value;
  const std::string full = "Software\\Classes\\" + path;
  return RegGetValueW(root, Wide(full).c_str(), name, RRF_RT_REG_SZ, nullptr, value, &size) ==
                 ERROR_SUCCESS
             ? Utf8(value)
             : "none";
}

std::string IdText(REFGUID id) {
  wchar_t text[40];
  StringFromGUID2(id, text, 40);
  return Utf8(text);
}

const std::string kTypes = "TypeLib\\" + IdText(LIBID_comDistPromoterProg) + "\\1.0\\";

/// What a container and its designer look up of a control.
void ExpectKeys(HKEY root) {
  const std::string file = Utf8(test::OcxPath());
  const std::string key = "CLSID\\" + IdText(CLSID_DistPromoterProg);
  EXPECT_EQ(Value(root, std::string(kProgId) + "\\CLSID"), IdText(CLSID_DistPromoterProg));
  EXPECT_EQ(Value(root, key + "\\ProgID"), kProgId);
  EXPECT_EQ(Value(root, key + "\\InprocServer32"), file);
  EXPECT_EQ(Value(root, key + "\\InprocServer32", L"ThreadingModel"), "Apartment");
  EXPECT_EQ(Value(root, key + "\\MiscStatus\\1"), "131473");
  EXPECT_EQ(Value(root, key + "\\ToolboxBitmap32"), file + ", 101");
  EXPECT_EQ(Value(root, key + "\\Control"), "");
  EXPECT_EQ(Value(root, key + "\\Insertable"), "none");
  EXPECT_EQ(Value(root, kTypes + "0\\win64"), file);
}

TEST_F(Registration, RegisterAndUnregister_ForMachineAndUser_LeaveNoKeyBehind) {
  const auto machine = Keys(HKEY_LOCAL_MACHINE);
  const auto user = Keys(HKEY_CURRENT_USER);
  ASSERT_EQ(Export<Call>("DllRegisterServer")(), S_OK);
  EXPECT_EQ(Keys(HKEY_CURRENT_USER), user);
  ExpectKeys(HKEY_LOCAL_MACHINE);
  ASSERT_EQ(Export<Call>("DllRegisterServer")(), S_OK);
  EXPECT_EQ(Export<Call>("DllUnregisterServer")(), S_OK);
  EXPECT_EQ(Keys(HKEY_LOCAL_MACHINE), machine);
  EXPECT_EQ(Export<Call>("DllUnregisterServer")(), S_OK);

  ASSERT_EQ(Export<Install>("DllInstall")(TRUE, L"user"), S_OK);
  EXPECT_EQ(Keys(HKEY_LOCAL_MACHINE), machine);
  ExpectKeys(HKEY_CURRENT_USER);
  EXPECT_EQ(Export<Install>("DllInstall")(FALSE, L"user"), S_OK);
  EXPECT_EQ(Keys(HKEY_CURRENT_USER), user);
  EXPECT_EQ(Export<Install>("DllInstall")(TRUE, L"everyone"), E_INVALIDARG);
}

TEST_F(Registration, Unregister_WhileTheOtherWordSizeIsThere_LeavesWhatIsShared) {
  ASSERT_EQ(Export<Install>("DllInstall")(TRUE, L"user"), S_OK);
  const std::wstring other = Wide("Software\\Classes\\" + kTypes + "0\\win32");
  HKEY key = nullptr;
  RegCreateKeyW(HKEY_CURRENT_USER, other.c_str(), &key);
  RegCloseKey(key);
  const std::string name = std::string(kProgId) + "\\CLSID";
  EXPECT_EQ(Export<Install>("DllInstall")(FALSE, L"user"), S_OK);
  EXPECT_EQ(Value(HKEY_CURRENT_USER, name), IdText(CLSID_DistPromoterProg));
  EXPECT_EQ(Value(HKEY_CURRENT_USER, kTypes + "FLAGS"), "2");
  EXPECT_EQ(Value(HKEY_CURRENT_USER, kTypes + "0\\win64"), "none");
  RegDeleteTreeW(HKEY_CURRENT_USER, other.c_str());
  EXPECT_EQ(Export<Install>("DllInstall")(FALSE, L"user"), S_OK);
  EXPECT_EQ(Value(HKEY_CURRENT_USER, name), "none");
}

}  // namespace
