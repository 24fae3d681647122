#pragma once

#include <ocidl.h>

#include <functional>
#include <vector>

#include "Library.h"

namespace activex {

/// One kind of listener that the control takes.
class ConnectionPoint final : public Part<IConnectionPoint> {
 public:
  struct Connection {
    ComPtr<IUnknown> listener;
    DWORD cookie;
  };

  ConnectionPoint(IUnknown& whole, IConnectionPointContainer& container, REFIID listener)
      : Part(whole), container_(container), listener_(listener) {}

  REFIID Listener() const { return listener_; }
  /// A copy, as a listener may come or go while it is told something.
  std::vector<Connection> Connections() const { return connections_; }

  /// A point is an object of its own within the control.
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override;
  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* id) noexcept override;
  HRESULT STDMETHODCALLTYPE
  GetConnectionPointContainer(IConnectionPointContainer** container) noexcept override;
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* listener, DWORD* cookie) noexcept override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) noexcept override;
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) noexcept override;

 private:
  IConnectionPointContainer& container_;
  IID listener_;
  std::vector<Connection> connections_;
  DWORD lastCookie_ = 0;
};

/// Who listens to the control: for changes of its properties, and for its events, of which there
/// are none.
class Connections final : public Part<IConnectionPointContainer, IProvideClassInfo2> {
 public:
  explicit Connections(IUnknown& whole);

  ConnectionPoint& Properties() { return properties_; }
  ConnectionPoint& Events() { return events_; }
  /// Tells everyone who listens for it that a property was changed.
  void PropertyChanged(DISPID member) const;

  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) noexcept override;
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id,
                                                IConnectionPoint** point) noexcept override;

  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) noexcept override;
  HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* id) noexcept override;

 private:
  ConnectionPoint properties_;
  ConnectionPoint events_;
};

}  // namespace activex
