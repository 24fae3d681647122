#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <optional>
#include <utility>

#include "adapters/log/StatementLog.h"
#include "platform/RuntimeError.h"
#include "text/Secrets.h"

namespace adapters::log {

namespace {

using platform::RowSet;

/// yyyy-mm-ddThh:mm:ss.fffZ, without the locale's or the machine's ideas of time.
std::string TimeText(Moment moment) {
  const auto day = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(std::chrono::floor<std::chrono::milliseconds>(moment - day));
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02d.%03dZ",
                static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                static_cast<unsigned>(date.day()), static_cast<int>(time.hours().count()),
                static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()),
                static_cast<int>(time.subseconds().count()));
  return text.data();
}

std::string MillisecondsText(Moment begin, Moment end) {
  // The machine's clock may have been set meanwhile.
  const auto microseconds = std::max<std::int64_t>(0, (end - begin).count());
  std::string fraction = std::to_string(microseconds % 1000);
  fraction.insert(0, 3 - std::min<std::size_t>(3, fraction.size()), '0');
  return std::to_string(microseconds / 1000) + "." + fraction + " ms";
}

/// Where the lines of one connection go.
class Lines {
 public:
  Lines(std::string connectionString, std::shared_ptr<StatementLog> log)
      : connectionString_(std::move(connectionString)),
        log_(std::move(log)),
        number_("#" + std::to_string(log_->NextConnection())) {
    log_->Write(TimeText(log_->Now()) + "\t" + number_ + "\t\t\t\t" +
                text::ShownConnection(connectionString_));
  }

  /// What `work` gives; `rowsOf` says how many rows that are. `text` is only made for the line.
  template <typename Work, typename RowsOf, typename Text>
  auto Of(const Work& work, const RowsOf& rowsOf, const Text& text) {
    const Moment begin = log_->Now();
    try {
      auto result = work();
      const std::optional<std::int64_t> rows = rowsOf(result);
      Write(begin, rows ? std::to_string(*rows) + " rows" : "", "", text());
      return result;
    } catch (const platform::RuntimeError& error) {
      Write(begin, "", "error " + std::to_string(error.Number()) + ": " + error.Description(),
            text());
      throw;
    }
  }

 private:
  void Write(Moment begin, const std::string& rows, const std::string& fault,
             const std::string& text) {
    const std::string spent = MillisecondsText(begin, log_->Now());
    log_->Write(TimeText(begin) + "\t" + number_ + "\t" + spent + "\t" + rows + "\t" +
                text::WithoutPasswords(fault + "\t" + text, connectionString_));
  }

  std::string connectionString_;
  std::shared_ptr<StatementLog> log_;
  std::string number_;
};

std::optional<std::int64_t> RowsOf(const RowSet& rows) {
  if (rows.ReturnsRows()) return static_cast<std::int64_t>(rows.RowCount());
  return rows.AffectedRows();
}

class LoggedReader : public platform::RowReader {
 public:
  LoggedReader(std::unique_ptr<RowReader> reader, std::string statement, Lines& lines)
      : reader_(std::move(reader)), statement_(std::move(statement)), lines_(lines) {}

  const std::vector<std::string>& Columns() const override { return reader_->Columns(); }
  bool Read(RowSet& rows, std::size_t most) override {
    const std::size_t before = rows.RowCount();
    return lines_.Of([&] { return reader_->Read(rows, most); },
                     [&](bool) { return std::optional<std::int64_t>(rows.RowCount() - before); },
                     [&] { return "read: " + statement_; });
  }

 private:
  std::unique_ptr<RowReader> reader_;
  std::string statement_;
  Lines& lines_;
};

std::string CallText(std::string_view name, std::span<const platform::Parameter> parameters) {
  std::string text("call: ");
  text += name;
  for (const platform::Parameter& parameter : parameters) {
    text += (&parameter == parameters.data() ? " " : ", ") + parameter.name + "=";
    if (const auto* number = std::get_if<std::int32_t>(&parameter.value)) {
      text += std::to_string(*number);
    } else if (const auto* words = std::get_if<std::string>(&parameter.value)) {
      text += "'" + *words + "'";
    } else {
      text += TimeText(std::get<std::chrono::sys_days>(parameter.value)).substr(0, 10);
    }
  }
  return text;
}

class LoggedConnection : public platform::Connection {
 public:
  LoggedConnection(std::unique_ptr<Connection> connection, const std::string& connectionString,
                   std::shared_ptr<StatementLog> log)
      : connection_(std::move(connection)), lines_(connectionString, std::move(log)) {}

  RowSet Execute(std::string_view statement) override {
    return lines_.Of([&] { return connection_->Execute(statement); }, RowsOf,
                     [&] { return std::string(statement); });
  }
  std::unique_ptr<platform::RowReader> Open(std::string_view statement) override {
    const auto none = [](const auto&) { return std::optional<std::int64_t>(); };
    auto reader = lines_.Of([&] { return connection_->Open(statement); }, none,
                            [&] { return "open: " + std::string(statement); });
    return std::make_unique<LoggedReader>(std::move(reader), std::string(statement), lines_);
  }
  std::int32_t CallProcedure(std::string_view name,
                             std::span<const platform::Parameter> parameters) override {
    const auto none = [](std::int32_t) { return std::optional<std::int64_t>(); };
    return lines_.Of([&] { return connection_->CallProcedure(name, parameters); }, none,
                     [&] { return CallText(name, parameters); });
  }

 private:
  std::unique_ptr<Connection> connection_;
  Lines lines_;
};

}  // namespace

std::unique_ptr<platform::Connection> Logged(std::unique_ptr<platform::Connection> connection,
                                             const std::string& connectionString,
                                             std::shared_ptr<StatementLog> log) {
  if (!log) return connection;
  return std::make_unique<LoggedConnection>(std::move(connection), connectionString,
                                            std::move(log));
}

}  // namespace adapters::log
