#include "Persistence.h"

#include "DistPromoterProg_h.h"
#include "Guard.h"

namespace activex {

namespace {

constexpr wchar_t kContents[] = L"Contents";
constexpr DWORD kAlone = STGM_SHARE_EXCLUSIVE;

/// As many bytes as asked for, or fewer where the stream ends.
std::vector<std::byte> ReadUpTo(IStream& stream, std::size_t size) {
  std::vector<std::byte> bytes(size);
  std::size_t filled = 0;
  while (filled < size) {
    ULONG got = 0;
    adapters::windows::Check(
        stream.Read(bytes.data() + filled, static_cast<ULONG>(size - filled), &got));
    if (got == 0) break;
    filled += got;
  }
  bytes.resize(filled);
  return bytes;
}

HRESULT Write(IStream& stream, const std::vector<std::byte>& bytes) {
  ULONG written = 0;
  const HRESULT result = stream.Write(bytes.data(), static_cast<ULONG>(bytes.size()), &written);
  if (FAILED(result)) return result;
  return written == bytes.size() ? S_OK : STG_E_MEDIUMFULL;
}

}  // namespace

HRESULT Persistence::GetClassID(CLSID* id) noexcept {
  if (id == nullptr) return E_POINTER;
  *id = CLSID_DistPromoterProg;
  return S_OK;
}

void Persistence::ReadFrom(platform::PropertyBag& bag) {
  control_.ReadProperties(bag);
  dirty_ = false;
}

std::vector<std::byte> Persistence::Bytes() const {
  ByteBag bag;
  control_.WriteProperties(bag);
  return bag.Bytes();
}

HRESULT Persistence::InitNew() noexcept {
  return Guarded([&] {
    control_.InitProperties();
    dirty_ = false;
    return S_OK;
  });
}

HRESULT Persistence::Load(IPropertyBag* bag, IErrorLog* log) noexcept {
  if (bag == nullptr) return E_POINTER;
  return Guarded([&] {
    ContainerBag properties(*bag, log);
    ReadFrom(properties);
    return S_OK;
  });
}

HRESULT Persistence::Save(IPropertyBag* bag, BOOL clearDirty, BOOL) noexcept {
  if (bag == nullptr) return E_POINTER;
  return Guarded([&] {
    ContainerBag properties(*bag, nullptr);
    control_.WriteProperties(properties);
    if (clearDirty) dirty_ = false;
    return S_OK;
  });
}

HRESULT Persistence::Load(IStream* stream) noexcept {
  if (stream == nullptr) return E_POINTER;
  return Guarded([&]() -> HRESULT {
    const auto header = ReadUpTo(*stream, ByteBag::kHeaderSize);
    if (header.empty()) return InitNew();
    const auto size = ByteBag::BodySize(header);
    if (!size) return E_FAIL;
    std::optional<ByteBag> bag = ByteBag::Read(header, ReadUpTo(*stream, *size));
    if (!bag) return E_FAIL;
    ReadFrom(*bag);
    return S_OK;
  });
}

HRESULT Persistence::Save(IStream* stream, BOOL clearDirty) noexcept {
  if (stream == nullptr) return E_POINTER;
  return Guarded([&] {
    const HRESULT result = Write(*stream, Bytes());
    if (SUCCEEDED(result) && clearDirty) dirty_ = false;
    return result;
  });
}

HRESULT Persistence::GetSizeMax(ULARGE_INTEGER* size) noexcept {
  if (size == nullptr) return E_POINTER;
  return Guarded([&] {
    size->QuadPart = Bytes().size();
    return S_OK;
  });
}

HRESULT Persistence::InitNew(IStorage*) noexcept {
  return InitNew();
}

HRESULT Persistence::Load(IStorage* storage) noexcept {
  if (storage == nullptr) return E_POINTER;
  ComPtr<IStream> stream;
  const HRESULT opened =
      storage->OpenStream(kContents, nullptr, STGM_READ | kAlone, 0, stream.Out());
  if (opened == STG_E_FILENOTFOUND) return InitNew();
  return FAILED(opened) ? opened : Load(stream.Get());
}

HRESULT Persistence::Save(IStorage* storage, BOOL sameAsLoad) noexcept {
  if (storage == nullptr) return E_POINTER;
  savesLoaded_ = sameAsLoad != FALSE;
  ComPtr<IStream> stream;
  const HRESULT made =
      storage->CreateStream(kContents, STGM_CREATE | STGM_WRITE | kAlone, 0, 0, stream.Out());
  return FAILED(made) ? made : Save(stream.Get(), FALSE);
}

HRESULT Persistence::SaveCompleted(IStorage* storage) noexcept {
  // A copy that the container saved beside the document leaves the document as unsaved as it was.
  if (savesLoaded_ || storage != nullptr) dirty_ = false;
  return S_OK;
}

}  // namespace activex
