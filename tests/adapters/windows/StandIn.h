#pragma once

#include <functional>
#include <map>
#include <string>
#include <type_traits>
#include <vector>

#include "adapters/windows/Com.h"
#include "adapters/windows/ComObject.h"

namespace adapters::windows {

/// An automation object whose members are functions of the test. A RuntimeError that one throws
/// reaches the caller as an automation exception.
class StandIn : public ComObject<IDispatch> {
 public:
  using Arguments = std::vector<Variant>;

  static ComPtr<StandIn> Make() { return ComPtr<StandIn>::Adopt(new StandIn); }

  /// Reads the property or calls the method `name`; "name=" is the property's writing. `member` is
  /// a function of the arguments, or of none, or the value itself.
  template <typename Member>
  StandIn& On(const std::string& name, Member member) {
    members_[name] = [member](const Arguments& arguments) mutable -> Variant {
      if constexpr (std::is_invocable_v<Member>) {
        return Answer(member);
      } else if constexpr (std::is_invocable_v<Member, const Arguments&>) {
        return Answer([&] { return member(arguments); });
      } else {
        return member;
      }
    };
    return *this;
  }

  /// Takes every member that On does not know; the name of a writing ends in "=", that of a call in
  /// "()".
  using Other = std::function<Variant(const std::string& name, const Arguments& arguments)>;
  void OnOther(Other answer) { other_ = std::move(answer); }

  /// Interfaces besides automation's: null for one that it has not.
  std::function<IUnknown*(REFIID id)> other;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override {
    IUnknown* const found = other ? other(id) : nullptr;
    return found != nullptr ? found->QueryInterface(id, object)
                            : ComObject::QueryInterface(id, object);
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters,
                                   VARIANT* answer, EXCEPINFO* info, UINT*) override;

 private:
  template <typename Function>
  static Variant Answer(const Function& function) {
    if constexpr (std::is_void_v<decltype(function())>) {
      function();
      return {};
    } else {
      return function();
    }
  }

  std::map<std::string, std::function<Variant(const Arguments&)>> members_;
  Other other_;
  std::vector<std::string> names_;  // by id
};

/// An object that has every member: writings and calls are noted in `log` with the way to them,
/// "Workbooks(1).Add()", and whatever is read is such an object too. As often as `busy` says, it
/// rejects a call like an application whose user is at work.
Variant Recorder(std::vector<std::string>& log, const std::string& way = {}, int* busy = nullptr);

/// A component of this program, registered under a programmatic id as long as this lives.
class Component {
 public:
  Component(const std::string& progId, std::function<Variant()> create);
  ~Component();
  Component(const Component&) = delete;
  Component& operator=(const Component&) = delete;

 private:
  std::wstring key_;
  DWORD cookie_ = 0;
};

}  // namespace adapters::windows
