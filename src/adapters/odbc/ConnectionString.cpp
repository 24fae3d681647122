#include "adapters/odbc/ConnectionString.h"

#include <charconv>

#include "adapters/server/ConnectionWords.h"
#include "platform/RuntimeError.h"
#include "text/Text.h"

namespace adapters::odbc {

namespace {

using platform::kProviderNotFound;
using server::FindWord;
using server::Folded;
using server::ReadWords;
using server::Syntax;
using server::SyntaxOf;
using server::Word;
using server::Words;

std::string Braced(std::string_view value) {
  return "{" + text::Replace(value, "}", "}}") + "}";
}

bool IsYes(std::string_view value) {
  const std::string folded = Folded(value);
  return folded == "yes" || folded == "true" || folded == "sspi" || folded == "mandatory" ||
         folded == "strict" || folded == "1";
}

/// Data Source taken apart: "tcp:host\instance,port".
struct Address {
  std::string host;
  std::string instance;
  std::string port;
};

Address AddressOf(std::string_view source) {
  Address address;
  if (Folded(source.substr(0, 4)) == "tcp:") source.remove_prefix(4);
  if (const std::size_t comma = source.rfind(','); comma != std::string_view::npos) {
    address.port = text::Trim(source.substr(comma + 1));
    source = source.substr(0, comma);
  }
  // A name that begins so is a pipe's, with no instance in it.
  if (const std::size_t slash = source.find('\\'); slash != std::string_view::npos && slash > 0) {
    address.instance = text::Trim(source.substr(slash + 1));
    source = source.substr(0, slash);
  }
  address.host = text::Trim(source);
  if (address.host == "." || Folded(address.host) == "(local)") address.host = "localhost";
  return address;
}

[[noreturn]] void Refuse(const std::string& why) {
  throw platform::RuntimeError(kProviderNotFound, why, "ODBC");
}

/// The ODBC words of an OLE DB string, one after the other.
class Translation {
 public:
  Translation(const Words& words, const std::string& driver, bool isFreeTds)
      : words_(words), isFreeTds_(isFreeTds), result_("DRIVER=" + Braced(driver)) {}

  std::string Run() {
    PutServer();
    Copy("DATABASE", {"initialcatalog", "database"});
    if (const Word* trusted = Get({"integratedsecurity", "trusted_connection"});
        trusted != nullptr && IsYes(trusted->value)) {
      Put("Trusted_Connection", "yes");
    } else {
      Copy("UID", {"userid", "uid", "user", "username"});
      Copy("PWD", {"password", "pwd"});
    }
    Copy("APP", {"applicationname", "app"});
    Copy("WSID", {"workstationid", "wsid"});
    Copy("LANGUAGE", {"currentlanguage", "language"});
    Copy("ApplicationIntent", {"applicationintent"});
    PutEncryption();
    if (isFreeTds_) {
      Copy("PacketSize", {"packetsize"});
      Put("TDS_Version", "7.4");
      Put("ClientCharset", "UTF-8");
    }
    return std::move(result_);
  }

 private:
  const Word* Get(std::initializer_list<std::string_view> keys) const {
    return FindWord(words_, keys, Syntax::kOleDb);
  }
  void Put(std::string_view key, std::string_view value) {
    result_.append(";").append(key).append("=").append(Written(key, value));
  }
  /// FreeTDS ends a value in braces at "};" and knows no doubled ones.
  std::string Written(std::string_view key, std::string_view value) const {
    const bool plain = value.find_first_of("[]{}(),;?*=!@\"'") == std::string_view::npos &&
                       text::Trim(value) == value;
    if (plain) return std::string(value);
    if (!isFreeTds_) return Braced(value);
    if (value.find("};") != std::string_view::npos) {
      Refuse(
          "در رشته اتصال مقداري هست كه FreeTDS نمي پذيرد. FreeTDS cannot be given a value with "
          "\"};\" in it (" +
          std::string(key) + ").");
    }
    return "{" + std::string(value) + "}";
  }
  void Copy(std::string_view key, std::initializer_list<std::string_view> keys) {
    if (const Word* const word = Get(keys); word != nullptr && !word->value.empty()) {
      Put(key, word->value);
    }
  }

