#include "adapters/windows/StandInAdo.h"

#include <ocidl.h>
#include <olectl.h>

#include <algorithm>
#include <memory>

namespace adapters::windows {

namespace {

using Arguments = StandIn::Arguments;

void Require(bool condition, std::int32_t number, const char* text) {
  if (!condition) throw platform::RuntimeError(number, text, "ADODB");
}

/// A collection of the object that is the object itself: the item asked for last is in `which`.
void AddCollection(StandIn& object, const char* name, const std::shared_ptr<std::size_t>& which) {
  object.On(name, [&object] { return Variant(&object); });
  object.On("Item", [&object, which](const Arguments& a) {
    *which = static_cast<std::size_t>(a.at(0).Number());
    return Variant(&object);
  });
}

/// Two dimensions, (field, row), as GetRows gives them.
Variant RowsArray(const StandInAdo::Result& result) {
  SAFEARRAYBOUND bounds[2] = {{static_cast<ULONG>(result.columns.size()), 0},
                              {static_cast<ULONG>(result.rows.size()), 0}};
  Variant array;
  VARIANT* const raw = array.Out();
  raw->parray = SafeArrayCreate(VT_VARIANT, 2, bounds);
  raw->vt = VT_ARRAY | VT_VARIANT;
  LONG place[2] = {0, 0};
  for (const std::vector<Variant>& row : result.rows) {
    place[0] = 0;
    for (const Variant& cell : row) {
      SafeArrayPutElement(raw->parray, place, const_cast<VARIANT*>(&cell.Raw()));
      ++place[0];
    }
    ++place[1];
  }
  return array;
}

}  // namespace

/// The one place at which the connection's events can be heard, under the interface of ADO 2.8.
class StandInAdo::Events final : public IConnectionPointContainer, public IConnectionPoint {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
    *object = static_cast<IConnectionPointContainer*>(this);
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) override {
    *point = this;
    return id == kId ? S_OK : CONNECT_E_NOCONNECTION;
  }
  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer**) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* given, DWORD*) override {
    return given->QueryInterface(kId, sink_.OutVoid());
  }
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD) override {
    sink_.Reset();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }
  void Tell(std::int32_t rows) {
    VARIANT arguments[6]{};
    arguments[5].vt = VT_I4;
    arguments[5].lVal = rows;
    DISPPARAMS parameters{arguments, nullptr, 6, 0};
    if (!sink_) return;
    sink_->Invoke(5, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
  }

 private:
  static constexpr IID kId{
      0x00001400, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x6D, 0x2E, 0xA4}};
  ComPtr<IDispatch> sink_;
};

StandInAdo::StandInAdo() : events_(std::make_unique<Events>()) {}
StandInAdo::~StandInAdo() = default;

bool StandInAdo::Arrive(const std::string& what, bool waitedFor) {
  log.push_back(what);
  if (failures.empty()) return true;
  const std::vector<Error> failure = std::move(failures.front());
  failures.pop_front();
  if (failure.empty()) return true;
  if (failure[0].state != kAdoAlone) errors_ = failure;
  if (!waitedFor && failure[0].state != kAdoAlone) return false;
  throw platform::RuntimeError(-2147217900, failure[0].text, "Provider");
}

void StandInAdo::LetWork(StandIn& object, const Work& work, std::int32_t state,
                         const std::function<std::int32_t()>& otherwise) {
  object.On("State", [=] {
    if (*work > 0) return Variant(--*work > 0 ? state : otherwise());
    return Variant(otherwise());
  });
  object.On("Cancel", [=, this] {
    log.emplace_back("cancel");
    if (!heedsCancel || *work == 0) return;
    *work = 0;
    errors_ = {{"HY008", 0, "Operation canceled."}};
  });
}

Variant StandInAdo::MakeConnection() {
  errors_.clear();  // those of the connection before
  const auto made = StandIn::Make();
  const auto work = std::make_shared<int>(0);
  made->other = [this](REFIID id) -> IConnectionPointContainer* {
    return id == __uuidof(IConnectionPointContainer) ? events_.get() : nullptr;
  };
  made->OnOther([this](const std::string& property, const Arguments& value) -> Variant {
    log.push_back(property + value.at(0).Text());
    return {};
  });
  LetWork(*made.Get(), work, 2, [=, this] { return open_ && *work == 0 ? 1 : 0; });
  made->On("Open", [=, this](const Arguments& arguments) {
    const bool later = arguments.size() > 3 && arguments[3].Number() == 16;
    open_ = Arrive("connect " + arguments.at(0).Text(), !later);
    if (later) *work = slow;
  });
  made->On("Close", [this] {
    log.emplace_back("close");
    open_ = false;
  });
  const auto which = std::make_shared<std::size_t>(0);
  const auto error = [=, this]() -> const Error& { return errors_.at(*which); };
  AddCollection(*made.Get(), "Errors", which);
  made->On("Count", [this] { return Variant(static_cast<std::int32_t>(errors_.size())); });
  made->On("Clear", [this] { errors_.clear(); });
  made->On("SQLState", [=] { return Variant(error().state); });
  made->On("NativeError", [=] { return Variant(error().native); });
  made->On("Description", [=] { return Variant(error().text); });
  made->On("Number", -2147217900).On("Source", "Provider");
  return made.Get();
}

