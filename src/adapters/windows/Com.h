#pragma once

#include <windows.h>

#include <oleauto.h>

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "platform/RuntimeError.h"

namespace adapters::windows {

/// A counted reference to a COM object.
template <typename Interface>
class ComPtr {
 public:
  ComPtr() = default;
  /// Takes over a reference that the caller owns.
  static ComPtr Adopt(Interface* owned) {
    ComPtr pointer;
    pointer.object_ = owned;
    return pointer;
  }
  /// Adds a reference of its own.
  static ComPtr Share(Interface* object) {
    if (object != nullptr) object->AddRef();
    return Adopt(object);
  }
  ComPtr(const ComPtr& other) : object_(other.object_) {
    if (object_ != nullptr) object_->AddRef();
  }
  ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComPtr() { Reset(); }

  void Reset() {
    if (Interface* const object = std::exchange(object_, nullptr)) object->Release();
  }
  Interface* Get() const { return object_; }
  Interface* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }
  /// For out parameters; gives up what it held.
  Interface** Out() {
    Reset();
    return &object_;
  }
  void** OutVoid() { return reinterpret_cast<void**>(Out()); }
  /// The object's other interface; empty where it has none.
  template <typename Other>
  ComPtr<Other> As(REFIID id) const {
    ComPtr<Other> other;
    if (object_ != nullptr) object_->QueryInterface(id, other.OutVoid());
    return other;
  }

 private:
  Interface* object_ = nullptr;
};

/// A text of automation, freed with this.
class Bstr {
 public:
  explicit Bstr(std::string_view utf8);
  ~Bstr() { SysFreeString(text_); }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  BSTR Get() const { return text_; }
  BSTR Release() { return std::exchange(text_, nullptr); }

 private:
  BSTR text_;
};

/// A VARIANT, cleared with this.
class Variant {
 public:
  Variant() = default;
  Variant(bool value);
  Variant(std::int32_t value);
  Variant(double value);
  Variant(std::string_view text);
  Variant(const std::string& text) : Variant(std::string_view(text)) {}
  Variant(const char* text) : Variant(std::string_view(text)) {}
  Variant(IDispatch* object);
  /// "No argument given" for an optional one.
  static Variant Missing();
  static Variant Null();
  Variant(const Variant& other);
  Variant(Variant&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
  Variant& operator=(Variant other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  ~Variant() { VariantClear(&value_); }

  VARTYPE Type() const { return value_.vt; }
  bool IsNull() const { return value_.vt == VT_NULL || value_.vt == VT_EMPTY; }
  const VARIANT& Raw() const { return value_; }
  /// For out parameters; gives up what it held.
  VARIANT* Out() {
    VariantClear(&value_);
    return &value_;
  }
  /// The three convert, without the machine's locale, and throw RuntimeError 13 when they cannot.
  std::int32_t Number() const;
  bool Flag() const;
  std::string Text() const;
  /// Empty when the value is no object.
  ComPtr<IDispatch> Object() const;

 private:
  Variant As(VARTYPE type) const;
  VARIANT value_{};  // which is VT_EMPTY
};

/// The text of a system error or of a failed HRESULT, without the line break at its end.
std::string SystemText(HRESULT result);
/// The number that a Windows host knows a failed HRESULT by: the low word of a control's error
/// (0x800A....), else the whole of it. Automation's own results (DISP_E_...) become the run-time
/// errors that stand for them: 13, 438, 448, 450, ...
std::int32_t ErrorNumberOf(HRESULT result);
/// Throws RuntimeError for a failed result, with the error info of the thread, if there is one.
void Check(HRESULT result, std::string_view source = {});

/// An object reached by the names of its members ("late bound"). A failing member throws
/// RuntimeError with the number, description and source that the object gave; one that does not
/// exist throws 438.
class Dispatch {
 public:
  Dispatch() = default;
  explicit Dispatch(ComPtr<IDispatch> object) : object_(std::move(object)) {}
  /// Throws RuntimeError 429 when the component is not registered or cannot be made.
  static Dispatch Create(std::string_view progId);

  explicit operator bool() const { return static_cast<bool>(object_); }
  IDispatch* Get() const { return object_.Get(); }
  Variant Property(std::string_view name, std::span<const Variant> arguments = {}) const;
  Dispatch Child(std::string_view name, std::span<const Variant> arguments = {}) const;
  void Put(std::string_view name, const Variant& value) const;
  /// `Set object.name = value`.
  void PutReference(std::string_view name, const Variant& value) const;
  Variant Call(std::string_view name, std::span<const Variant> arguments = {}) const;
  Variant Call(std::string_view name, std::initializer_list<Variant> arguments) const {
    return Call(name, std::span(arguments.begin(), arguments.size()));
  }

 private:
  Variant Invoke(std::string_view name, WORD kind, std::span<const Variant> arguments) const;
  ComPtr<IDispatch> object_;
};

}  // namespace adapters::windows
