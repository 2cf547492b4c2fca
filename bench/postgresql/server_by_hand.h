#pragma once

#include <libpq-fe.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <utility>

/// A server's connection as a careful programmer uses it over libpq: statements prepared once, values in binary form
/// both ways, one round trip a statement. A failure raises std::runtime_error.
namespace zef::bench {

struct ClearServerResult {
  void operator()(PGresult* result) const { PQclear(result); }
};
using ServerResult = std::unique_ptr<PGresult, ClearServerResult>;

/// The numbers of the day on which the server's dates begin.
inline constexpr double kServerDayZero = 36526;
inline constexpr std::int64_t kServerDay = 86'400'000'000;

template <class Number>
Number BigEndian(Number number) {
  auto bytes = std::bit_cast<std::array<char, sizeof number>>(number);
  for (std::size_t i = 0; i < bytes.size() / 2; ++i) std::swap(bytes[i], bytes[bytes.size() - 1 - i]);
  return std::bit_cast<Number>(bytes);
}

/// The values of a statement in order. Texts outlive the run.
class ServerParameters {
 public:
  ServerParameters() = default;
  /// What was added lies in the object itself.
  ServerParameters(const ServerParameters&) = delete;
  ServerParameters& operator=(const ServerParameters&) = delete;

  void Add(std::int32_t number) { AddNumber(number); }
  /// A date.
  void Add(double date) { AddNumber(std::llround((date - kServerDayZero) * static_cast<double>(kServerDay))); }
  void Add(const std::string& text) { AddBytes(text.data(), static_cast<int>(text.size())); }
  void Add(const char* text) { AddBytes(text, static_cast<int>(std::strlen(text))); }
  void AddNull() { AddBytes(nullptr, 0); }

  int count() const { return count_; }
  const char* const* values() const { return values_.data(); }
  const int* lengths() const { return lengths_.data(); }

  static constexpr std::size_t kMost = 48;

 private:
  template <class Number>
  void AddNumber(Number number) {
    const Number ordered = BigEndian(number);
    char* const place = numbers_[static_cast<std::size_t>(count_)].data();
    std::memcpy(place, &ordered, sizeof ordered);
    AddBytes(place, sizeof ordered);
  }
  void AddBytes(const char* bytes, int length) {
    values_[static_cast<std::size_t>(count_)] = bytes;
    lengths_[static_cast<std::size_t>(count_++)] = length;
  }

  int count_ = 0;
  std::array<const char*, kMost> values_;
  std::array<int, kMost> lengths_;
  std::array<std::array<char, 8>, kMost> numbers_;
};

/// A connection of its own.
class HandServer {
 public:
  /// `place` is a connection string of the library's.
  explicit HandServer(const std::string& place);

  /// Prepares a statement and gives its name.
  std::string Prepare(const std::string& text) const;
  ServerResult Run(const std::string& statement, const ServerParameters& parameters) const;
  template <class... Values>
  ServerResult Run(const std::string& statement, const Values&... values) const {
    ServerParameters parameters;
    (parameters.Add(values), ...);
    return Run(statement, parameters);
  }
  /// Runs a select for one number and hands its rows out as they come.
  template <class Take>
  void EachRow(const std::string& statement, std::int32_t number, Take take) const;
  /// Nothing that either side would have to wait for piles up.
  void Checkpoint() const {}
  /// Runs any text, of one statement or several.
  ServerResult Execute(const std::string& text) const;

 private:
  struct Finish {
    void operator()(PGconn* connection) const { PQfinish(connection); }
  };
  ServerResult Checked(PGresult* result) const;
  void Send(const std::string& statement, const ServerParameters& parameters) const;
  ServerResult NextRow() const;

  std::unique_ptr<PGconn, Finish> connection_;
  mutable int statements_ = 0;
};

/// A row of a result in binary form. Null reads as 0 and as the empty text.
class ServerRow {
 public:
  ServerRow(const PGresult* result, int row) : result_(result), row_(row) {}

  bool IsNull(int column) const { return PQgetisnull(result_, row_, column) != 0; }
  void Read(int column, std::int32_t& value) const { value = IsNull(column) ? 0 : Number<std::int32_t>(column); }
  void Read(int column, bool& value) const { value = !IsNull(column) && Number<std::int16_t>(column) == 1; }
  void Read(int column, std::string& value) const {
    value.assign(PQgetvalue(result_, row_, column), static_cast<std::size_t>(PQgetlength(result_, row_, column)));
  }
  /// A date, as exactly the number of its day and its seconds.
  void Read(int column, double& value) const;
  /// Reads the columns in order.
  template <class... Values>
  void ReadAll(Values&... values) const {
    int column = 0;
    (Read(column++, values), ...);
  }

 private:
  template <class Value>
  Value Number(int column) const {
    Value number;
    std::memcpy(&number, PQgetvalue(result_, row_, column), sizeof number);
    return BigEndian(number);
  }

  const PGresult* result_;
  int row_;
};

template <class Take>
void HandServer::EachRow(const std::string& statement, std::int32_t number, Take take) const {
  ServerParameters parameters;
  parameters.Add(number);
  Send(statement, parameters);
  while (const ServerResult result = NextRow()) {
    if (PQntuples(result.get()) > 0) take(ServerRow(result.get(), 0));
  }
}

/// A statement by hand in the server's language.
std::string OnServer(std::string text);
/// All values of the rows of a select, as texts.
std::uint64_t DigestOfRows(const HandServer& server, const std::string& select);

}  // namespace zef::bench
