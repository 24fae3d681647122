#include "adapters/windows/AdoErrors.h"

#include <array>
#include <utility>

#include "platform/ResumeNext.h"

namespace adapters::windows {

namespace {

/// A provider need not know every member.
platform::DatabaseError ReadError(const Dispatch& item) {
  platform::DatabaseError error;
  platform::ResumeNext([&] { error.state = item.Property("SQLState").Text(); });
  platform::ResumeNext([&] { error.number = item.Property("NativeError").Number(); });
  if (error.number == 0) {
    platform::ResumeNext([&] { error.number = item.Property("Number").Number(); });
  }
  platform::ResumeNext([&] { error.text = item.Property("Description").Text(); });
  return error;
}

}  // namespace

server::Failure ReadFailure(const Dispatch& connection, const platform::RuntimeError& raised) {
  platform::DatabaseErrors errors;
  std::string source;
  bool open = false;
  platform::ResumeNext([&] {
    const Dispatch collection = connection.Child("Errors");
    const std::int32_t count = collection.Property("Count").Number();
    for (std::int32_t i = 0; i < count; ++i) {
      const std::array<Variant, 1> index{i};
      const Dispatch item = collection.Child("Item", index);
      errors.push_back(ReadError(item));
      if (source.empty()) {
        platform::ResumeNext([&] { source = item.Property("Source").Text(); });
      }
    }
  });
  platform::ResumeNext([&] { open = connection.Property("State").Number() != 0; });
  errors.push_back({{}, raised.Number(), raised.Description()});
  return {std::move(errors), source.empty() ? raised.Source() : source, !open};
}

}  // namespace adapters::windows
