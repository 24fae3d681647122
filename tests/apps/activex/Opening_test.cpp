// What sessions cannot say: arguments in every form, threads, aggregation.

#include <gtest/gtest.h>

#include <thread>

#include "Container.h"
#include "LoadedLibrary.h"
#include "adapters/windows/Found.h"

namespace {

using adapters::windows::ComPtr;
using adapters::windows::Utf8;
using adapters::windows::Variant;
using test::As;
using test::Container;
using test::FindForm;

using Opening = test::OfficeTest;

/// Windows of the module: all of the thread's but the container's.
std::ptrdiff_t Forms() {
  return std::ssize(test::ShownWindows()) - 1;
}

constexpr char kEditor[] = "برنامه بازارياب";

HWND OwnerOfEditor() {
  return GetWindow(FindForm(kEditor), GW_OWNER);
}

TEST_F(Opening, View_WithALongInAnyForm_OpensTheEditorAndAnswersFalse) {
  Container container;
  // A user without rights is refused, without a word where there is no message component.
  auto control = NewFor(3, container);
  EXPECT_FALSE(Late(control).Call("ClearShow").Flag());
  EXPECT_EQ(Forms(), 0);

  Late(control).Put("UserID", 1);
  LONG number = 1;
  double real = 1;
  BSTR text = SysAllocString(L"1");
  Variant inner("1");
  VARIANT forms[6]{};
  forms[0] = {{{VT_I4, 0, 0, 0, {.lVal = 1}}}};
  forms[1] = {{{VT_BYREF | VT_I4, 0, 0, 0, {.plVal = &number}}}};
  forms[2] = {{{VT_BYREF | VT_R8, 0, 0, 0, {.pdblVal = &real}}}};
  forms[3] = {{{VT_BYREF | VT_BSTR, 0, 0, 0, {.pbstrVal = &text}}}};
  forms[4] = {{{VT_BYREF | VT_VARIANT, 0, 0, 0, {.pvarVal = const_cast<VARIANT*>(&inner.Raw())}}}};
  forms[5] = {{{VT_I2, 0, 0, 0, {.iVal = 1}}}};
  for (VARIANT& form : forms) {
    DISPPARAMS parameters{&form, nullptr, 1, 0};
    Variant opened(true);
    EXPECT_EQ(control->Invoke(2, IID_NULL, 0, DISPATCH_METHOD, &parameters, opened.Out(), nullptr,
                              nullptr),
              S_OK);
    EXPECT_FALSE(opened.Flag());
    EXPECT_EQ(Forms(), 1);
  }
  EXPECT_EQ(real, 1.0);
  EXPECT_EQ(Utf8(text), "1");
  EXPECT_EQ(inner.Text(), "1");
  SysFreeString(text);
  VARIANT_BOOL opened = VARIANT_TRUE;
  EXPECT_EQ(control->View(&number, &opened), S_OK);
  EXPECT_EQ(opened, VARIANT_FALSE);
  EXPECT_EQ(number, 1);

  // The container lets go of the control while the editor is open.
  As<IOleObject>(control)->SetClientSite(nullptr);
  control.Reset();
  EXPECT_EQ(Forms(), 0);
  EXPECT_EQ(container.References(), 0U);
}

TEST_F(Opening, Controls_OfTwoThreads_HaveAnEditorEach) {
  Container container;
  const auto control = NewFor(1, container);
  Late(control).Call("ClearShow");
  const HWND editor = FindForm(kEditor);
  std::thread([this] {
    OleInitialize(nullptr);
    {
      Container own;
      auto another = NewFor(1, own);
      Late(another).Call("ClearShow");
      EXPECT_EQ(Forms(), 1);
      EXPECT_EQ(OwnerOfEditor(), own.Window());
      As<IOleObject>(another)->SetClientSite(nullptr);
      another.Reset();
      EXPECT_EQ(Forms(), 0);
    }
    OleUninitialize();
  }).join();
  EXPECT_EQ(FindForm(kEditor), editor);
  As<IOleObject>(control)->SetClientSite(nullptr);
}

TEST_F(Opening, CreateInstance_IntoAnotherObject_SharesItsIdentity) {
  test::Bag outer;
  ComPtr<IClassFactory> factory = Factory();
  ComPtr<IOleObject> none;
  EXPECT_EQ(factory->CreateInstance(&outer, IID_IOleObject, none.OutVoid()), CLASS_E_NOAGGREGATION);
  ComPtr<IUnknown> inner;
  ASSERT_EQ(factory->CreateInstance(&outer, IID_IUnknown, inner.OutVoid()), S_OK);
  EXPECT_EQ(outer.References(), 0U);
  {
    const auto object = As<IOleObject>(inner);
    EXPECT_EQ(outer.References(), 1U);
    EXPECT_TRUE(As<IPropertyBag>(object));
    EXPECT_FALSE(As<IViewObject2>(object));
  }
  EXPECT_EQ(outer.References(), 0U);
}

}  // namespace
