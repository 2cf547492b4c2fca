#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "platform/connection.h"
#include "platform/recordset.h"
#include "tests/support/database.h"

namespace zef::test {

/// An engine that the suite runs on: how to get an empty database of it, and what is different there.
struct Backend {
  std::string name;
  /// Makes an empty database that lives as long as the returned object.
  std::shared_ptr<void> (*make)(std::string& connection_string);
  std::size_t most_columns = 2000;    ///< of a table
  std::size_t most_selected = 2000;   ///< columns of a result
  bool limits_depth = true;           ///< refuses statements that are deeper or wider than most are
  bool keeps_zero_characters = true;  ///< in texts
  bool identity_has_names = true;     ///< which columns of a table may take from the identity of its rows
  bool rows_fail_alone = true;        ///< a row that cannot be calculated fails when it is reached, not all at once

  friend void PrintTo(const Backend& backend, std::ostream* out) { *out << backend.name; }
};

/// All engines of this build.
std::vector<Backend> Backends();

/// An empty database on one engine and a connection to it.
class Conformance : public testing::TestWithParam<Backend> {
 protected:
  Conformance() : database_(GetParam().make(connection_string_)) { connection_ = Connect(); }

  Ref<Connection> Connect() {
    auto connection = MakeRef<Connection>();
    connection->Open(connection_string_);
    return connection;
  }
  Ref<Recordset> Execute(const std::string& text) { return connection_->Execute(text); }
  std::string Text(const std::string& select) { return Scalar(*connection_, select); }
  /// The first column of all rows, behind semicolons.
  std::string Rows(const std::string& select) {
    std::string rows;
    for (const Ref<Recordset> rs = Execute(select); !rs->EndOfFile(); rs->MoveNext()) {
      rows += (rows.empty() ? "" : "; ") + ToText(rs->Fields().Item(0).Value());
    }
    return rows;
  }
  /// The number of the failure that a statement raises, 0 for none.
  std::int32_t FailureOf(const std::string& text) {
    try {
      connection_->Execute(text);
    } catch (const RunTimeError& failure) {
      return failure.number();
    }
    return 0;
  }
  /// A table with a column of each type and one row of ordinary values under key 1.
  void MakeTable();

  std::string connection_string_;
  std::shared_ptr<void> database_;
  Ref<Connection> connection_;
};

inline std::string BackendName(const testing::TestParamInfo<Backend>& backend) { return backend.param.name; }

}  // namespace zef::test
