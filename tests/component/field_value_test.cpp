#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <numeric>
#include <string>
#include <vector>

#include "tests/component/library.h"

namespace zef::test {
namespace {

Variant BytesVariant(const std::vector<unsigned char>& bytes) {
  const SAFEARRAYBOUND bound{static_cast<ULONG>(bytes.size()), 0};
  SAFEARRAY* const array = SafeArrayCreate(VT_UI1, 1, &bound);
  if (!bytes.empty()) std::memcpy(array->pvData, bytes.data(), bytes.size());
  return Variant::Of(VT_ARRAY | VT_UI1, array);
}

std::vector<unsigned char> BytesOf(const Variant& value) {
  EXPECT_EQ(value.kind(), VT_ARRAY | VT_UI1);
  if (value.kind() != (VT_ARRAY | VT_UI1)) return {};
  const auto* const first = static_cast<const unsigned char*>(value.raw().parray->pvData);
  return {first, first + value.raw().parray->rgsabound[0].cElements};
}

/// Values of every kind through the fields of a record set.
class FieldValue : public ConnectedTest {
 protected:
  Object Rows(const std::string& statement) { return connection.Call("Execute", statement).value.object(); }
  Object Field(const Object& rows, std::string_view name) {
    return rows.Get("Fields").value.object().Get("Item", name).value.object();
  }
  Variant Value(const std::string& select) {
    return std::move(Rows(select).Get("Fields").value.object().Get("Item", 0).value.object().Get("Value").value);
  }
  /// A table, opened for writing, at a new row.
  Object NewRow(const char* table) {
    const Object rows = Rows("SELECT FLD_ID FROM Folders");
    rows.Call("Close");
    EXPECT_EQ(rows.Call("Open", table, connection, 3, 3, 2).result, S_OK);
    EXPECT_EQ(rows.Call("AddNew").result, S_OK);
    return rows;
  }
  /// A row of an attachment with this content.
  Outcome Store(Variant&& content) {
    const Object rows = NewRow("Attachements");
    Field(rows, "ATC_ID").Put("Value", 1);
    Outcome outcome = Field(rows, "ATC_Content").Put("Value", std::move(content));
    EXPECT_EQ(rows.Call("Update").result, S_OK);
    return outcome;
  }

