// View and ClearShow on a sample office: the editor opens in windows of its own.

#include <gtest/gtest.h>

#include <thread>

#include "Container.h"
#include "LoadedLibrary.h"
#include "Named.h"
#include "adapters/windows/Loop.h"

namespace {

using adapters::windows::ComPtr;
using adapters::windows::Once;
using adapters::windows::PostClick;
using adapters::windows::Pump;
using adapters::windows::PumpUntil;
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

/// Whom the editor shows as the one who makes the program.
std::string Creator() {
  const auto form = activexhost::MakeThing(FindForm(kEditor));
  return test::Named(*form, screens::Role::kComboBox, "ايجاد كننده").value;
}

HWND ButtonOfEditor(const char* caption) {
  return test::WindowNamed(FindForm(kEditor), screens::Role::kButton, caption);
}

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

TEST_F(Opening, Release_WhileAFormsEventIsUnderWay_EndsTheModuleAfterwardsUnlessShared) {
  for (const bool shared : {false, true}) {
    Container container;
    auto control = NewFor(1, container);
    const auto another = shared ? New() : ComPtr<_DistPromoterProg>();
    Late(control).Call("View", {std::int32_t{1}});
    PostClick(ButtonOfEditor("جستجو"));
    const auto searching = [] { return FindForm("جستجوي برنامه بازارياب"); };
    Once([&] { return searching() != nullptr; },
         [&] {
           control.Reset();
           PostMessageW(searching(), WM_CLOSE, 0, 0);
         });
    PumpUntil([&] { return container.References() == 0; });
    EXPECT_FALSE(control);
    EXPECT_EQ(container.References(), 0U);
    EXPECT_EQ(Forms(), shared ? 1 : 0);
    EXPECT_EQ(OwnerOfEditor(), nullptr);
  }
}

TEST_F(Opening, View_WhileTheHostShowsAModalForm_ReturnsWhenTheEditorIsClosed) {
  Container container;
  const auto control = NewFor(1, container);
  As<IOleInPlaceActiveObject>(control)->EnableModeless(FALSE);
  bool closedUnderModal = false;
  Once([] { return FindForm(kEditor) != nullptr; },
       [&] {
         closedUnderModal = !IsWindowEnabled(OwnerOfEditor());
         PostMessageW(FindForm(kEditor), WM_CLOSE, 0, 0);
       });
  EXPECT_FALSE(Late(control).Call("View", {std::int32_t{1}}).Flag());
  EXPECT_TRUE(closedUnderModal);
  EXPECT_EQ(Forms(), 0);
  EXPECT_TRUE(IsWindowEnabled(container.Window()));
  As<IOleInPlaceActiveObject>(control)->EnableModeless(TRUE);
  Late(control).Call("View", {std::int32_t{1}});
  EXPECT_EQ(Forms(), 1);
  As<IOleObject>(control)->Close(OLECLOSE_NOSAVE);
  EXPECT_EQ(Forms(), 0);
  As<IOleObject>(control)->SetClientSite(nullptr);
}

TEST_F(Opening, Controls_OfOneThread_ShareTheEditorTheLoginAndItsEnd) {
  Container first;
  auto one = NewFor(1, first);
  Late(one).Call("ClearShow");
  const HWND editor = FindForm(kEditor);
  const std::string user = Creator();
  EXPECT_EQ(OwnerOfEditor(), first.Window());
  {
    Container second;
    auto two = NewFor(2, second);
    Late(two).Call("ClearShow");
    EXPECT_EQ(FindForm(kEditor), editor);
    EXPECT_EQ(Forms() - 1, 1) << "beside the other container";
    EXPECT_NE(Creator(), user);
    EXPECT_EQ(OwnerOfEditor(), second.Window());
    As<IOleObject>(two)->SetClientSite(nullptr);
    EXPECT_EQ(OwnerOfEditor(), first.Window());
    As<IOleObject>(two)->SetClientSite(&second);
    Late(two).Call("ClearShow");
    As<IOleObject>(two)->Close(OLECLOSE_NOSAVE);
    EXPECT_EQ(OwnerOfEditor(), first.Window());
    Late(two).Call("ClearShow");
    As<IOleObject>(one)->SetClientSite(nullptr);
    one.Reset();
    EXPECT_EQ(OwnerOfEditor(), second.Window());
    one = NewFor(1, first);
    As<IOleObject>(two)->SetClientSite(nullptr);
  }
  EXPECT_EQ(FindForm(kEditor), editor);
  As<IOleObject>(one)->SetClientSite(nullptr);
  EXPECT_EQ(OwnerOfEditor(), nullptr);
  one.Reset();
  EXPECT_EQ(Forms(), 0);
}

TEST_F(Opening, Close_WithAHeaderOpen_AsksWhereItEndsTheEditorAndIsToSave) {
  std::int32_t answer = 0;
  int asked = 0;
  const adapters::windows::Component messages("comNotice.comNTC", [&] {
    const auto notice = adapters::windows::StandIn::Make();
    notice->On("ClearShow", [&asked] { ++asked; }).On("Resualt", [&answer] {
      return Variant(answer);
    });
    return Variant(notice.Get());
  });
  Container container;
  const auto control = NewFor(1, container);
  const auto object = As<IOleObject>(control);
  struct Closing {
    DWORD saving;
    bool another;
    bool windowGone;
    std::int32_t answer;
    HRESULT result;
    int asked;
    int forms;
  };
  constexpr HRESULT kRefused = OLE_E_PROMPTSAVECANCELLED;
  for (const Closing& c : {Closing{OLECLOSE_PROMPTSAVE, false, false, 0, kRefused, 1, 1},
                           {OLECLOSE_SAVEIFDIRTY, false, false, 0, kRefused, 1, 1},
                           {OLECLOSE_SAVEIFDIRTY, true, false, 0, S_OK, 0, 1},
                           {OLECLOSE_SAVEIFDIRTY, false, false, 1, S_OK, 1, 0},
                           {OLECLOSE_SAVEIFDIRTY, false, true, 0, S_OK, 0, 0},
                           {OLECLOSE_NOSAVE, false, false, 0, S_OK, 0, 0}}) {
    const auto other = c.another ? New() : ComPtr<_DistPromoterProg>();
    Late(control).Call("ClearShow");
    PostClick(ButtonOfEditor("جديد"));
    Pump();
    if (c.windowGone) DestroyWindow(FindForm(kEditor));
    asked = 0;
    answer = c.answer;
    container.calls.clear();
    EXPECT_EQ(object->Close(c.saving), c.result);
    EXPECT_EQ(asked, c.asked);
    EXPECT_EQ(Forms(), c.forms);
    EXPECT_EQ(container.calls.empty(), c.result != S_OK || c.saving == OLECLOSE_NOSAVE);
  }
  object->SetClientSite(nullptr);
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
