#include "Connections.h"

#include <algorithm>

#include "DistPromoterProg_h.h"
#include "Enumerator.h"

namespace activex {

namespace {

CONNECTDATA GiveConnection(const ConnectionPoint::Connection& connection) {
  connection.listener->AddRef();
  return {connection.listener.Get(), connection.cookie};
}

IConnectionPoint* GivePoint(const ComPtr<IConnectionPoint>& point) {
  point->AddRef();
  return point.Get();
}

using ConnectionEnumerator =
    Enumerator<IEnumConnections, ConnectionPoint::Connection, CONNECTDATA, GiveConnection>;
using PointEnumerator =
    Enumerator<IEnumConnectionPoints, ComPtr<IConnectionPoint>, IConnectionPoint*, GivePoint>;

}  // namespace

HRESULT ConnectionPoint::QueryInterface(REFIID id, void** object) noexcept {
  if (object == nullptr) return E_POINTER;
  const bool known = id == IID_IUnknown || id == IID_IConnectionPoint;
  *object = known ? static_cast<IConnectionPoint*>(this) : nullptr;
  if (!known) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

HRESULT ConnectionPoint::GetConnectionInterface(IID* id) noexcept {
  if (id == nullptr) return E_POINTER;
  *id = listener_;
  return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(
    IConnectionPointContainer** container) noexcept {
  if (container == nullptr) return E_POINTER;
  *container = &container_;
  container_.AddRef();
  return S_OK;
}

HRESULT ConnectionPoint::Advise(IUnknown* listener, DWORD* cookie) noexcept {
  if (listener == nullptr || cookie == nullptr) return E_POINTER;
  *cookie = 0;
  return Guarded([&]() -> HRESULT {
    ComPtr<IUnknown> right;
    if (FAILED(listener->QueryInterface(listener_, right.OutVoid())))
      return CONNECT_E_CANNOTCONNECT;
    connections_.push_back({std::move(right), ++lastCookie_});
    *cookie = lastCookie_;
    return S_OK;
  });
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie) noexcept {
  const auto found = std::ranges::find(connections_, cookie, &Connection::cookie);
  if (found == connections_.end()) return CONNECT_E_NOCONNECTION;
  const ComPtr<IUnknown> listener = std::move(found->listener);
  connections_.erase(found);
  return S_OK;
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** connections) noexcept {
  if (connections == nullptr) return E_POINTER;
  *connections = nullptr;
  return Guarded([&] {
    *connections = new ConnectionEnumerator(connections_);
    return S_OK;
  });
}

Connections::Connections(IUnknown& whole)
    : Part(whole),
      properties_(whole, *this, IID_IPropertyNotifySink),
      events_(whole, *this, DIID___DistPromoterProg) {}

void Connections::PropertyChanged(DISPID member) const {
  for (const auto& connection : properties_.Connections()) {
    static_cast<IPropertyNotifySink*>(connection.listener.Get())->OnChanged(member);
  }
}

HRESULT Connections::EnumConnectionPoints(IEnumConnectionPoints** points) noexcept {
  if (points == nullptr) return E_POINTER;
  *points = nullptr;
  return Guarded([&] {
    *points = new PointEnumerator(
        {ComPtr<IConnectionPoint>::Share(&events_), ComPtr<IConnectionPoint>::Share(&properties_)});
    return S_OK;
  });
}

HRESULT Connections::FindConnectionPoint(REFIID id, IConnectionPoint** point) noexcept {
  if (point == nullptr) return E_POINTER;
  *point = nullptr;
  for (ConnectionPoint* const candidate : {&properties_, &events_}) {
    if (candidate->Listener() != id) continue;
    *point = candidate;
    candidate->AddRef();
    return S_OK;
  }
  return CONNECT_E_NOCONNECTION;
}

HRESULT Connections::GetClassInfo(ITypeInfo** info) noexcept {
  if (info == nullptr) return E_POINTER;
  *info = nullptr;
  return Guarded([&] {
    const ComPtr<ITypeInfo> found = TypeInfo(CLSID_DistPromoterProg);
    *info = found.Get();
    found->AddRef();
    return S_OK;
  });
}

HRESULT Connections::GetGUID(DWORD kind, GUID* id) noexcept {
  if (id == nullptr) return E_POINTER;
  const bool known = kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID;
  *id = known ? DIID___DistPromoterProg : GUID_NULL;
  return known ? S_OK : E_INVALIDARG;
}

}  // namespace activex
