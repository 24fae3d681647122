// What sessions cannot say of the control: its types, connections, arguments in every form, threads
// and aggregation.

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
using test::Bag;
using test::Container;
using test::FindForm;
using Control = test::OfficeTest;

TEST_F(Control, TypeLibrary_OfTheFile_ListsTheMembersInTheirOrder) {
  ComPtr<ITypeLib> types;
  ASSERT_EQ(LoadTypeLibEx(test::OcxPath().c_str(), REGKIND_NONE, types.Out()), S_OK);
  ComPtr<ITypeInfo> dispatch;
  ASSERT_EQ(types->GetTypeInfoOfGuid(IID__DistPromoterProg, dispatch.Out()), S_OK);
  HREFTYPE vtable = 0;
  ComPtr<ITypeInfo> info;
  ASSERT_EQ(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &vtable), S_OK);
  ASSERT_EQ(dispatch->GetRefTypeInfo(vtable, info.Out()), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
  constexpr WORD kCallable = TYPEFLAG_FDUAL | TYPEFLAG_FOLEAUTOMATION | TYPEFLAG_FDISPATCHABLE;
  EXPECT_EQ(attributes->wTypeFlags & kCallable, kCallable);
  info->ReleaseTypeAttr(attributes);
  std::string members;
  for (UINT i = 0; i < 10; ++i) {
    FUNCDESC* function = nullptr;
    ASSERT_EQ(info->GetFuncDesc(i, &function), S_OK);
    BSTR name = nullptr;
    UINT names = 0;
    info->GetNames(function->memid, &name, 1, &names);
    // The seven places before are those of IUnknown and IDispatch.
    members += std::to_string(function->oVft / static_cast<int>(sizeof(void*)) - 7) + " " +
               std::to_string(function->memid) + " " + Utf8(name) + ", ";
    SysFreeString(name);
    info->ReleaseFuncDesc(function);
  }
  EXPECT_EQ(members,
            "0 1 ClearShow, 1 2 View, 2 3 UserID, 3 3 UserID, 4 4 EmployeeID, 5 4 EmployeeID, "
            "6 5 PositionID, 7 5 PositionID, 8 6 OLEConnectionString, 9 6 OLEConnectionString, ");
}

TEST_F(Control, Put_OfAProperty_MarksTheControlAndTellsTheRightMember) {
  Container container;
  const auto control = New();
  QACONTAINER given{};
  given.cbSize = sizeof given;
  given.pClientSite = &container;
  given.pPropertyNotifySink = &container;
  QACONTROL taken{};
  taken.cbSize = sizeof taken;
  ASSERT_EQ(As<IQuickActivate>(control)->QuickActivate(&given, &taken), S_OK);
  EXPECT_EQ(taken.dwMiscStatus, 131473U);
  const auto persist = As<IPersistStreamInit>(control);
  EXPECT_EQ(persist->IsDirty(), S_FALSE);
  for (const char* name : {"UserID", "EmployeeID", "PositionID", "OLEConnectionString"}) {
    Bag bag;
    As<IPersistPropertyBag>(control)->Save(&bag, TRUE, FALSE);
    EXPECT_EQ(persist->IsDirty(), S_FALSE);
    Late(control).Put(name, 8);
    EXPECT_EQ(persist->IsDirty(), S_OK) << name;
  }
  EXPECT_EQ(container.changed, (std::vector<DISPID>{3, 3, 5, 6}));

  ComPtr<IConnectionPoint> point;
  const auto points = As<IConnectionPointContainer>(control);
  ASSERT_EQ(points->FindConnectionPoint(IID_IPropertyNotifySink, point.Out()), S_OK);
  ComPtr<IEnumConnections> connections;
  CONNECTDATA connection{};
  ASSERT_EQ(point->EnumConnections(connections.Out()), S_OK);
  ASSERT_EQ(connections->Next(1, &connection, nullptr), S_OK);
  EXPECT_EQ(connection.dwCookie, taken.dwPropNotifyCookie);
  connection.pUnk->Release();
  connections.Reset();
  EXPECT_EQ(point->Unadvise(taken.dwPropNotifyCookie), S_OK);
  EXPECT_EQ(point->Unadvise(taken.dwPropNotifyCookie), CONNECT_E_NOCONNECTION);
  control->put_UserID(9);
  EXPECT_EQ(container.changed.size(), 4U);
  GUID source{};
  EXPECT_EQ(As<IProvideClassInfo2>(control)->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &source),
            S_OK);
  EXPECT_EQ(points->FindConnectionPoint(source, point.Out()), S_OK);
  As<IOleObject>(control)->SetClientSite(nullptr);
  EXPECT_EQ(container.References(), 0U);
}

/// Windows of the module: all of the thread's but the container's.
std::ptrdiff_t Forms() {
  return std::ssize(test::ShownWindows()) - 1;
}

constexpr char kEditor[] = "برنامه بازارياب";

HWND OwnerOfEditor() {
  return GetWindow(FindForm(kEditor), GW_OWNER);
}

TEST_F(Control, View_WithALongInAnyForm_OpensTheEditorAndAnswersFalse) {
  Container container;
  auto control = NewFor(1, container);
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

TEST_F(Control, Controls_OfTwoThreads_HaveAnEditorEach) {
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

TEST_F(Control, CreateInstance_IntoAnotherObject_SharesItsIdentity) {
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
