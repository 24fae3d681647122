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

/// The connection's Errors.
struct Said {
  platform::DatabaseErrors errors;
  std::string source;
  bool failed = false;
};

Said ReadErrors(const Dispatch& connection) {
  Said said;
  platform::ResumeNext([&] {
    const Dispatch collection = connection.Child("Errors");
    const std::int32_t count = collection.Property("Count").Number();
    for (std::int32_t i = 0; i < count; ++i) {
      const std::array<Variant, 1> index{i};
      const Dispatch item = collection.Child("Item", index);
      const platform::DatabaseError& error = said.errors.emplace_back(ReadError(item));
      platform::ResumeNext([&] {
        if (error.state.starts_with("01") || item.Property("Number").Number() >= 0) return;
        said.failed = true;
      });
      if (said.source.empty()) {
        platform::ResumeNext([&] { said.source = item.Property("Source").Text(); });
      }
    }
  });
  return said;
}

bool IsClosed(const Dispatch& connection) {
  bool open = false;
  platform::ResumeNext([&] { open = connection.Property("State").Number() != 0; });
  return !open;
}

}  // namespace

server::Failure ReadFailure(const Dispatch& connection, const platform::RuntimeError& raised) {
  Said said = ReadErrors(connection);
  said.errors.push_back({{}, raised.Number(), raised.Description()});
  return {std::move(said.errors), said.source.empty() ? raised.Source() : said.source,
          IsClosed(connection)};
}

std::optional<server::Failure> ReadLateFailure(const Dispatch& connection) {
  Said said = ReadErrors(connection);
  if (!said.failed) return std::nullopt;
  return server::Failure(std::move(said.errors), said.source, IsClosed(connection));
}

}  // namespace adapters::windows
