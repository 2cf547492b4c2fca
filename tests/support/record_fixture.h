#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/recordset.h"
#include "session/session.h"
#include "tests/support/engine_wrapper.h"
#include "tests/support/session_test.h"

namespace zef::test {

using Texts = std::vector<std::string>;

/// A date by its text.
inline Date On(std::string_view text) { return ParseDate(text).value(); }

/// The two flags of a record, which decide what its next `Save` does: "new" or "old", "modified" or "clear".
template <class R>
std::string Flags(const R& record) {
  return std::string(record.IsNew() ? "new" : "old") + (record.IsModified() ? " modified" : " clear");
}

/// A session at 9 o'clock on 1 May 2024 whose statements are noted and can be refused, and a second connection that
/// looks at the database from outside, where only what was committed is seen.
class RecordTest : public SessionTest {
 protected:
  using SessionTest::SessionTest;

  /// Runs a statement from outside.
  Ref<Recordset> Run(const std::string& statement) { return outside_->Execute(statement); }
  /// The first value of a select, seen from outside.
  std::string Stored(const std::string& select) { return test::Scalar(*outside_, select); }
  /// The number of rows of a table, or of those that meet a condition, seen from outside.
  std::int32_t Rows(const std::string& table_and_condition) { return Count(*outside_, table_and_condition); }

  /// What the session has sent since the last call of this or of `Forget`, without transactions and without the work on
  /// sequences.
  Texts Sent() {
    Texts statements = log_->Statements();
    Forget();
    return statements;
  }
  /// The same with its transactions.
  Texts SentInAll() { return std::exchange(log_->texts, {}); }
  void Forget() { log_->texts.clear(); }

  /// The sequences that numbers were drawn from, in their order, in what the session has sent since the last call.
  Texts SequencesDrawn() {
    Texts drawn;
    for (const std::string& text : SentInAll()) {
      if (text.starts_with("SELECT SEQ_Value")) drawn.push_back(text.substr(text.rfind('=') + 1));
    }
    return drawn;
  }
  /// What a `Save` sends, which must succeed.
  template <class R>
  Texts SentBySaving(const Ref<R>& record) {
    EXPECT_TRUE(record->Save()) << session->GetEntireErrorDesc();
    return Sent();
  }
  /// What an operation loads, which must succeed.
  template <class Records, class Criteria>
  Ref<Records> Loaded(bool (CSession::*load)(const Ref<Records>&, Criteria), std::decay_t<Criteria> criteria) {
    auto records = MakeRef<Records>();
    EXPECT_TRUE(((*session).*load)(records, criteria)) << session->GetEntireErrorDesc();
    return records;
  }
  /// Lets each sequence have issued this number last.
  void SetSequences(const std::map<int, int>& last) {
    for (const auto& [sequence, number] : last) {
      Run("UPDATE Sequences SET SEQ_Value=" + std::to_string(number) + " WHERE SEQ_ID=" + std::to_string(sequence));
    }
  }

  /// From now on every call that begins with this text fails: a statement, BEGIN, COMMIT or ROLLBACK.
  void Refuse(const std::string& beginning) { log_->refused = {beginning}; }
  /// Such calls fail as well.
  void AlsoRefuse(const std::string& beginning) { log_->refused.push_back(beginning); }
  void RefuseNothing() { log_->refused.clear(); }
  /// Rollbacks fail, with a reason of their own.
  void RefuseRollbacks(const std::string& reason) {
    AlsoRefuse("ROLLBACK");
    log_->rollback_failure = RunTimeError(FailureNumber::FileUnusable, reason);
  }
  /// The n-th call from now on fails, rollbacks not counted, and no other.
  void FailCall(int number) { log_->fail_at = number; }

  /// Leaves something in the error record.
  void LeaveAnOldError() { session->RecordError("Earlier", 77, "an old error"); }

  const Date now_ = On("5/1/2024 9:00:00 AM");

 private:
  ClockOverride clock_{now_};
  Ref<Connection> outside_ = database.Connect();
  std::shared_ptr<EngineLog> log_ = Watch(connection());
};

}  // namespace zef::test