Variant StandInAdo::MakeRecordset(std::vector<Result> given) {
  const auto made = StandIn::Make();
  const auto results = std::make_shared<std::vector<Result>>(std::move(given));
  const auto work = std::make_shared<int>(0);
  const auto isOpen = [results] { return !results->empty() && !results->front().columns.empty(); };
  const auto now = [=]() -> Result& {
    Require(isOpen(), 3704, "Operation is not allowed when the object is closed.");
    return results->front();
  };
  made->On("Open", [=, this](const Arguments& a) {
    // Source, connection, adOpenForwardOnly, adLockReadOnly, adCmdText
    const bool right = a.size() == 5 && a[1].Object() && a[2].Number() == 0 && a[3].Number() == 1 &&
                       (a[4].Number() & ~16) == 1;
    Require(right, 3001, "Arguments are of the wrong type.");
    const bool later = (a[4].Number() & 16) != 0;
    if (Arrive(a[0].Text(), !later)) *results = answers[a[0].Text()];
    const auto rows = affected.find(a[0].Text());
    if (rows != affected.end()) events_->Tell(rows->second);
    if (later) *work = slow;
  });
  LetWork(*made.Get(), work, 4, [=] { return isOpen() ? 1 : 0; });
  made->On("EOF", [=] { return Variant(now().rows.empty()); });
  const auto which = std::make_shared<std::size_t>(0);
  AddCollection(*made.Get(), "Fields", which);
  made->On("Count", [=] { return Variant(static_cast<std::int32_t>(now().columns.size())); });
  made->On("Name", [=] { return Variant(now().columns.at(*which)); });
  made->On("GetRows", [=](const Arguments& a) {
    Require(!now().rows.empty(), 3021, "Either BOF or EOF is True.");
    std::vector<std::vector<Variant>>& rows = now().rows;
    const auto end = rows.begin() + std::min<std::ptrdiff_t>(a.at(0).Number(), std::ssize(rows));
    const Variant block = RowsArray({now().columns, {rows.begin(), end}});
    rows.erase(rows.begin(), end);
    return block;
  });
  made->On("NextRecordset", [=, this] {
    if (results->empty()) now();  // raises
    if (results->size() < 2) return Variant(static_cast<IDispatch*>(nullptr));
    Arrive("next");
    return MakeRecordset({results->begin() + 1, results->end()});
  });
  return made.Get();
}

Variant StandInAdo::MakeCommand() {
  const auto made = StandIn::Make();
  const auto call = std::make_shared<std::string>("call");
  const auto parameter = std::make_shared<std::string>();
  StandIn* const self = made.Get();
  made->OnOther([=](const std::string& property, const Arguments& value) -> Variant {
    *call += " " + property + value.at(0).Text();
    return {};
  });
  made->On("ActiveConnection=", [](const Arguments& value) {
    Require(static_cast<bool>(value[0].Object()), 3001, "Arguments are of the wrong type.");
  });
  made->On("CreateParameter", [=](const Arguments& a) {
    *parameter = "; " + a.at(0).Text();
    for (std::size_t i = 1; i < 4; ++i) *parameter += " " + a.at(i).Text();
    if (a.at(4).Type() != VT_ERROR) *parameter += " " + a[4].Text();
    return Variant(self);
  });
  made->On("Parameters", [=] { return Variant(self); });
  made->On("Append", [=](const Arguments& a) {
    Require(a.at(0).Object().Get() == self, 3001, "Arguments are of the wrong type.");
    *call += *parameter;
  });
  made->On("Item", [=](const Arguments& a) {
    Require(a.at(0).Text() == "@RETURN_VALUE", 3265, "Item cannot be found.");
    return Variant(self);
  });
  made->On("Value", [this] { return Variant(returned); });
  const auto work = std::make_shared<int>(0);
  LetWork(*made.Get(), work, 4, [] { return 0; });
  made->On("Execute", [=, this](const Arguments& a) {
    const bool later = (a.at(2).Number() & 16) != 0;
    Arrive(*call + "; Options=" + a.at(2).Text(), !later);
    if (later) *work = slow;
  });
  return made.Get();
}

}  // namespace adapters::windows
