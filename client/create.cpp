#include "client/create.h"

#include "client/new_database.h"
#include "schema/schema_text.h"
#include "schema/statements.h"

namespace zef::client {

void CreateDatabase(const DatabasePlace& place, const std::string& schema) {
  CreateDatabaseFrom(std::string(schema::Text(schema)), place);
}

void CreateDatabaseFrom(const std::string& statements, const DatabasePlace& place) {
  MakeNewDatabase(place, [&](const Connection& connection, const HeldSignals& signals) {
    for (const std::string& statement : schema::Statements(statements)) {
      signals.StopIfAsked();
      connection.Execute(statement);
    }
  });
}

}  // namespace zef::client
