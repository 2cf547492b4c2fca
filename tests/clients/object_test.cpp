#include <gmock/gmock.h>

#include <fstream>

#include "tests/clients/loaded.h"

namespace zef::test {
namespace {

class ObjectTest : public DatabaseTest {
 protected:
  const Object session{session_};
  const Object contact = session.Call<Object>("CreateContact");
};

static_assert(std::input_iterator<Elements<Object>>);

TEST_F(ObjectTest, PropertyIsReadAsWhatWasAssigned) {
  contact.Let("FirstName", "J\u00fcrgen");
  contact.Let("LastName", std::string("O'Brien"));
  contact.Let("FolderID", 7);
  contact.Let("BirthDate", Date{-1.25});
  EXPECT_EQ(contact.Get<std::string>("FirstName"), "J\u00fcrgen");
  EXPECT_EQ(contact.Get<std::string>("LastName"), "O'Brien");
  EXPECT_EQ(contact.Get<std::int32_t>("FolderID"), 7);
  EXPECT_EQ(contact.Get<Date>("BirthDate"), Date{-1.25});
}

TEST_F(ObjectTest, ValueHoldsAnyPropertyButAnObject) {
  contact.Let("FolderID", 7);
  EXPECT_EQ(contact.Get("FolderID"), Value(7));
  EXPECT_EQ(Raised([&] { contact.Get("Session"); }).number(), 13);
}

TEST_F(ObjectTest, IntegerOfAnyTypeIsTakenInTheRangeOf32Bits) {
  contact.Let("FolderID", 7L);
  EXPECT_EQ(contact.Get<long>("FolderID"), 7);
  contact.Let("FolderID", std::int64_t{-2147483648});
  EXPECT_EQ(contact.Get<std::int64_t>("FolderID"), -2147483648);
  contact.Let("FolderID", std::size_t{2147483647});
  EXPECT_EQ(contact.Get<std::size_t>("FolderID"), 2147483647u);
}

TEST_F(ObjectTest, IntegerOutOfRangeIsRefused) {
  contact.Let("FolderID", 7);
  EXPECT_EQ(Raised([&] { contact.Let("FolderID", std::int64_t{2147483648}); }).number(), DISP_E_OVERFLOW);
  EXPECT_EQ(Raised([&] { contact.Let("FolderID", 4294967295u); }).number(), DISP_E_OVERFLOW);
  EXPECT_EQ(contact.Get<int>("FolderID"), 7);
}

TEST_F(ObjectTest, ResultThatTheTypeAskedForCannotHoldRaises6) {
  contact.Let("FolderID", 70000);
  EXPECT_EQ(Raised([&] { contact.Get<short>("FolderID"); }).number(), 6);
  contact.Let("FolderID", -1);
  EXPECT_EQ(Raised([&] { contact.Get<unsigned>("FolderID"); }).number(), 6);
}

TEST_F(ObjectTest, VariableInARefMayBeOfAnyIntegerType) {
  long id = 0;
  EXPECT_EQ(session.Call<int>("GetUniqueIDFromSeq", 1, std::ref(id)), 1);
  EXPECT_GT(id, 0);
}

TEST_F(ObjectTest, PropertyOfATypedClassIsTakenAsItsValue) {
  CFolder folder = session_.GetFolder(1);
  CEvent event = session_.CreateEvent();
  const Object user(Built().Create<CUser>());
  user.Set("Session", event.Session);
  EXPECT_EQ(user.Get<Object>("Session"), session);
  contact.Let("FirstName", folder.Name);
  contact.Let("FolderID", folder.ID);
  contact.Let("BirthDate", folder.DateLastUpdate);
  EXPECT_EQ(contact.Get<std::string>("FirstName"), folder.Name);
  EXPECT_EQ(contact.Get<int>("FolderID"), folder.ID);
  EXPECT_EQ(contact.Get<Date>("BirthDate"), folder.DateLastUpdate);
}

TEST_F(ObjectTest, NullPointerIsNothing) {
  const Object user(Built().Create<CUser>());
  user.Set("Session", session);
  user.Set("Session", nullptr);
  EXPECT_TRUE(user.Get<Object>("Session") == nullptr);
}

TEST_F(ObjectTest, ColumnIsReadAsTheTypeThatItHolds) {
  const Object records = session.Get<Object>("conDBConnection").Call<Object>("Execute", "SELECT 1.5 AS A FROM Folders");
  EXPECT_EQ(records.Get<Object>("Fields").Get<Object>("Item", 0).Get<double>("Value"), 1.5);
}

TEST_F(ObjectTest, NameIsTakenInAnyLetterCase) {
  contact.Let("FOLDERID", 7);
  EXPECT_EQ(contact.Get<std::int32_t>("folderid"), 7);
}

TEST_F(ObjectTest, EnumerationIsAssignedAndRead) {
  const Object rule = session.Call<Object>("CreateTask").Get<Object>("Recurrence");
  rule.Let("RType", REC_WEEKLY);
  EXPECT_EQ(rule.Get<RecurrenceType>("RType"), REC_WEEKLY);
}

TEST_F(ObjectTest, ObjectIsSetAndSetToNothing) {
  const Object user(Built().Create<CUser>());
  user.Set("Session", session);
  EXPECT_EQ(user.Get<Object>("Session"), session);
  user.Set("Session", Object());
  EXPECT_FALSE(user.Get<Object>("Session"));
}

TEST_F(ObjectTest, VariableInARefGetsWhatTheMemberLeavesInIt) {
  std::string version;
  std::string kind;
  EXPECT_TRUE(session.Call<bool>("GetDBInfo", std::ref(version), std::ref(kind)));
  EXPECT_EQ(version, "9.2.4");
}

TEST_F(ObjectTest, FailureIsToldThoughAVariableIsTooNarrow) {
  const Connection connection = session_.conDBConnection;
  connection.Execute("UPDATE Folders SET FLD_ID=70000 WHERE FLD_ID=1");
  short id = -7;
  std::int32_t folder = -8;
  const Failure failure = Raised([&] {
    session.Call<bool>("GetObjectID", "SELECT FLD_ID AS ID FROM Folders WHERE FLD_ID=70000", std::ref(id),
                       std::ref(folder));
  });
  EXPECT_EQ(failure.number(), 3265);
  EXPECT_EQ(id, -7);
}

TEST_F(ObjectTest, VariableThatIsTooNarrowRaises6) {
  std::int8_t id = 0;
  EXPECT_EQ(Raised([&] { session.Call<int>("GetUniqueIDFromSeq", 1, std::ref(id), 1000); }).number(), 6);
  EXPECT_EQ(id, 0);
}

TEST_F(ObjectTest, ValueInARefGetsWhatTheMemberLeaves) {
  Value version = std::string();
  Value kind = std::string();
  EXPECT_TRUE(session.Call<bool>("GetDBInfo", std::ref(version), std::ref(kind)));
  EXPECT_EQ(version, Value("9.2.4"));
  Value id = 0;
  EXPECT_EQ(session.Call<int>("GetUniqueIDFromSeq", 1, std::ref(id)), 1);
  EXPECT_GT(std::get<std::int32_t>(id), 0);
}

TEST_F(ObjectTest, EmptyValueInARefGetsWhatTheMemberLeaves) {
  Value version;
  Value kind;
  EXPECT_TRUE(session.Call<bool>("GetDBInfo", std::ref(version), std::ref(kind)));
  EXPECT_EQ(version, Value("9.2.4"));
}

TEST_F(ObjectTest, TableInARefGetsWhatTheMemberLeaves) {
  contact.Let("LastName", "O'Neil");
  Rows rows;
  std::int32_t count = 0;
  ASSERT_TRUE(contact.Call<bool>("GetFieldsArray", FN_SERIALIZE, std::ref(rows), std::ref(count)));
  EXPECT_THAT(rows, testing::Contains(testing::Contains("O'Neil")));
}

TEST_F(ObjectTest, WalkIsNoValue) {
  const Object folders(RootFolders());
  EXPECT_EQ(Raised([&] { folders.Get("NewEnum"); }).number(), 13);
}

TEST_F(ObjectTest, NullAndBytesGoIntoAColumn) {
  const Object records(NewRow("T_Bytes LongBinary, T_Text Memo"));
  const Object fields = records.Get<Object>("Fields");
  const Bytes content{std::byte{1}, std::byte{0}};
  fields.Get<Object>("Item", 0).Let("Value", content);
  fields.Get<Object>("Item", "T_Text").Let("Value", Null{});
  records.Call("Update");
  EXPECT_EQ(Selected("SELECT T_Bytes FROM T"), Value(content));
  EXPECT_EQ(Selected("SELECT T_Text FROM T"), Value(Null{}));
}

TEST_F(ObjectTest, CollectionIsWalked) {
  const Object folders(Built().Create<CFolders>());
  ASSERT_TRUE(session.Call<bool>("LoadRootFolders", folders));
  std::vector<std::string> names;
  for (const Object& folder : folders) names.push_back(folder.Get<std::string>("Name"));
  EXPECT_THAT(names, testing::ElementsAre("Alarms", "Calendar", "Contacts", "Notes", "Tasks"));
}

TEST_F(ObjectTest, ResultOfAnotherTypeRaises13) {
  EXPECT_EQ(Raised([&] { contact.Get<std::string>("FolderID"); }).number(), 13);
  EXPECT_EQ(Raised([&] { contact.Get<Object>("FolderID"); }).number(), 13);
  EXPECT_EQ(Raised([&] { contact.Call<Rows>("IsNew"); }).number(), 13);
}

TEST_F(ObjectTest, UnknownNameIsTold) {
  const Failure failure = Raised([&] { contact.Get("Shoesize"); });
  EXPECT_EQ(failure.number(), DISP_E_UNKNOWNNAME);
  EXPECT_STREQ(failure.what(), "The object has no member 'Shoesize'");
}

TEST_F(ObjectTest, RefusalTellsMemberAndArgument) {
  using Text = std::string;
  const auto told = [](auto&& run) { return Text(Raised(run).what()); };
  EXPECT_EQ(told([&] { session.Call("GetFolder", "many"); }),
            "GetFolder: Argument 1 is of a type that does not convert");
  EXPECT_EQ(told([&] { session.Call("LoadTasks4Folder", Built().Create<CTasks>(), "many"); }),
            "LoadTasks4Folder: Argument 2 is of a type that does not convert");
  EXPECT_EQ(told([&] { contact.Let("FolderID", "many"); }), "FolderID: The value is of a type that does not convert");
  EXPECT_EQ(told([&] { contact.Let("BirthDate", Date{1e9}); }), "BirthDate: The value is out of the range of its type");
  EXPECT_EQ(told([&] { contact.Let("FolderID", std::int64_t{1} << 32); }),
            "FolderID: An argument is out of the range of its type");
  EXPECT_EQ(told([&] { session.Call("GetFolder"); }), "GetFolder: The member takes another number of arguments");
}

TEST_F(ObjectTest, MemberOfAnotherUseIsTold) {
  EXPECT_STREQ(Raised([&] { session.Let("TransactionStarted", true); }).what(),
               "TransactionStarted: The object has no such member, or none to be used in this way");
}

TEST_F(ObjectTest, WalkOverARecordIsRefused) {
  EXPECT_STREQ(Raised([&] { contact.begin(); }).what(), "The object is no collection");
}

TEST_F(ObjectTest, FailureIsThatOfATypedCall) {
  const Failure failure = Raised([&] { Object(RootFolders()).Get<Object>("ItemByIdx", 99); });
  EXPECT_EQ(failure.number(), 9);
  EXPECT_STREQ(failure.what(), "Subscript out of range");
}

TEST_F(ObjectTest, OfNothingRaises91) {
  EXPECT_EQ(Raised([] { Object().Get("ID"); }).number(), 91);
}

TEST_F(ObjectTest, LeavesNothingBehind) {
  {
    const Object tag(Built().Create<CTag>());
    Object copy = tag;
    EXPECT_EQ(copy, tag);
    Raised([&] { copy.Get("None"); });
    const Object tags(Built().Create<CTags>());
    tags.Call<bool>("Add", tag);
    EXPECT_EQ(tags.Get<Object>("ItemByIdx", 1), tag);
  }
  EXPECT_EQ(Object(Built().Create<CTag>()).Get<std::int32_t>("ID"), 0);
}

}  // namespace
}  // namespace zef::test
