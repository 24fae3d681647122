#pragma once

#include <windows.h>

#include <oaidl.h>
#include <ocidl.h>

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/PropertyBag.h"

namespace activex {

/// The container's own property bag. A container that knows no such key gives the default; any
/// other failure of its bag is a RuntimeError.
class ContainerBag : public platform::PropertyBag {
 public:
  ContainerBag(IPropertyBag& bag, IErrorLog* log) : bag_(bag), log_(log) {}
  platform::PropertyValue ReadProperty(std::string_view key,
                                       const platform::PropertyValue& defaultValue) override;
  void WriteProperty(std::string_view key, const platform::PropertyValue& value,
                     const platform::PropertyValue& defaultValue) override;

 private:
  IPropertyBag& bag_;
  IErrorLog* log_;
};

/// A bag that is kept as one piece of bytes, for containers that save into streams and storages.
/// Little-endian: a mark and a version, the number of bytes that follow and their checksum; then
/// for every property its key, its kind and its value, texts as UTF-8 after their length.
class ByteBag : public platform::PropertyBag {
 public:
  static constexpr std::size_t kHeaderSize = 16;
  /// The number of bytes behind a header; nothing when it is no header of ours, is of a later
  /// version or says a length that no connection string needs.
  static std::optional<std::size_t> BodySize(std::span<const std::byte> header);
  /// Nothing when the body is damaged.
  static std::optional<ByteBag> Read(std::span<const std::byte> header,
                                     std::span<const std::byte> body);
  /// Header and body.
  std::vector<std::byte> Bytes() const;

  platform::PropertyValue ReadProperty(std::string_view key,
                                       const platform::PropertyValue& defaultValue) override;
  void WriteProperty(std::string_view key, const platform::PropertyValue& value,
                     const platform::PropertyValue& defaultValue) override;

 private:
  std::vector<std::pair<std::string, platform::PropertyValue>> properties_;
};

}  // namespace activex
