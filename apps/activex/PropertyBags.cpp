#include "PropertyBags.h"

#include <cstring>

#include "adapters/windows/Com.h"
#include "adapters/windows/Wide.h"

namespace activex {

namespace {

using adapters::windows::Variant;
using platform::PropertyValue;

constexpr std::uint32_t kMark = 0x47424450;  // "PDBG"
constexpr std::uint32_t kVersion = 1;
constexpr std::uint32_t kLongestBody = 1U << 24;
enum Kind : std::uint32_t { kNumber = 1, kText = 2 };

std::uint32_t Checksum(std::span<const std::byte> bytes) {
  std::uint32_t sum = 2166136261U;  // FNV-1a
  for (const std::byte byte : bytes) sum = (sum ^ std::to_integer<std::uint32_t>(byte)) * 16777619U;
  return sum;
}

void Put(std::vector<std::byte>& bytes, std::uint32_t number) {
  for (int shift = 0; shift < 32; shift += 8) {
    bytes.push_back(static_cast<std::byte>(number >> shift));
  }
}

void Put(std::vector<std::byte>& bytes, std::string_view text) {
  Put(bytes, static_cast<std::uint32_t>(text.size()));
  const auto raw = std::as_bytes(std::span(text));
  bytes.insert(bytes.end(), raw.begin(), raw.end());
}

/// Takes what Put wrote, from the front; Failed once there was less than asked for.
class Reader {
 public:
  explicit Reader(std::span<const std::byte> bytes) : rest_(bytes) {}
  bool Failed() const { return failed_; }
  bool AtEnd() const { return rest_.empty(); }

  std::uint32_t Number() {
    std::uint32_t number = 0;
    int shift = 0;
    for (const std::byte byte : Take(4)) {
      number |= std::to_integer<std::uint32_t>(byte) << shift;
      shift += 8;
    }
    return number;
  }
  std::string Text() {
    const auto raw = Take(Number());
    return {reinterpret_cast<const char*>(raw.data()), raw.size()};
  }

 private:
  std::span<const std::byte> Take(std::size_t size) {
    if (failed_ || rest_.size() < size) {
      failed_ = true;
      return {};
    }
    const auto taken = rest_.first(size);
    rest_ = rest_.subspan(size);
    return taken;
  }

  std::span<const std::byte> rest_;
  bool failed_ = false;
};

/// The value as the kind of its default.
PropertyValue AsKindOf(const PropertyValue& kind, const Variant& value) {
  if (std::holds_alternative<std::int32_t>(kind)) return value.Number();
  return value.Text();
}

Variant ToVariant(const PropertyValue& value) {
  return std::visit([](const auto& held) { return Variant(held); }, value);
}

}  // namespace

PropertyValue ContainerBag::ReadProperty(std::string_view key, const PropertyValue& defaultValue) {
  Variant value;
  const HRESULT result = bag_.Read(adapters::windows::Wide(key).c_str(), value.Out(), log_);
  // Containers differ in how they say that there is no such key.
  if (result == E_INVALIDARG || result == E_FAIL || value.Type() == VT_EMPTY) return defaultValue;
  adapters::windows::Check(result, key);
  return AsKindOf(defaultValue, value);
}

void ContainerBag::WriteProperty(std::string_view key, const PropertyValue& value,
                                 const PropertyValue& defaultValue) {
  if (value == defaultValue) return;
  Variant written = ToVariant(value);
  adapters::windows::Check(
      bag_.Write(adapters::windows::Wide(key).c_str(), const_cast<VARIANT*>(&written.Raw())), key);
}

std::optional<std::size_t> ByteBag::BodySize(std::span<const std::byte> header) {
  Reader reader(header);
  const bool ours = reader.Number() == kMark && reader.Number() == kVersion;
  const std::uint32_t size = reader.Number();
  if (!ours || reader.Failed() || size > kLongestBody) return std::nullopt;
  return size;
}

std::optional<ByteBag> ByteBag::Read(std::span<const std::byte> header,
                                     std::span<const std::byte> body) {
  if (BodySize(header) != body.size()) return std::nullopt;
  if (Reader(header.subspan(12)).Number() != Checksum(body)) return std::nullopt;
  ByteBag bag;
  Reader reader(body);
  while (!reader.AtEnd()) {
    std::string key = reader.Text();
    const std::uint32_t kind = reader.Number();
    if (kind == kNumber) {
      bag.properties_.emplace_back(std::move(key), static_cast<std::int32_t>(reader.Number()));
    } else if (kind == kText) {
      bag.properties_.emplace_back(std::move(key), reader.Text());
    } else {
      return std::nullopt;
    }
    if (reader.Failed()) return std::nullopt;
  }
  return bag;
}

std::vector<std::byte> ByteBag::Bytes() const {
  std::vector<std::byte> body;
  for (const auto& [key, value] : properties_) {
    Put(body, key);
    if (const auto* number = std::get_if<std::int32_t>(&value)) {
      Put(body, kNumber);
      Put(body, static_cast<std::uint32_t>(*number));
    } else {
      Put(body, kText);
      Put(body, std::get<std::string>(value));
    }
  }
  std::vector<std::byte> bytes;
  Put(bytes, kMark);
  Put(bytes, kVersion);
  Put(bytes, static_cast<std::uint32_t>(body.size()));
  Put(bytes, Checksum(body));
  bytes.insert(bytes.end(), body.begin(), body.end());
  return bytes;
}

PropertyValue ByteBag::ReadProperty(std::string_view key, const PropertyValue& defaultValue) {
  for (const auto& [stored, value] : properties_) {
    if (stored == key) return AsKindOf(defaultValue, ToVariant(value));
  }
  return defaultValue;
}

void ByteBag::WriteProperty(std::string_view key, const PropertyValue& value,
                            const PropertyValue& defaultValue) {
  if (value != defaultValue) properties_.emplace_back(key, value);
}

}  // namespace activex
