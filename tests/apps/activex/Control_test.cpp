// The control library as a container meets it: loaded by its path or by its name in the registry.

#include <gtest/gtest.h>

#include "Container.h"
#include "LoadedLibrary.h"

namespace {

using adapters::windows::ComPtr;
using adapters::windows::Utf8;
using adapters::windows::Variant;
using test::As;
using test::Bag;
using test::Container;
using test::kProgId;
using Control = test::LoadedLibrary;

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

}  // namespace
