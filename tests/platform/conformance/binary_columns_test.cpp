#include "tests/platform/conformance/backend.h"

namespace zef::test {
namespace {

/// A table of binary values, which an engine may fetch only when they are read.
class BinaryColumns : public Conformance {
 protected:
  BinaryColumns() {
    Execute(
        "CREATE TABLE Files (F_ID Long NOT NULL CONSTRAINT PK_Files PRIMARY KEY, F_Name Text(20), F_Content "
        "LongBinary, F_Seal LongBinary)");
    for (std::int32_t id = 1; id <= 3; ++id) {
      Insert(*connection_, id, Bytes(static_cast<std::size_t>(id), std::byte{static_cast<unsigned char>(id)}));
    }
  }
  static void Insert(Connection& connection, std::int32_t id, Value content) {
    const auto rs = MakeRef<Recordset>();
    rs->Open("Files", Ref<Connection>(&connection), adOpenStatic, adLockOptimistic, adCmdTable);
    rs->AddNew();
    rs->Fields().Item("F_ID").SetValue(id);
    rs->Fields().Item("F_Content").SetValue(std::move(content));
    rs->Update();
  }
  static void Overwrite(Connection& connection, std::int32_t id, Value content) {
    const auto rs = MakeRef<Recordset>();
    rs->Open("SELECT * FROM Files WHERE F_ID=" + std::to_string(id), Ref<Connection>(&connection), adOpenStatic,
             adLockOptimistic);
    rs->Fields().Item("F_Content").SetValue(std::move(content));
    rs->Update();
  }
  static Value Content(const Ref<Recordset>& rs) { return rs->Fields().Item("F_Content").Value(); }
};

const Value kOne = Bytes(1, std::byte{1});
const Value kTwo = Bytes(2, std::byte{2});

INSTANTIATE_TEST_SUITE_P(Engines, BinaryColumns, testing::ValuesIn(Backends()), BackendName);

TEST_P(BinaryColumns, DoNotHideAColumnThatAnotherClientAdds) {
  for (int i = 0; i < 2; ++i) EXPECT_EQ(Execute("SELECT * FROM Files")->Fields().Count(), 4);
  Connect()->Execute("ALTER TABLE Files ADD COLUMN F_Size Long");
  EXPECT_EQ(Execute("SELECT * FROM Files")->Fields().Count(), 5);
}

TEST_P(BinaryColumns, AreReadRowByRow) {
  const Ref<Recordset> rs = Execute("SELECT * FROM Files ORDER BY F_ID DESC");
  rs->MoveNext();
  EXPECT_EQ(Content(rs), kTwo);
  rs->MoveNext();
  EXPECT_EQ(Content(rs), kOne);
}

TEST_P(BinaryColumns, AreReadAgainAsTheyWere) {
  const Ref<Recordset> rs = Execute("SELECT F_Content, F_ID FROM Files WHERE F_ID=2");
  EXPECT_EQ(Content(rs), kTwo);
  EXPECT_EQ(Content(rs), kTwo);
  EXPECT_EQ(rs->Fields().Item("F_Content").ActualSize(), 2);
}

TEST_P(BinaryColumns, WithoutAValueAreNull) {
  const Ref<Recordset> rs = Execute("SELECT * FROM Files WHERE F_ID=1");
  EXPECT_EQ(rs->Fields().Item("F_Seal").Value(), Value(Null{}));
}

TEST_P(BinaryColumns, OfNoBytesAreNotNull) {
  Overwrite(*connection_, 1, Bytes());
  EXPECT_EQ(Content(Execute("SELECT * FROM Files WHERE F_ID=1")), Value(Bytes()));
}

TEST_P(BinaryColumns, AreThoseOfTheirOpeningAfterTheSameConnectionWrote) {
  const Ref<Recordset> rs = Execute("SELECT * FROM Files ORDER BY F_ID");
  Execute("DELETE * FROM Files");
  EXPECT_EQ(Content(rs), kOne);
  rs->MoveNext();
  EXPECT_EQ(Content(rs), kTwo);
}

TEST_P(BinaryColumns, AreThoseOfTheirOpeningAfterAnotherConnectionWrote) {
  const Ref<Connection> other = Connect();
  const Ref<Recordset> rs = Execute("SELECT * FROM Files WHERE F_ID=1");
  Overwrite(*other, 1, kTwo);
  EXPECT_EQ(Content(rs), kOne);
}

TEST_P(BinaryColumns, AreThoseOfTheirRowAfterItsKeyHasChanged) {
  const auto rs = MakeRef<Recordset>();
  rs->Open("SELECT * FROM Files WHERE F_ID=1", connection_, adOpenStatic, adLockOptimistic);
  rs->Fields().Item("F_ID").SetValue(std::int32_t{9});
  rs->Update();
  EXPECT_EQ(Content(rs), kOne);
}

TEST_P(BinaryColumns, AreReadInTheClientsTransaction) {
  connection_->BeginTrans();
  Overwrite(*connection_, 1, kTwo);
  EXPECT_EQ(Content(Execute("SELECT * FROM Files WHERE F_ID=1")), kTwo);
  connection_->RollbackTrans();
  EXPECT_EQ(Content(Execute("SELECT * FROM Files WHERE F_ID=1")), kOne);
}

TEST_P(BinaryColumns, AreReadBesideTheCountOfTheRows) {
  const Ref<Recordset> rs = Execute("SELECT * FROM Files ORDER BY F_ID");
  EXPECT_EQ(rs->RecordCount(), 3);
  EXPECT_EQ(Content(rs), kOne);
}

TEST_P(BinaryColumns, AreReadThroughJoinsAndSelectsInsideASelect) {
  EXPECT_EQ(Content(Execute("SELECT a.F_Content FROM Files a INNER JOIN Files b ON a.F_ID=b.F_ID WHERE b.F_ID=2")),
            kTwo);
  EXPECT_EQ(Content(Execute("SELECT F_Content FROM (SELECT * FROM Files WHERE F_ID=2) AS t")), kTwo);
  EXPECT_EQ(
      Content(Execute("SELECT F_Content FROM Files WHERE F_ID=2 UNION ALL SELECT F_Seal FROM Files WHERE F_ID=2")),
      kTwo);
}

}  // namespace
}  // namespace zef::test
