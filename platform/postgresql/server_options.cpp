#include "platform/postgresql/server_options.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "platform/postgresql/postgresql_error.h"
#include "platform/text.h"

namespace zef {
namespace {

struct Option {
  std::string_view key;
  const char* keyword;  ///< of libpq
};

constexpr std::array<Option, 7> kOptions = {{{"Host", "host"},
                                             {"Port", "port"},
                                             {"Database", "dbname"},
                                             {"User ID", "user"},
                                             {"Password", "password"},
                                             {"SSL Mode", "sslmode"},
                                             {"Root Certificate", "sslrootcert"}}};

constexpr std::string_view kPooling = "Transaction Pooling";

[[noreturn]] void Refuse(const std::string& what) {
  throw RunTimeError(FailureNumber::StatementError, "The connection string is refused: " + what);
}

void RequireOnce(const ConnectionString& connection, std::string_view key) {
  const auto times = std::count_if(connection.parts.begin(), connection.parts.end(),
                                   [key](const auto& part) { return text::EqualNames(part.first, key); });
  if (times > 1) Refuse("the key '" + std::string(key) + "' stands twice.");
}

void RequireValue(const ConnectionString& connection, std::string_view key) {
  if (connection.Get(key).empty()) Refuse("the key '" + std::string(key) + "' is missing.");
}

/// The server's name for an encryption mode, written with any letter case, with or without a hyphen.
std::string SslMode(std::string_view given) {
  constexpr std::array<std::string_view, 6> kModes = {"disable", "allow",     "prefer",
                                                      "require", "verify-ca", "verify-full"};
  const auto plain = [](std::string_view mode) {
    std::string text = text::LowerAscii(mode);
    std::erase(text, '-');
    return text;
  };
  for (const std::string_view mode : kModes) {
    if (plain(mode) == plain(given)) return std::string(mode);
  }
  Refuse("the key 'SSL Mode' is disable, allow, prefer, require, verify-ca or verify-full.");
}

/// What a person can do about a failed connection, by what libpq says of it.
struct Advice {
  std::string_view words;
  std::string_view sentence;
};
constexpr std::array<Advice, 2> kAdvice = {
    {{"certificate verify failed", " The server's certificate comes from nobody whom 'Root Certificate' names."},
     {", no encryption", " The server may demand encryption: see the key 'SSL Mode'."}}};

std::string AdviceFor(const std::string& words) {
  for (const Advice& advice : kAdvice) {
    if (words.find(advice.words) != std::string::npos) return std::string(advice.sentence);
  }
  return {};
}

/// libpq's own words of a failed connection name hosts, users and databases, and no password.
[[noreturn]] void RaiseNotConnected(PGconn* connection) {
  const std::string words = ReadableSentence(connection == nullptr ? "" : PQerrorMessage(connection));
  const bool password = connection != nullptr && (PQconnectionNeedsPassword(connection) != 0 ||
                                                  words.find("password authentication failed") != std::string::npos);
  if (password) throw RunTimeError(FailureNumber::PasswordRefused, "The server refused the user or the password.");
  throw RunTimeError(FailureNumber::FileUnusable, "The server cannot be connected to: " + words + AdviceFor(words));
}

void IgnoreNotice(void*, const char*) {}

}  // namespace

bool PoolsTransactions(const ConnectionString& connection) {
  RequireOnce(connection, kPooling);
  const std::string given = text::LowerAscii(connection.Get(kPooling));
  if (given == "yes" || given == "true") return true;
  if (given.empty() || given == "no" || given == "false") return false;
  Refuse("the key 'Transaction Pooling' is Yes or No.");
}

ConnectionHandle ConnectToServer(const ConnectionString& connection) {
  connection.Require(
      {"Provider", "Host", "Port", "Database", "User ID", "Password", "SSL Mode", "Root Certificate", kPooling});
  RequireOnce(connection, "Provider");
  for (const Option& option : kOptions) RequireOnce(connection, option.key);
  RequireValue(connection, "Host");
  RequireValue(connection, "Database");
  std::array<std::string, kOptions.size()> values;
  std::array<const char*, kOptions.size() + 8> keywords{};
  std::array<const char*, kOptions.size() + 8> texts{};
  std::size_t count = 0;
  const auto set = [&](const char* keyword, const char* text) {
    keywords[count] = keyword;
    texts[count++] = text;
  };
  for (std::size_t i = 0; i < kOptions.size(); ++i) {
    values[i] = connection.Get(kOptions[i].key);
    if (values[i].empty()) continue;
    if (kOptions[i].key == "SSL Mode") values[i] = SslMode(values[i]);
    set(kOptions[i].keyword, values[i].c_str());
  }
  set("client_encoding", "UTF8");
  set("connect_timeout", "10");
  // Without these, whoever waits for a server whose network is cut would wait for hours, and the server keep locks.
  set("keepalives_idle", "15");
  set("keepalives_interval", "5");
  set("keepalives_count", "3");
  set("tcp_user_timeout", "30000");
  set("application_name", "ZEFComponents");
  ConnectionHandle connected(PQconnectdbParams(keywords.data(), texts.data(), 0));
  if (PQstatus(connected.get()) != CONNECTION_OK) RaiseNotConnected(connected.get());
  PQsetNoticeProcessor(connected.get(), &IgnoreNotice, nullptr);
  return connected;
}

}  // namespace zef
