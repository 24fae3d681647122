#include "support/ScriptedDatabase.h"

#include <algorithm>
#include <stdexcept>

#include "calendar/Gregorian.h"

namespace support {

using platform::Parameter;
using platform::RowSet;
using platform::RuntimeError;

namespace {

/// The permission procedure's yes: whatever is not 0.
constexpr std::int32_t kHeld = -1;

std::string ValueText(const Parameter& parameter) {
  if (const auto* number = std::get_if<std::int32_t>(&parameter.value)) {
    return std::to_string(*number);
  }
  if (const auto* text = std::get_if<std::string>(&parameter.value)) return "'" + *text + "'";
  return calendar::GregorianText(std::get<std::chrono::sys_days>(parameter.value));
}

bool IsSelect(std::string_view statement) {
  statement.remove_prefix(std::min(statement.find_first_not_of(' '), statement.size()));
  return statement.starts_with("Select") || statement.starts_with("select");
}

}  // namespace

RowSet RowSetOf(const std::vector<std::string>& columns,
                const std::vector<std::vector<Cell>>& rows) {
  RowSet result(columns);
  for (const std::vector<Cell>& row : rows) {
    if (row.size() != columns.size()) throw std::logic_error("a row of another width");
    for (const Cell& cell : row) {
      cell ? result.Append(*cell) : result.AppendNull();
    }
  }
  return result;
}

std::unique_ptr<platform::Connection> ScriptedDatabase::Create(
    const std::string& connectionString) {
  connectionStrings.push_back(connectionString);
  return std::make_unique<RecordingConnection>(*this, connectionString);
}

Reply& ScriptedDatabase::When(Statement statement) {
  script_.emplace_front(std::move(statement), Reply());
  return script_.front().second;
}

void ScriptedDatabase::FailAtCall(std::size_t n, RuntimeError error) {
  callsUntilFailure_ = n;
  failOnce_ = std::move(error);
}

std::vector<std::string> ScriptedDatabase::Log() const {
  std::vector<std::string> texts;
  for (const Call& call : calls_) texts.push_back(call.text);
  return texts;
}

std::vector<std::string> ScriptedDatabase::Statements(std::string_view part) const {
  std::vector<std::string> found;
  for (const Call& call : calls_) {
    if (!call.procedure && call.text.find(part) != std::string::npos) found.push_back(call.text);
  }
  return found;
}

void ScriptedDatabase::Record(Call call) {
  events_.push_back((call.procedure ? "procedure: " : "statement: ") + call.text);
  calls_.push_back(std::move(call));
  if (callsUntilFailure_ > 0 && --callsUntilFailure_ == 0) throw RuntimeError(*failOnce_);
}

RowSet ScriptedDatabase::Execute(const std::string& connectionString, std::string_view statement) {
  Record({.connectionString = connectionString, .text = std::string(statement)});
  for (const auto& [fits, reply] : script_) {
    if (fits(statement)) return reply.make_();
  }
  return IsSelect(statement) ? RowSet({"ID"}) : RowSet();
}

std::int32_t ScriptedDatabase::CallProcedure(const std::string& connectionString,
                                             std::string_view name,
                                             std::span<const Parameter> parameters) {
  std::string line(name);
  for (const Parameter& parameter : parameters) {
    line += (&parameter == parameters.data() ? "(" : ", ") + parameter.name + "=";
    line += ValueText(parameter);
  }
  line += parameters.empty() ? "()" : ")";
  Record({.connectionString = connectionString, .text = line, .procedure = true});
  return name == "spZomirHasPermission" ? kHeld : 0;
}

}  // namespace support
