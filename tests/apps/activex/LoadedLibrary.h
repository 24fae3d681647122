#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <ole2.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "Container.h"
#include "DistPromoterProg_h.h"
#include "adapters/windows/Com.h"
#include "adapters/windows/Wide.h"
#include "demo/SampleOffice.h"

namespace test {

using adapters::windows::ComPtr;

/// The built library's path, as Windows writes it.
inline std::wstring OcxPath() {
  std::wstring path = adapters::windows::Wide(PROMOTER_OCX);
  std::ranges::replace(path, L'/', L'\\');
  return path;
}

template <typename Interface, typename Object>
ComPtr<Interface> As(const ComPtr<Object>& object) {
  return object.template As<Interface>(__uuidof(Interface));
}

/// The library, loaded for every test and gone after it; fails when it does not want to go.
class LoadedLibrary : public testing::Test {
 protected:
  LoadedLibrary() {
    // Windows open where forms open, whatever the test before left behind.
    SetEnvironmentVariableW(L"DISTPROMOTER_FORGET_PLACES", L"1");
    library_ = LoadLibraryW(OcxPath().c_str());
  }
  ~LoadedLibrary() override {
    EXPECT_EQ(Export<HRESULT(STDAPICALLTYPE*)()>("DllCanUnloadNow")(), S_OK);
    FreeLibrary(library_);
    EXPECT_EQ(GetModuleHandleW(L"DistPromoterProg.ocx"), nullptr);
  }

  template <typename Function>
  Function Export(const char* name) const {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library_, name)));
  }
  ComPtr<IClassFactory> Factory() const {
    ComPtr<IClassFactory> factory;
    using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    EXPECT_EQ(Export<GetClassObject>("DllGetClassObject")(CLSID_DistPromoterProg, IID_IClassFactory,
                                                          factory.OutVoid()),
              S_OK);
    return factory;
  }
  ComPtr<_DistPromoterProg> New() const {
    ComPtr<_DistPromoterProg> control;
    EXPECT_EQ(Factory()->CreateInstance(nullptr, IID__DistPromoterProg, control.OutVoid()), S_OK);
    return control;
  }
  static adapters::windows::Dispatch Late(const ComPtr<_DistPromoterProg>& control) {
    return adapters::windows::Dispatch(As<IDispatch>(control));
  }

  HMODULE library_;
};

/// With a sample office, on a Saturday in its programs' month.
class OfficeTest : public LoadedLibrary {
 protected:
  OfficeTest() {
    std::remove(kOffice);
    demo::CreateSampleOffice(kOffice,
                             {.customers = 60,
                              .today = std::chrono::year(2025) / std::chrono::November / 22,
                              .basePath = {}});
  }
  ~OfficeTest() override { std::remove(kOffice); }
  /// A control in the container, for a user of the office.
  ComPtr<_DistPromoterProg> NewFor(std::int32_t user, Container& container) const {
    auto control = New();
    As<IOleObject>(control)->SetClientSite(&container);
    Late(control).Put("OLEConnectionString", "sqlite:" + std::string(kOffice));
    Late(control).Put("UserID", user);
    return control;
  }

  static constexpr char kOffice[] = "control-test.db";
};

}  // namespace test
