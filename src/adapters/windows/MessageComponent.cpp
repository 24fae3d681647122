#include "adapters/windows/MessageComponent.h"

#include <algorithm>
#include <exception>

#include "adapters/windows/ComObject.h"
#include "adapters/windows/MessageDialog.h"
#include "adapters/windows/Wide.h"

namespace adapters::windows {

namespace {

enum Member : DISPID {
  kFormTitle = 1,
  kFormMessage,
  kFormType,
  kFormBackColor,
  kBtmBackColor,
  kFrameBackColor,
  kResualt,  // the suite's component spells it so
  kClearShow
};
struct NamedMember {
  const wchar_t* name;
  Member member;
};
constexpr NamedMember kMembers[] = {
    {L"FormTitle", kFormTitle},       {L"FormMessage", kFormMessage},
    {L"FormType", kFormType},         {L"FormBackColor", kFormBackColor},
    {L"BtmBackColor", kBtmBackColor}, {L"FrameBackColor", kFrameBackColor},
    {L"Resualt", kResualt},           {L"ClearShow", kClearShow},
};
constexpr std::int32_t kQuestion = 1;

/// One message after the other, as the suite's component: what was put stays until it is put anew.
class MessageComponent final : public ComObject<IDispatch> {
 public:
  explicit MessageComponent(ErrorGuard& guard) : guard_(guard) {}

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT /*index*/, LCID /*locale*/,
                                        ITypeInfo** /*info*/) noexcept override {
    return DISP_E_BADINDEX;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID /*reserved*/, LPOLESTR* names, UINT count,
                                          LCID /*locale*/, DISPID* ids) noexcept override {
    if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
    std::fill_n(ids, count, DISPID_UNKNOWN);
    const auto* found = std::ranges::find_if(
        kMembers, [&](const NamedMember& each) { return lstrcmpiW(each.name, names[0]) == 0; });
    if (found == std::end(kMembers)) return DISP_E_UNKNOWNNAME;
    ids[0] = found->member;
    return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID /*reserved*/, LCID /*locale*/, WORD kind,
                                   DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* info,
                                   UINT* /*argument*/) noexcept override {
    try {
      if (member == kClearShow && (kind & DISPATCH_METHOD) != 0) return ClearShow();
      if ((kind & DISPATCH_PROPERTYPUT) != 0) {
        if (parameters == nullptr || parameters->cArgs != 1) return DISP_E_BADPARAMCOUNT;
        Variant value;
        Check(VariantCopyInd(value.Out(), &parameters->rgvarg[0]));
        return Put(member, value);
      }
      if ((kind & DISPATCH_PROPERTYGET) != 0) return Get(member, result);
      return DISP_E_MEMBERNOTFOUND;
    } catch (const platform::RuntimeError& error) {
      return Raise(info, error.Number(), error.Description());
    } catch (const std::exception& error) {
      return Raise(info, platform::kInvalidProcedureCall, error.what());
    }
  }

 private:
  HRESULT ClearShow() {
    using Kind = MessageDialog::Kind;
    content_.kind = question_ ? Kind::kQuestion : screens::KindOfMessage(Utf8(content_.title));
    answer_ = MessageDialog(guard_, content_).Run();
    return S_OK;
  }

  HRESULT Put(DISPID member, const Variant& value) {
    const auto colour = [&value] { return static_cast<controls::Colour>(value.Number()); };
    switch (member) {
      case kFormTitle:
        content_.title = Wide(value.Text());
        return S_OK;
      case kFormMessage:
        content_.message = Wide(value.Text());
        return S_OK;
      case kFormType:
        question_ = value.Number() == kQuestion;
        return S_OK;
      case kFormBackColor:
        content_.formGround = colour();
        return S_OK;
      case kBtmBackColor:
        content_.buttonGround = colour();
        return S_OK;
      case kFrameBackColor:
        content_.frameGround = colour();
        return S_OK;
      default:
        return DISP_E_MEMBERNOTFOUND;
    }
  }

  HRESULT Get(DISPID member, VARIANT* result) const {
    if (result == nullptr) return E_POINTER;
    switch (member) {
      case kFormTitle:
        return Give(Variant(Utf8(content_.title)), result);
      case kFormMessage:
        return Give(Variant(Utf8(content_.message)), result);
      case kResualt:
        return Give(Variant(static_cast<std::int32_t>(answer_)), result);
      default:
        return DISP_E_MEMBERNOTFOUND;
    }
  }

  /// Copying only reads its source, though its signature says more.
  static HRESULT Give(const Variant& value, VARIANT* result) {
    return VariantCopy(result, const_cast<VARIANT*>(&value.Raw()));
  }

  static HRESULT Raise(EXCEPINFO* info, std::int32_t number, std::string_view description) {
    if (info == nullptr) return E_FAIL;
    *info = {};
    info->scode = MAKE_SCODE(SEVERITY_ERROR, FACILITY_CONTROL, static_cast<WORD>(number));
    info->bstrSource = SysAllocString(L"comNotice");
    const std::wstring text = Wide(description);
    info->bstrDescription = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    return DISP_E_EXCEPTION;
  }

  ErrorGuard& guard_;
  MessageDialog::Content content_;
  bool question_ = false;
  screens::Answer answer_ = screens::Answer::kNo;
};

}  // namespace

ComPtr<IDispatch> MakeMessageComponent(ErrorGuard& guard) {
  return ComPtr<IDispatch>::Adopt(new MessageComponent(guard));
}

}  // namespace adapters::windows
