#include "adapters/windows/AdoEvents.h"

#include <array>
#include <span>

#include "adapters/windows/ComObject.h"

namespace adapters::windows {

namespace {

// The events of an ADO connection, as versions from 2.8 and those before call them.
constexpr std::array<IID, 2> kConnectionEvents{
    IID{0x00001400, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x6D, 0x2E, 0xA4}},
    IID{0x00000400, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x6D, 0x2E, 0xA4}}};
constexpr DISPID kExecuteComplete = 5;
// Its arguments, which automation hands over from the last to the first: the rows, then error,
// status, command, recordset and connection.
constexpr UINT kArguments = 6;

bool IsConnectionEvents(REFIID id) {
  return id == kConnectionEvents[0] || id == kConnectionEvents[1];
}

}  // namespace

class AdoEvents::Sink : public ComObject<IDispatch> {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override {
    return ComObject::QueryInterface(IsConnectionEvents(id) ? __uuidof(IDispatch) : id, object);
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                                   EXCEPINFO*, UINT*) override {
    if (id != kExecuteComplete || parameters->cArgs != kArguments || heard) return S_OK;
    const VARIANT& rows = std::span(parameters->rgvarg, kArguments).back();
    heard = true;
    if (rows.vt == VT_I4 && rows.lVal >= 0) affectedRows = rows.lVal;
    return S_OK;
  }

  bool heard = false;
  std::optional<std::int64_t> affectedRows;
};

AdoEvents::AdoEvents(const Dispatch& connection) : sink_(ComPtr<Sink>::Adopt(new Sink)) {
  const auto container = ComPtr<IDispatch>::Share(connection.Get())
                             .As<IConnectionPointContainer>(__uuidof(IConnectionPointContainer));
  if (!container) return;
  for (const IID& events : kConnectionEvents) {
    ComPtr<IConnectionPoint> point;
    if (FAILED(container->FindConnectionPoint(events, point.Out()))) continue;
    if (FAILED(point->Advise(sink_.Get(), &cookie_))) continue;
    point_ = std::move(point);
    return;
  }
}

AdoEvents::~AdoEvents() {
  if (point_) point_->Unadvise(cookie_);
}

void AdoEvents::Forget() {
  sink_->heard = false;
  sink_->affectedRows.reset();
}

bool AdoEvents::Heard() const {
  return sink_->heard;
}

std::optional<std::int64_t> AdoEvents::AffectedRows() const {
  return sink_->affectedRows;
}

}  // namespace adapters::windows
