#include "tests/platform/conformance/backend.h"

namespace zef::test {
namespace {

class Recordsets : public Conformance {
 protected:
  Recordsets() {
    Execute("CREATE TABLE Numbers (N Long NOT NULL PRIMARY KEY, Word Text(10), Note Memo)");
    for (const char* row : {"1,'one','a'", "2,'two',''", "3,'three',Null"}) {
      Execute(std::string("INSERT INTO Numbers (N,Word,Note) VALUES (") + row + ")");
    }
  }
  Ref<Recordset> Open(const std::string& source, std::int32_t lock = adLockOptimistic,
                      std::int32_t options = adCmdText) {
    auto rs = MakeRef<Recordset>();
    rs->Open(source, connection_, adOpenStatic, lock, options);
    return rs;
  }
  static std::int32_t NumberOf(const std::function<void()>& call) {
    try {
      call();
    } catch (const RunTimeError& failure) {
      return failure.number();
    }
    return 0;
  }
};
INSTANTIATE_TEST_SUITE_P(Engines, Recordsets, testing::ValuesIn(Backends()), BackendName);

TEST_P(Recordsets, WalkForwardToTheirEnd) {
  const Ref<Recordset> rs = Open("SELECT N FROM Numbers ORDER BY N");
  std::string seen;
  for (; !rs->EndOfFile(); rs->MoveNext()) seen += ToText(rs->Fields().Item(0).Value());
  EXPECT_EQ(seen, "123");
}

TEST_P(Recordsets, AreAtTheirEndAtOnceWithoutRows) {
  EXPECT_TRUE(Open("SELECT N FROM Numbers WHERE N=9")->EndOfFile());
}

TEST_P(Recordsets, RefuseToReadOrMoveBehindTheEnd) {
  const Ref<Recordset> rs = Open("SELECT N FROM Numbers WHERE N=9");
  EXPECT_EQ(NumberOf([&] { rs->Fields().Item("N").Value(); }), 3021);
  EXPECT_EQ(NumberOf([&] { rs->MoveNext(); }), 3021);
}

TEST_P(Recordsets, FindFieldsByNameWithoutRegardToLetterCase) {
  EXPECT_EQ(Open("SELECT * FROM Numbers")->Fields().Item("wORD").Name(), "Word");
}

TEST_P(Recordsets, RefuseAFieldThatIsNotThere) {
  const Ref<Recordset> rs = Open("SELECT * FROM Numbers");
  EXPECT_EQ(NumberOf([&] { rs->Fields().Item("Nothing"); }), 3265);
  EXPECT_EQ(NumberOf([&] { rs->Fields().Item(3); }), 3265);
  EXPECT_EQ(NumberOf([&] { rs->Fields().Item(-1); }), 3265);
}

TEST_P(Recordsets, TellTheirColumnsWithoutRows) {
  const Ref<Recordset> rs = Open("SELECT * FROM Numbers WHERE 0=1");
  EXPECT_EQ(rs->Fields().Count(), 3);
  EXPECT_EQ(rs->Fields().Item(1).Name(), "Word");
}

TEST_P(Recordsets, CountTheirRowsAndStayWhereTheyAre) {
  const Ref<Recordset> rs = Open("SELECT N FROM Numbers ORDER BY N");
  rs->MoveNext();
  EXPECT_EQ(rs->RecordCount(), 3);
  EXPECT_EQ(ToLong(rs->Fields().Item("N").Value()), 2);
  rs->MoveNext();
  EXPECT_EQ(ToLong(rs->Fields().Item("N").Value()), 3);
}

TEST_P(Recordsets, KeepWhatTheySawWhenTheSameConnectionWrites) {
  const Ref<Recordset> rs = Open("SELECT N FROM Numbers ORDER BY N");
  Execute("DELETE * FROM Numbers");
  std::string seen;
  for (; !rs->EndOfFile(); rs->MoveNext()) seen += ToText(rs->Fields().Item(0).Value());
  EXPECT_EQ(seen, "123");
}

TEST_P(Recordsets, KeepWhatTheySawThroughARollback) {
  connection_->BeginTrans();
  Execute("INSERT INTO Numbers (N) VALUES (4)");
  const Ref<Recordset> rs = Open("SELECT N FROM Numbers ORDER BY N DESC");
  connection_->RollbackTrans();
  EXPECT_EQ(ToLong(rs->Fields().Item("N").Value()), 4);
  EXPECT_EQ(rs->RecordCount(), 4);
}

TEST_P(Recordsets, OfTheSameStatementMayRunAtOnce) {
  const Ref<Recordset> outer = Open("SELECT N FROM Numbers ORDER BY N");
  const Ref<Recordset> inner = Open("SELECT N FROM Numbers ORDER BY N");
  inner->MoveNext();
  EXPECT_EQ(ToLong(outer->Fields().Item(0).Value()), 1);
  EXPECT_EQ(ToLong(inner->Fields().Item(0).Value()), 2);
}

TEST_P(Recordsets, AreClosedByTheirConnection) {
  const Ref<Recordset> rs = Open("SELECT N FROM Numbers");
  connection_->Close();
  EXPECT_EQ(NumberOf([&] { rs->EndOfFile(); }), 3704);
  EXPECT_EQ(NumberOf([&] { rs->MoveNext(); }), 3704);
}

TEST_P(Recordsets, StayClosedWhenTheirConnectionIsOpenedAgain) {
  const Ref<Recordset> rs = Open("SELECT N FROM Numbers");
  connection_->Close();
  connection_->Open(connection_string_);
  EXPECT_FALSE(rs->IsOpen());
  EXPECT_EQ(NumberOf([&] { rs->EndOfFile(); }), 3704);
  EXPECT_EQ(NumberOf([&] { rs->ValueAt(0); }), 3704);
}

TEST_P(Recordsets, OpenAgainOnceTheirConnectionWasOpenedAgain) {
  const Ref<Recordset> rs = Open("SELECT N FROM Numbers");
  connection_->Close();
  connection_->Open(connection_string_);
  rs->Open("SELECT Word FROM Numbers WHERE N=2", connection_, adOpenStatic, adLockOptimistic);
  EXPECT_TRUE(rs->IsOpen());
  EXPECT_EQ(ToText(rs->ValueAt(0)), "two");
}

TEST_P(Recordsets, OfAStatementWithoutRowsAreClosed) {
  const Ref<Recordset> rs = Execute("DELETE FROM Numbers WHERE N=1");
  EXPECT_FALSE(rs->IsOpen());
  EXPECT_EQ(NumberOf([&] { rs->EndOfFile(); }), 3704);
}

TEST_P(Recordsets, NeedAConnection) {
  Recordset* rs = new Recordset;
  const Ref<Recordset> owner(rs);
  EXPECT_EQ(NumberOf([&] { rs->Open("SELECT 1", nullptr); }), 91);
}

TEST_P(Recordsets, WriteAChangedFieldBack) {
  const Ref<Recordset> rs = Open("SELECT * FROM Numbers WHERE N=2");
  rs->Fields().Item("Word").SetValue(std::string("zwei"));
  EXPECT_EQ(Text("SELECT Word FROM Numbers WHERE N=2"), "two");
  rs->Update();
  EXPECT_EQ(Text("SELECT Word FROM Numbers WHERE N=2"), "zwei");
  EXPECT_EQ(Text("SELECT Word FROM Numbers WHERE N=1"), "one");
}

TEST_P(Recordsets, ShowAWrittenFieldAtOnce) {
  const Ref<Recordset> rs = Open("SELECT * FROM Numbers WHERE N=2");
  rs->Fields().Item("Word").SetValue(std::string("zwei"));
  rs->Update();
  EXPECT_EQ(ToText(rs->Fields().Item("Word").Value()), "zwei");
}

TEST_P(Recordsets, WriteASingleColumnWithoutItsKey) {
  const Ref<Recordset> rs = Open("SELECT Word FROM Numbers WHERE N=3", adLockPessimistic);
  rs->Fields().Item("Word").SetValue(std::string("drei"));
  rs->Update();
  EXPECT_EQ(Text("SELECT Word FROM Numbers WHERE N=3"), "drei");
  EXPECT_EQ(rs->Fields().Count(), 1);
}

TEST_P(Recordsets, AddARowToATableByName) {
  const Ref<Recordset> rs = Open("Numbers", adLockOptimistic, adCmdTable);
  rs->AddNew();
  rs->Fields().Item("N").SetValue(4);
  rs->Fields().Item("Word").SetValue(std::string("four"));
  rs->Update();
  EXPECT_EQ(Text("SELECT Word FROM Numbers WHERE N=4"), "four");
  EXPECT_EQ(Text("SELECT Note FROM Numbers WHERE N=4"), "Null");
}

TEST_P(Recordsets, RefuseAValueThatDoesNotFitAndWriteNothing) {
  const Ref<Recordset> rs = Open("SELECT * FROM Numbers WHERE N=2");
  rs->Fields().Item("Word").SetValue(std::string("eleven char"));
  EXPECT_EQ(NumberOf([&] { rs->Update(); }), -2147217887);
  EXPECT_EQ(Text("SELECT Word FROM Numbers WHERE N=2"), "two");
}

TEST_P(Recordsets, RefuseATextThatIsNotUtf8) {
  const Ref<Recordset> changed = Open("SELECT * FROM Numbers WHERE N=1");
  const Ref<Recordset> added = Open("Numbers", adLockOptimistic, adCmdTable);
  added->AddNew();
  added->Fields().Item("N").SetValue(std::int32_t{4});
  for (const Ref<Recordset>& rs : {changed, added}) {
    for (const char* malformed : {"caf\xe9", "\xc3", "\xed\xa0\x80"}) {
      rs->Fields().Item("Note").SetValue(std::string(malformed));
      EXPECT_EQ(NumberOf([&] { rs->Update(); }), -2147217900);
    }
  }
  EXPECT_EQ(Rows("SELECT Note FROM Numbers WHERE N IN (1,4)"), "a");
}

TEST_P(Recordsets, RefuseToWriteARowThatIsGone) {
  const Ref<Recordset> rs = Open("SELECT * FROM Numbers WHERE N=2");
  Execute("DELETE FROM Numbers WHERE N=2");
  rs->Fields().Item("Word").SetValue(std::string("x"));
  EXPECT_EQ(NumberOf([&] { rs->Update(); }), -2147217864);
}

TEST_P(Recordsets, RefuseToWriteWhenOpenedForReading) {
  const Ref<Recordset> rs = Open("SELECT * FROM Numbers", adLockReadOnly);
  rs->Fields().Item("Word").SetValue(std::string("x"));
  EXPECT_EQ(NumberOf([&] { rs->Update(); }), -2147467259);
}

TEST_P(Recordsets, ForgetUnwrittenFieldsWhenTheyMove) {
  const Ref<Recordset> rs = Open("SELECT * FROM Numbers ORDER BY N");
  rs->Fields().Item("Word").SetValue(std::string("x"));
  rs->MoveNext();
  rs->Update();
  EXPECT_EQ(Text("SELECT Word FROM Numbers WHERE N=1"), "one");
}

TEST_P(Recordsets, GiveALongTextInPortions) {
  Execute("UPDATE Numbers SET Note='" + std::string(129, 'x') + "' WHERE N=1");
  const Ref<Recordset> rs = Open("SELECT Note FROM Numbers WHERE N=1");
  Field note = rs->Fields().Item("Note");
  EXPECT_EQ(note.ActualSize(), 129);
  EXPECT_EQ(ToText(note.GetChunk(128)).size(), 128u);
  EXPECT_EQ(ToText(note.GetChunk(128)).size(), 1u);
  EXPECT_TRUE(IsNull(note.GetChunk(128)));
}

TEST_P(Recordsets, CutPortionsBetweenCharacters) {
  Execute("UPDATE Numbers SET Note='äöü' WHERE N=1");
  const Ref<Recordset> rs = Open("SELECT Note FROM Numbers WHERE N=1");
  EXPECT_EQ(ToText(rs->Fields().Item("Note").GetChunk(2)), "äö");
  EXPECT_EQ(ToText(rs->Fields().Item("Note").GetChunk(2)), "ü");
}

TEST_P(Recordsets, GiveAMegabyteInPortionsToItsEnd) {
  Execute("UPDATE Numbers SET Note='" + std::string(1'000'000, 'x') + "' WHERE N=1");
  const Ref<Recordset> rs = Open("SELECT Note FROM Numbers WHERE N=1");
  Field note = rs->Fields().Item("Note");
  std::size_t size = 0;
  for (Value portion = note.GetChunk(128); !IsNull(portion); portion = note.GetChunk(128)) {
    size += ToText(portion).size();
  }
  EXPECT_EQ(size, 1'000'000u);
}

TEST_P(Recordsets, GivePortionsOfTheValueThatWasSetMeanwhile) {
  Execute("UPDATE Numbers SET Note='old' WHERE N=1");
  const Ref<Recordset> rs = Open("SELECT * FROM Numbers WHERE N=1");
  Field note = rs->Fields().Item("Note");
  EXPECT_EQ(ToText(note.GetChunk(2)), "ol");
  note.SetValue(std::string("new one"));
  EXPECT_EQ(note.ActualSize(), 7);
  EXPECT_EQ(ToText(note.GetChunk(3)), "new");
}

TEST_P(Recordsets, GivePortionsOfEachRowFromItsBeginning) {
  Execute("UPDATE Numbers SET Note='abc'");
  const Ref<Recordset> rs = Open("SELECT Note FROM Numbers");
  rs->Fields().Item("Note").GetChunk(2);
  rs->MoveNext();
  EXPECT_EQ(ToText(rs->Fields().Item("Note").GetChunk(2)), "ab");
}

TEST_P(Recordsets, EndBehindARowThatWasAdded) {
  const Ref<Recordset> rs = Open("Numbers", adLockOptimistic, adCmdTable);
  rs->AddNew();
  rs->Fields().Item("N").SetValue(4);
  rs->Update();
  EXPECT_FALSE(rs->EndOfFile());
  EXPECT_EQ(ToLong(rs->Fields().Item("N").Value()), 4);
  rs->MoveNext();
  EXPECT_TRUE(rs->EndOfFile());
}

TEST_P(Recordsets, KeepTheFieldsOfARowThatCouldNotBeAdded) {
  const Ref<Recordset> rs = Open("Numbers", adLockOptimistic, adCmdTable);
  rs->AddNew();
  rs->Fields().Item("N").SetValue(1);
  rs->Fields().Item("Word").SetValue(std::string("uno"));
  EXPECT_NE(NumberOf([&] { rs->Update(); }), 0);
  rs->Fields().Item("N").SetValue(4);
  rs->Update();
  EXPECT_EQ(Text("SELECT Word FROM Numbers WHERE N=4"), "uno");
}

TEST_P(Recordsets, KeepTheFieldsThatWereNotSetBehindAnUpdate) {
  const Ref<Recordset> rs = Open("SELECT * FROM Numbers WHERE N<3 ORDER BY N");
  rs->Fields().Item("Word").SetValue(std::string("eins"));
  rs->Update();
  EXPECT_EQ(ToText(rs->Fields().Item("Note").Value()), "a");
  rs->MoveNext();
  EXPECT_EQ(ToText(rs->Fields().Item("Word").Value()), "two");
}

TEST_P(Recordsets, WriteARowTwiceOverItsOldKey) {
  const Ref<Recordset> rs = Open("SELECT * FROM Numbers WHERE N=2");
  rs->Fields().Item("N").SetValue(1);
  EXPECT_NE(NumberOf([&] { rs->Update(); }), 0);
  rs->Fields().Item("N").SetValue(20);
  rs->Update();
  EXPECT_EQ(Text("SELECT Word FROM Numbers WHERE N=20"), "two");
}

TEST_P(Recordsets, TellNoSizeForNull) {
  const Ref<Recordset> rs = Open("SELECT Note FROM Numbers WHERE N=3");
  EXPECT_EQ(rs->Fields().Item("Note").ActualSize(), 0);
}

}  // namespace
}  // namespace zef::test