  const Object connection = session.Get("conDBConnection").value.object();
};

TEST_F(FieldValue, OfAnIntegerIsAnInteger) {
  EXPECT_EQ(Value("SELECT FLD_ID FROM Folders WHERE FLD_ID=1").number(), 1);
}
TEST_F(FieldValue, OfATextIsAText) { EXPECT_EQ(Value("SELECT VI_Version FROM _VersionInfo").text(), "9.2.4"); }
TEST_F(FieldValue, OfNullIsNull) {
  connection.Call("Execute", "INSERT INTO Notes (NOT_ID) VALUES (7)");
  EXPECT_EQ(Value("SELECT NOT_FolderID FROM Notes WHERE NOT_ID=7").kind(), VT_NULL);
}
TEST_F(FieldValue, OfADateIsADate) {
  connection.Call("Execute", "INSERT INTO Tasks (TSK_ID, TSK_DueDate) VALUES (7, #5/1/2024 9:00:00 AM#)");
  EXPECT_EQ(Value("SELECT TSK_DueDate FROM Tasks WHERE TSK_ID=7").date(), 45413.375);
}
TEST_F(FieldValue, OfBytesIsAnArrayOfBytes) {
  std::vector<unsigned char> bytes(256);
  std::iota(bytes.begin(), bytes.end(), static_cast<unsigned char>(0));
  EXPECT_EQ(Store(BytesVariant(bytes)).result, S_OK);
  EXPECT_EQ(BytesOf(Value("SELECT ATC_Content FROM Attachements")), bytes);
}
TEST_F(FieldValue, OfBytesCountsFromZero) {
  Store(BytesVariant({1, 2, 3}));
  const Variant value = Value("SELECT ATC_Content FROM Attachements");
  EXPECT_EQ(value.raw().parray->cDims, 1);
  EXPECT_EQ(value.raw().parray->cbElements, 1u);
  EXPECT_EQ(value.raw().parray->rgsabound[0].lLbound, 0);
}
TEST_F(FieldValue, OfBytesIsReadThroughAReference) {
  Variant bytes = BytesVariant({1, 2, 3});
  Store(Variant::Ref(VT_ARRAY | VT_UI1, &bytes.raw().parray));
  EXPECT_EQ(BytesOf(Value("SELECT ATC_Content FROM Attachements")), (std::vector<unsigned char>{1, 2, 3}));
}
TEST_F(FieldValue, OfNoArrayIsNull) {
  EXPECT_EQ(Store(Variant::Of(VT_ARRAY | VT_UI1, static_cast<SAFEARRAY*>(nullptr))).result, S_OK);
  EXPECT_EQ(Value("SELECT ATC_Content FROM Attachements").kind(), VT_NULL);
}
TEST_F(FieldValue, OfEmptyIsNull) {
  Store(Variant());
  EXPECT_EQ(Value("SELECT ATC_Content FROM Attachements").kind(), VT_NULL);
}
TEST_F(FieldValue, RefusesAnArrayWithoutItsData) {
  auto* const array = static_cast<SAFEARRAY*>(std::calloc(1, sizeof(SAFEARRAY)));
  array->cDims = 1;
  array->cbElements = 1;
  array->rgsabound[0] = {1000, 0};
  EXPECT_EQ(Store(Variant::Of(VT_ARRAY | VT_UI1, array)).result, DISP_E_TYPEMISMATCH);
}
TEST_F(FieldValue, RefusesAnArrayWithoutDimensions) {
  constexpr std::size_t kHead = offsetof(SAFEARRAY, rgsabound);  // what a reader of the bounds runs past
  auto* const array = static_cast<SAFEARRAY*>(std::calloc(1, kHead));
  EXPECT_EQ(Store(Variant::Of(VT_ARRAY | VT_UI1, array)).result, DISP_E_TYPEMISMATCH);
}
TEST_F(FieldValue, RefusesATableOfBytes) {
  const SAFEARRAYBOUND bounds[] = {{2, 0}, {3, 0}};
  EXPECT_EQ(Store(Variant::Of(VT_ARRAY | VT_UI1, SafeArrayCreate(VT_UI1, 2, bounds))).result, DISP_E_TYPEMISMATCH);
}
TEST_F(FieldValue, RefusesAnArrayOfOtherElements) {
  const SAFEARRAYBOUND bound{2, 0};
  EXPECT_EQ(Store(Variant::Of(VT_ARRAY | VT_I4, SafeArrayCreate(VT_I4, 1, &bound))).result, DISP_E_TYPEMISMATCH);
}
TEST_F(FieldValue, RefusesAnObject) { EXPECT_EQ(Store(session).result, DISP_E_TYPEMISMATCH); }
TEST_F(FieldValue, IsReadInPortions) {
  Store(BytesVariant({1, 2, 3, 4, 5}));
  const Object field = Field(Rows("SELECT * FROM Attachements"), "ATC_Content");
  EXPECT_EQ(BytesOf(field.Call("GetChunk", 3).value), (std::vector<unsigned char>{1, 2, 3}));
  EXPECT_EQ(BytesOf(field.Call("GetChunk", 3).value), (std::vector<unsigned char>{4, 5}));
  EXPECT_EQ(field.Call("GetChunk", 3).value.kind(), VT_NULL);
}
TEST_F(FieldValue, IsNotThereBehindTheLastRow) {
  const Object rows = Rows("SELECT FLD_ID FROM Folders WHERE FLD_ID=-77");
  EXPECT_EQ(Field(rows, "FLD_ID").Get("Value").scode, static_cast<SCODE>(0x800A0000) + 3021);
}
TEST_F(FieldValue, OfAnUnknownFieldIsNotThere) {
  EXPECT_EQ(Rows("SELECT FLD_ID FROM Folders").Get("Fields").value.object().Get("Item", "Other").scode,
            static_cast<SCODE>(0x800A0000) + 3265);
}
TEST_F(FieldValue, IsNotThereAnyMoreWhenTheRecordsetHasFewerFields) {
  const Object rows = Rows("SELECT FLD_ID, FLD_Name FROM Folders");
  const Object name = Field(rows, "FLD_Name");
  rows.Call("Close");
  rows.Call("Open", "SELECT FLD_ID FROM Folders", connection);
  EXPECT_EQ(name.Get("Value").scode, static_cast<SCODE>(0x800A0000) + 3265);
}

/// What else clients do with connection and record set.
class DatabaseObject : public FieldValue {};

TEST_F(DatabaseObject, TellsThatTheConnectionIsOpen) { EXPECT_EQ(connection.Get("State").value.number(), 1); }
TEST_F(DatabaseObject, TellsThatTheConnectionIsClosed) {
  connection.Call("Close");
  EXPECT_EQ(connection.Get("State").value.number(), 0);
}
TEST_F(DatabaseObject, TellsWhetherTheRecordsetIsOpen) {
  const Object rows = Rows("SELECT FLD_ID FROM Folders");
  EXPECT_EQ(rows.Get("State").value.number(), 1);
  rows.Call("Close");
  EXPECT_EQ(rows.Get("State").value.number(), 0);
}
TEST_F(DatabaseObject, ReadsRowByRow) {
  const Object rows = Rows("SELECT FLD_ID FROM Folders");
  std::int32_t count = 0;
  for (; !rows.Get("EOF").value.truth(); rows.Call("MoveNext")) ++count;
  EXPECT_EQ(count, rows.Get("RecordCount").value.number());
  EXPECT_GT(count, 0);
}
TEST_F(DatabaseObject, FillsARecordFromARow) {
  const Object folder = Create("CFolder");
  EXPECT_EQ(folder.Call("GetValuesFromRS", Rows("SELECT * FROM Folders WHERE FLD_ID=1")).result, S_OK);
  EXPECT_EQ(folder.Get("ID").value.number(), 1);
}
TEST_F(DatabaseObject, CountsTheDepthOfTransactions) {
  EXPECT_EQ(connection.Call("BeginTrans").value.number(), 1);
  EXPECT_EQ(connection.Call("BeginTrans").value.number(), 2);
  EXPECT_EQ(connection.Call("RollbackTrans").result, S_OK);
  EXPECT_EQ(connection.Call("CommitTrans").result, S_OK);
}
TEST_F(DatabaseObject, IsTakenOverByAnotherSession) {
  const Object other = Create("CSession");
  EXPECT_EQ(other.Put("conDBConnection", connection, DISPATCH_PROPERTYPUTREF).result, S_OK);
  EXPECT_TRUE(other.Call("GetFolder", 1).value.object());
}
TEST_F(DatabaseObject, OpensWithItsOptionalArgumentsByName) {
  const Object rows = Rows("SELECT FLD_ID FROM Folders");
  rows.Call("Close");
  const Request named{DISPATCH_METHOD, {4}};  // options: a table by name
  EXPECT_EQ(rows.Invoke(rows.Number("Open"), named, "Folders", connection, 2).result, S_OK);
  EXPECT_FALSE(rows.Get("EOF").value.truth());
}
TEST_F(DatabaseObject, ClearsItsErrors) {
  connection.Call("Execute", "SELECT * FROM NoSuchTable");
  const Object errors = connection.Get("Errors").value.object();
  const Object error = errors.Get("Item", 0).value.object();
  EXPECT_EQ(errors.Call("Clear").result, S_OK);
  EXPECT_EQ(errors.Get("Count").value.number(), 0);
  EXPECT_EQ(error.Get("Number").scode, static_cast<SCODE>(0x800A0000) + 3265);
}

}  // namespace
}  // namespace zef::test