  /// FreeTDS wants the port apart, and none with an instance; a port makes an instance's name
  /// needless for both drivers.
  void PutServer() {
    const Word* const source = Get({"datasource", "server", "address", "addr", "networkaddress"});
    const Address address = source == nullptr ? Address{} : AddressOf(source->value);
    if (address.host.empty()) {
      Refuse(
          "در رشته اتصال نام سرور نيست. The connection string names no server (Data Source=...).");
    }
    std::string server = address.host;
    const bool byInstance = address.port.empty() && !address.instance.empty();
    if (byInstance) server += "\\" + address.instance;
    if (!isFreeTds_ && !address.port.empty()) server += "," + address.port;
    // Commas need no braces in this one value.
    result_ +=
        ";SERVER=" + (server.find_first_of(";{}=") == std::string::npos ? server : Braced(server));
    if (isFreeTds_ && !byInstance) Put("PORT", address.port.empty() ? "1433" : address.port);
  }

  /// OLE DB encrypts when asked; Microsoft's newer drivers unless told otherwise.
  void PutEncryption() {
    const Word* const wish = Get({"useencryptionfordata", "encrypt"});
    const bool wanted = wish != nullptr && IsYes(wish->value);
    if (isFreeTds_) {
      if (wanted) Put("Encryption", "require");
      return;
    }
    Put("Encrypt", wanted ? "yes" : "no");
    const Word* const trust = Get({"trustservercertificate"});
    if (trust != nullptr && IsYes(trust->value)) Put("TrustServerCertificate", "yes");
  }

  const Words& words_;
  bool isFreeTds_;
  std::string result_;
};

std::string FromOleDb(const Words& words, const Installed& installed) {
  const std::string& written = FindWord(words, {"provider"}, Syntax::kOleDb)->value;
  const std::string provider = Folded(written);
  if (!provider.starts_with("sqloledb") && !provider.starts_with("sqlncli") &&
      !provider.starts_with("msoledbsql")) {
    Refuse("رشته اتصال Provider ديگري دارد. The provider '" + written +
           "' is not one of SQL Server's (SQLOLEDB, SQLNCLI11, MSOLEDBSQL).");
  }
  const std::string driver = SqlServerDriver(installed);
  if (driver.empty()) {
    Refuse(
        "درايور ODBC براي SQL Server نصب نيست. No ODBC driver for SQL Server is installed. Install "
        "the package tdsodbc (FreeTDS) or Microsoft's msodbcsql18.");
  }
  return Translation(words, driver, IsFreeTds(driver, installed)).Run();
}

std::string FromOdbc(std::string_view text, const Words& words, const Installed& installed) {
  const Word* const driver = FindWord(words, {"driver"}, Syntax::kOdbc);
  const Word* const source = FindWord(words, {"dsn"}, Syntax::kOdbc);
  if (driver == nullptr && source == nullptr &&
      FindWord(words, {"filedsn"}, Syntax::kOdbc) == nullptr) {
    Refuse(
        "رشته اتصال نه Driver دارد، نه DSN و نه Provider. The connection string names nothing to "
        "connect to (Driver=, DSN= or Provider=).");
  }
  std::string result(text);
  const bool isFreeTds = driver != nullptr
                             ? IsFreeTds(driver->value, installed)
                             : source != nullptr && IsFreeTdsSource(source->value, installed);
  if (!isFreeTds) return result;
  const auto add = [&](std::string_view key, std::string_view word) {
    if (FindWord(words, {Folded(key)}, Syntax::kOdbc) != nullptr) return;
    if (!result.ends_with(';')) result += ';';
    result.append(key).append("=").append(word);
  };
  add("TDS_Version", "7.4");
  add("ClientCharset", "UTF-8");
  if (result.ends_with('}')) result += ';';  // or FreeTDS takes the brace for a part of the value
  return result;
}

}  // namespace

std::string OdbcConnectionString(std::string_view connectionString) {
  return OdbcConnectionString(connectionString, ReadInstalled());
}

std::string OdbcConnectionString(std::string_view connectionString, const Installed& installed) {
  const Syntax syntax = SyntaxOf(connectionString);
  const Words words = ReadWords(connectionString, syntax);
  return syntax == Syntax::kOleDb ? FromOleDb(words, installed)
                                  : FromOdbc(connectionString, words, installed);
}

std::optional<std::chrono::seconds> ConnectTimeout(std::string_view connectionString) {
  if (SyntaxOf(connectionString) == Syntax::kOdbc) return std::nullopt;
  const Words words = ReadWords(connectionString, Syntax::kOleDb);
  const Word* const word =
      FindWord(words, {"connecttimeout", "connectiontimeout", "timeout"}, Syntax::kOleDb);
  int seconds = 0;
  if (word != nullptr) {
    std::from_chars(word->value.data(), word->value.data() + word->value.size(), seconds);
  }
  if (seconds <= 0) return std::nullopt;
  return std::chrono::seconds(seconds);
}

}  // namespace adapters::odbc
