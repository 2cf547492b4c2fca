#include <algorithm>
#include <span>

#include "client/backup.h"
#include "client/held_signals.h"
#include "client/schema_names.h"
#include "client/store_session.h"
#include "schema/schema_text.h"
#include "schema/statements.h"

/// Bringing an older database to the current version.
namespace zef::client {
namespace {

using Tell = std::function<void(const std::string&)>;

struct UpgradeStep {
  const char* from;  ///< the version, or how it begins if it ends with a point
  const char* to;
  bool (CSession::*run)(std::string& version, std::string& message) const;
};

constexpr UpgradeStep kSteps[] = {
    {"9.1.", "9.2.1", &CSession::UpgradeDBToVersion9_2_1},
    {"9.2.1", "9.2.2", &CSession::UpgradeDBToVersion9_2_2},
    {"9.2.2", "9.2.3", &CSession::UpgradeDBToVersion9_2_3},
    {"9.2.3", "9.2.4", &CSession::UpgradeDBToVersion9_2_4},
};

bool Begins(const UpgradeStep& step, const std::string& version) {
  const std::string_view from = step.from;
  return from.ends_with('.') ? version.starts_with(from) : version == from;
}

/// The steps that a version still needs; none for the current one.
std::span<const UpgradeStep> StepsFrom(const std::string& version) {
  const auto* const first = std::find_if(std::begin(kSteps), std::end(kSteps),
                                         [&](const UpgradeStep& step) { return Begins(step, version); });
  if (first == std::end(kSteps) && version != kCurrentSchema) {
    Refuse(fmt::format("The database has version '{}', from which no way leads to {}.", version, kCurrentSchema));
  }
  return {first, std::end(kSteps)};
}

std::string BackUp(const Store::Session& session, const HeldSignals& signals, const Tell& tell) {
  tell("Copying the database");
  return BackUpBeside(session.place.file, [&](const std::string& temporary) {
    session.it.conDBConnection->BackUpDatabase(session.place.ConnectionString(), temporary);
    signals.StopIfAsked();
  });
}

/// A step tells of some failures by the description alone, and clears none of before.
void RunStep(const Store::Session& session, const UpgradeStep& step, std::string& version) {
  std::string unused;
  session.it.ClearError();
  session.Require((session.it.*step.run)(version, unused), "The step failed without a reason.");
}

/// True if there was none of that name.
bool AddIndex(const Connection& connection, const std::string& statement) {
  try {
    connection.Execute(statement);
    return true;
  } catch (const automation::Failure& failure) {
    if (failure.number() != kIndexExists) throw;
    return false;
  }
}

/// The steps make no indexes for the columns that they add; without them look-ups would read whole tables.
std::vector<std::string> AddMissingIndexes(const Connection& connection) {
  std::vector<std::string> added;
  for (const std::string& statement : schema::Statements(schema::Text(kCurrentSchema))) {
    const std::string name = NameBehind(kCreateIndex, statement);
    if (!name.empty() && AddIndex(connection, statement)) added.push_back(name);
  }
  return added;
}

/// Begins with the write lock, so that the copy is exactly what the steps find.
void RunUpgrade(const Store::Session& session, UpgradeInfo& info, const Tell& tell) {
  const HeldSignals signals;
  session.InTransaction([&] {
    info.from = info.to = session.Version();
    const std::span<const UpgradeStep> steps = StepsFrom(info.from);
    if (!steps.empty() && session.place.IsFile()) info.backup = BackUp(session, signals, tell);
    for (const UpgradeStep& step : steps) {
      tell(fmt::format("Upgrading to {}", step.to));
      signals.StopIfAsked();
      RunStep(session, step, info.to);
      info.steps.emplace_back(step.to);
    }
    tell("Looking after the indexes");
    signals.StopIfAsked();
    info.indexes = AddMissingIndexes(session.it.conDBConnection);
  });
}

}  // namespace

UpgradeInfo Store::Upgrade(const Tell& tell) {
  UpgradeInfo info;
  try {
    RunUpgrade(*session_, info, tell);
  } catch (const Failure& failure) {
    if (info.backup.empty()) throw;
    std::string sentence = failure.what();
    if (!sentence.ends_with('.')) sentence += '.';
    Refuse(
        fmt::format("{} The database is as it was before; the copy made of it stays as '{}'.", sentence, info.backup));
  }
  return info;
}

}  // namespace zef::client
