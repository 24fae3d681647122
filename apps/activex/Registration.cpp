#include "Registration.h"

#include <array>
#include <string>
#include <vector>

#include "DistPromoterProg_h.h"
#include "Library.h"
#include "adapters/windows/Wide.h"

namespace activex {

namespace {

using adapters::windows::Wide;

/// Who else may need a key: the library of the other word size stands beside this one.
enum class Shared { kNo, kYes };

struct Entry {
  const char* key;
  const char* name;  // empty: the key's own value
  const char* data;
  Shared shared = Shared::kNo;
};

// Below Software\Classes. Words in braces and lower case are filled in; see Fill. 40FC6ED4 is the
// category of controls, 40FC6ED5 that of objects for programs. It is in no category of those that
// are safe in a web page: whoever sets the connection string reaches a database. 00020424 passes
// the calls of an automation interface between threads by its type library, 00020420 those of an
// event interface.
constexpr std::array kEntries{
    Entry{"{progid}", "", "{progid}", Shared::kYes},
    Entry{"{progid}\\CLSID", "", "{clsid}", Shared::kYes},
    Entry{"CLSID\\{clsid}", "", "{progid}"},
    Entry{"CLSID\\{clsid}\\ProgID", "", "{progid}"},
    Entry{"CLSID\\{clsid}\\VersionIndependentProgID", "", "{progid}"},
    Entry{"CLSID\\{clsid}\\InprocServer32", "", "{file}"},
    Entry{"CLSID\\{clsid}\\InprocServer32", "ThreadingModel", "Apartment"},
    Entry{"CLSID\\{clsid}\\Control", "", ""},
    Entry{"CLSID\\{clsid}\\Programmable", "", ""},
    Entry{"CLSID\\{clsid}\\MiscStatus", "", "0"},
    Entry{"CLSID\\{clsid}\\MiscStatus\\1", "", "{status}"},
    Entry{"CLSID\\{clsid}\\ToolboxBitmap32", "", "{file}, {bitmap}"},
    Entry{"CLSID\\{clsid}\\TypeLib", "", "{libid}"},
    Entry{"CLSID\\{clsid}\\Version", "", "1.0"},
    Entry{"CLSID\\{clsid}\\Implemented Categories\\{40FC6ED4-2438-11CF-A3DB-080036F12502}", "", ""},
    Entry{"CLSID\\{clsid}\\Implemented Categories\\{40FC6ED5-2438-11CF-A3DB-080036F12502}", "", ""},
    Entry{"Interface\\{iid}", "", "_DistPromoterProg"},
    Entry{"Interface\\{iid}\\ProxyStubClsid32", "", "{00020424-0000-0000-C000-000000000046}"},
    Entry{"Interface\\{iid}\\TypeLib", "", "{libid}"},
    Entry{"Interface\\{iid}\\TypeLib", "Version", "1.0"},
    Entry{"Interface\\{eventsid}", "", "__DistPromoterProg"},
    Entry{"Interface\\{eventsid}\\ProxyStubClsid32", "", "{00020420-0000-0000-C000-000000000046}"},
    Entry{"Interface\\{eventsid}\\TypeLib", "", "{libid}"},
    Entry{"Interface\\{eventsid}\\TypeLib", "Version", "1.0"},
    Entry{"TypeLib\\{libid}\\1.0", "", "Promoter programs of the distribution", Shared::kYes},
    Entry{"TypeLib\\{libid}\\1.0\\FLAGS", "", "2", Shared::kYes},
    Entry{"TypeLib\\{libid}\\1.0\\HELPDIR", "", "{folder}", Shared::kYes},
    Entry{"TypeLib\\{libid}\\1.0\\0\\{system}", "", "{file}"},
};

constexpr wchar_t kClasses[] = L"Software\\Classes";
constexpr const char* kSystem = sizeof(void*) == 8 ? "win64" : "win32";
constexpr const char* kOtherSystem = sizeof(void*) == 8 ? "win32" : "win64";

HKEY RootOf(Scope scope) {
  return scope == Scope::kMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

std::wstring IdText(REFGUID id) {
  wchar_t text[40];
  return {text, static_cast<std::size_t>(StringFromGUID2(id, text, 40)) - 1};
}

/// The words in braces of the entries, as what they stand for here.
class Fill {
 public:
  explicit Fill(const char* system)
      : words_{{{L"{progid}", Wide(kProgId)},
                {L"{clsid}", IdText(CLSID_DistPromoterProg)},
                {L"{libid}", IdText(LIBID_comDistPromoterProg)},
                {L"{iid}", IdText(IID__DistPromoterProg)},
                {L"{eventsid}", IdText(DIID___DistPromoterProg)},
                {L"{status}", std::to_wstring(kMiscStatus)},
                {L"{bitmap}", std::to_wstring(kToolboxBitmap)},
                {L"{system}", Wide(system)},
                {L"{folder}", Folder()},
                {L"{file}", LibraryPath()}}} {}

  std::wstring operator()(const char* text) const {
    std::wstring filled = Wide(text);
    for (const auto& [word, meaning] : words_) {
      const std::size_t at = filled.find(word);
      if (at != std::wstring::npos) filled.replace(at, word.size(), meaning);
    }
    return filled;
  }

 private:
  static std::wstring Folder() {
    const std::wstring file = LibraryPath();
    return file.substr(0, file.find_last_of(L'\\'));
  }

  std::array<std::pair<std::wstring, std::wstring>, 10> words_;
};

/// A key of the registry, closed with this.
class Key {
 public:
  Key() = default;
  ~Key() {
    if (key_ != nullptr) RegCloseKey(key_);
  }
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;
  HKEY* Out() { return &key_; }
  HKEY Get() const { return key_; }

 private:
  HKEY key_ = nullptr;
};

LSTATUS Write(HKEY classes, const std::wstring& path, const std::wstring& name,
              const std::wstring& data) {
  Key key;
  const LSTATUS made =
      RegCreateKeyExW(classes, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, key.Out(), nullptr);
  if (made != ERROR_SUCCESS) return made;
  return RegSetValueExW(key.Get(), name.empty() ? nullptr : name.c_str(), 0, REG_SZ,
                        reinterpret_cast<const BYTE*>(data.c_str()),
                        static_cast<DWORD>((data.size() + 1) * sizeof(wchar_t)));
}

bool Exists(HKEY classes, const std::wstring& path) {
  Key key;
  return RegOpenKeyExW(classes, path.c_str(), 0, KEY_READ, key.Out()) == ERROR_SUCCESS;
}

bool IsEmpty(HKEY classes, const std::wstring& path) {
  Key key;
  DWORD keys = 0;
  DWORD values = 0;
  return RegOpenKeyExW(classes, path.c_str(), 0, KEY_READ, key.Out()) == ERROR_SUCCESS &&
         RegQueryInfoKeyW(key.Get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values,
                          nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS &&
         keys == 0 && values == 0;
}

/// The key with all below it, and then every key above it that was left with nothing.
LSTATUS Remove(HKEY classes, std::wstring path) {
  const LSTATUS removed = RegDeleteTreeW(classes, path.c_str());
  if (removed != ERROR_SUCCESS && removed != ERROR_FILE_NOT_FOUND) return removed;
  for (std::size_t end = path.rfind(L'\\'); end != std::wstring::npos; end = path.rfind(L'\\')) {
    path.resize(end);
    if (IsEmpty(classes, path)) RegDeleteKeyW(classes, path.c_str());
  }
  return ERROR_SUCCESS;
}

}  // namespace

HRESULT Register(Scope scope) {
  const Fill fill(kSystem);
  Key classes;
  LSTATUS status = RegCreateKeyExW(RootOf(scope), kClasses, 0, nullptr, 0, KEY_WRITE, nullptr,
                                   classes.Out(), nullptr);
  for (const Entry& entry : kEntries) {
    if (status != ERROR_SUCCESS) break;
    status = Write(classes.Get(), fill(entry.key), Wide(entry.name), fill(entry.data));
  }
  return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
}

HRESULT Unregister(Scope scope) {
  // Looking needs no rights: where nothing is registered there is nothing to be refused.
  Key readable;
  if (RegOpenKeyExW(RootOf(scope), kClasses, 0, KEY_READ, readable.Out()) != ERROR_SUCCESS) {
    return S_OK;
  }
  const Fill fill(kSystem);
  const bool keepShared =
      Exists(readable.Get(), Fill(kOtherSystem)("TypeLib\\{libid}\\1.0\\0\\{system}"));
  std::vector<std::wstring> doomed;
  for (auto entry = kEntries.rbegin(); entry != kEntries.rend(); ++entry) {
    if (entry->shared == Shared::kYes && keepShared) continue;
    std::wstring key = fill(entry->key);
    if (Exists(readable.Get(), key)) doomed.push_back(std::move(key));
  }
  if (doomed.empty()) return S_OK;
  Key classes;
  LSTATUS status =
      RegOpenKeyExW(RootOf(scope), kClasses, 0, KEY_READ | KEY_WRITE | DELETE, classes.Out());
  if (status != ERROR_SUCCESS) return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
  for (const std::wstring& key : doomed) {
    const LSTATUS removed = Remove(classes.Get(), key);
    if (status == ERROR_SUCCESS) status = removed;
  }
  return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
}

}  // namespace activex
