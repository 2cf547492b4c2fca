#include "bench/postgresql/server_by_hand.h"

#include <fmt/format.h>

#include <regex>
#include <stdexcept>

#include "bench/digest.h"
#include "platform/connection_string.h"

namespace zef::bench {
namespace {

constexpr int kBinary = 1;
constexpr std::array<int, ServerParameters::kMost> kFormats = [] {
  std::array<int, ServerParameters::kMost> formats{};
  formats.fill(kBinary);
  return formats;
}();

}  // namespace

HandServer::HandServer(const std::string& place) {
  const ConnectionString parts = ParseConnectionString(place);
  const std::string text = fmt::format("host={} dbname={} user={} options=-cclient_min_messages=error",
                                       parts.Get("Host"), parts.Get("Database"), parts.Get("User ID"));
  connection_.reset(PQconnectdb(text.c_str()));
  if (PQstatus(connection_.get()) != CONNECTION_OK) throw std::runtime_error(PQerrorMessage(connection_.get()));
}

ServerResult HandServer::Checked(PGresult* result) const {
  ServerResult checked(result);
  const ExecStatusType status = PQresultStatus(result);
  if (status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK) return checked;
  throw std::runtime_error(PQerrorMessage(connection_.get()));
}

std::string HandServer::Prepare(const std::string& text) const {
  std::string name = "hand" + std::to_string(++statements_);
  Checked(PQprepare(connection_.get(), name.c_str(), OnServer(text).c_str(), 0, nullptr));
  return name;
}

ServerResult HandServer::Run(const std::string& statement, const ServerParameters& parameters) const {
  return Checked(PQexecPrepared(connection_.get(), statement.c_str(), parameters.count(), parameters.values(),
                                parameters.lengths(), kFormats.data(), kBinary));
}

void HandServer::Send(const std::string& statement, const ServerParameters& parameters) const {
  const int sent = PQsendQueryPrepared(connection_.get(), statement.c_str(), parameters.count(), parameters.values(),
                                       parameters.lengths(), kFormats.data(), kBinary);
  if (sent == 0 || PQsetSingleRowMode(connection_.get()) == 0) throw std::runtime_error("a select could not be sent");
}

ServerResult HandServer::NextRow() const {
  PGresult* const result = PQgetResult(connection_.get());
  if (result == nullptr || PQresultStatus(result) == PGRES_SINGLE_TUPLE) return ServerResult(result);
  return Checked(result);
}

ServerResult HandServer::Execute(const std::string& text) const {
  return Checked(PQexec(connection_.get(), text.c_str()));
}

void ServerRow::Read(int column, double& value) const {
  if (IsNull(column)) {
    value = 0;
    return;
  }
  const auto time = Number<std::int64_t>(column);
  std::int64_t day = time / kServerDay;
  if (time % kServerDay < 0) --day;
  const std::int64_t seconds = (time - day * kServerDay) / 1'000'000;
  value = static_cast<double>(day) + kServerDayZero + static_cast<double>(seconds) / 86400;
}

/// Names stand between quotes there.
std::string OnServer(std::string text) {
  static const std::regex names("([A-Z]{3}_\\w+|Folders|Recurrences|Notifications|Events|Tasks|Contacts|Sequences)");
  static const std::regex literals(R"('[^']*')");
  std::string done;
  std::smatch literal;
  const auto named = [](const std::string& part) { return std::regex_replace(part, names, "\"$1\""); };
  while (std::regex_search(text, literal, literals)) {
    done += named(literal.prefix()) + literal.str();
    text = std::string(literal.suffix());
  }
  done += named(text);
  done = std::regex_replace(done, std::regex(R"(\?(\d))"), "$$$1");
  return std::regex_replace(done, std::regex(" COLLATE NOCASE|CROSS(?= JOIN)"), "");
}

std::uint64_t DigestOfRows(const HandServer& server, const std::string& select) {
  const ServerResult rows = server.Execute(OnServer(select));
  Digest digest;
  for (int row = 0; row < PQntuples(rows.get()); ++row) {
    for (int column = 0; column < PQnfields(rows.get()); ++column) {
      digest.Add(std::string_view(PQgetvalue(rows.get(), row, column)));
    }
  }
  return digest.value();
}

}  // namespace zef::bench
