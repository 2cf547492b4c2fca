#include <gmock/gmock.h>

#include <string_view>

#include "tests/clients/loaded.h"

namespace zef::test {
namespace {

using CallTest = DatabaseTest;

TEST_F(CallTest, VariableGetsWhatTheMemberLeavesInIt) {
  std::int32_t first = 0;
  std::int32_t last = 0;
  EXPECT_EQ(session_.GetUniqueIDFromSeq(1, first), 1);
  EXPECT_EQ(session_.GetUniqueIDFromSeq(1, last, 5), 1);
  EXPECT_EQ(last, first + 5);
}

TEST_F(CallTest, VariableKeepsWhatAMemberWroteBeforeItRaised) {
  std::int32_t id = -7;
  std::int32_t folder = -8;
  EXPECT_EQ(Raised([&] { session_.GetObjectID("SELECT 3 AS ID FROM Folders", id, folder); }).number(), 3265);
  EXPECT_EQ(id, 3);
  EXPECT_EQ(folder, -8);
}

TEST_F(CallTest, TextVariableGetsWhatTheMemberLeavesInIt) {
  std::string version = "before";
  std::string kind;
  EXPECT_TRUE(session_.GetDBInfo(version, kind));
  EXPECT_EQ(version, "9.2.4");
}

TEST_F(CallTest, TableOfTextsComesRowByRow) {
  CContact contact = session_.CreateContact();
  contact.LastName = "O'Neil";
  Rows rows;
  std::int32_t count = 0;
  ASSERT_TRUE(contact.GetFieldsArray(FN_SERIALIZE, rows, count));
  EXPECT_THAT(rows, testing::Contains(testing::Contains("O'Neil")));
}

TEST_F(CallTest, NullTextIsTheEmptyOne) {
  const char* const none = nullptr;
  EXPECT_EQ(session_.GetUserID4Name(none), -1);
}

TEST_F(CallTest, ArgumentOfNothingIsNothing) {
  CEvent event = session_.CreateEvent();
  EXPECT_TRUE(event.Clone());
}

TEST_F(CallTest, OnNothingRaises91) {
  const CSession nothing;
  EXPECT_EQ(Raised([&] { nothing.GetFolder(1); }).number(), 91);
}

TEST_F(CallTest, FailureHasNumberDescriptionAndSource) {
  const Failure failure = Raised([&] { RootFolders().ItemByIdx(99); });
  EXPECT_EQ(failure.number(), 9);
  EXPECT_STREQ(failure.what(), "Subscript out of range");
  EXPECT_EQ(failure.source(), "ZEFComponents");
}

TEST_F(CallTest, FailureOfTheProviderKeepsItsNumber) {
  EXPECT_EQ(Raised([&] { session_.conDBConnection->Execute("SELECT * FROM Nowhere"); }).number(), -2147217865);
}

TEST_F(CallTest, WhateverTheClientHasCaughtIsRecordedAsFive) {
  struct Thrown {};
  try {
    throw Thrown();
  } catch (const Thrown&) {
    session_.RecordError("Client");
  }
  EXPECT_EQ(session_.GetErrorCode(), 5);
}

TEST_F(CallTest, ObjectOfAnotherClassIsRefused) {
  const CTags tags = Built().Create<CTags>();
  tags.get()->AddRef();
  const CFolders disguised(tags.get());
  EXPECT_EQ(Raised([&] { session_.LoadRootFolders(disguised); }).number(), DISP_E_TYPEMISMATCH);
}

TEST_F(CallTest, RowOfFailuresLeavesNothingBehind) {
  {
    const CSession session = Built().Create<CSession>();
    std::string text = "x";
    for (int i = 0; i < 3; ++i) {
      Raised([&] { session.Connect2Database("/nowhere/none.db", text, ""); });
      Raised([&] { Built().Create<CFolders>().ItemByKey("none"); });
    }
  }
  session_ = CSession();
  EXPECT_TRUE(NothingLives());
}

TEST_F(CallTest, ColumnsComeInTheirTypes) {
  EXPECT_EQ(Selected("SELECT FLD_ID FROM Folders WHERE FLD_ID=1"), Value(1));
  EXPECT_EQ(Selected("SELECT FLD_Name FROM Folders WHERE FLD_ID=1"), Value("Calendar"));
  EXPECT_EQ(Selected("SELECT Null FROM Folders WHERE FLD_ID=1"), Value(Null{}));
}

TEST_F(CallTest, ElementIsNamedByAnyTypeOfTextOrInteger) {
  const Fields fields = session_.conDBConnection->Execute("SELECT FLD_ID, FLD_Name FROM Folders").Fields;
  const std::string_view view = "FLD_Name";
  CTag tag = Built().Create<CTag>();
  tag.ID = 1;
  tag.Text = view;
  for (const Field& field :
       {fields.Item(1), fields.Item(1L), fields.Item(std::size_t{1}), fields.Item("FLD_Name"), fields.Item(view),
        fields.Item(std::string(view)), fields.Item(tag.ID), fields.Item(tag.Text)}) {
    EXPECT_EQ(field.Name, "FLD_Name");
  }
}

TEST_F(CallTest, IntegerBeyond32BitsIsRefusedAsAValue) {
  const Fields fields = session_.conDBConnection->Execute("SELECT FLD_ID FROM Folders").Fields;
  for (const std::int64_t wide : {std::int64_t{1} << 32, -(std::int64_t{1} << 31) - 1}) {
    EXPECT_EQ(Raised([&] { fields.Item(wide); }).number(), DISP_E_OVERFLOW) << wide;
  }
}

TEST_F(CallTest, IntegerBeyond32BitsIsRefusedAsAnArgument) {
  const std::int32_t id = RootFolders().ItemByIdx(1).ID;
  EXPECT_EQ(Raised([&] { session_.DeleteFolder(std::int64_t{id} + (std::int64_t{1} << 32)); }).number(),
            DISP_E_OVERFLOW);
  EXPECT_TRUE(session_.GetFolder(id));
}

static_assert(!std::is_constructible_v<AnyValue, char> && std::is_constructible_v<AnyValue, std::uint8_t>);

TEST_F(CallTest, ColumnTakesWhatAColumnHolds) {
  const Recordset records = NewRow("T_Number Long, T_Text Memo");
  const Fields fields = records.Fields;
  fields.Item("T_Number").Value = 7L;
  fields.Item("T_Text").Value = std::string_view("O'Neil");
  records.Update();
  EXPECT_EQ(Selected("SELECT T_Number FROM T"), Value(7));
  EXPECT_EQ(Selected("SELECT T_Text FROM T"), Value("O'Neil"));
}

TEST_F(CallTest, BytesOfAColumnComeBack) {
  Bytes content;
  for (int i = 0; i < 1000; ++i) content.push_back(static_cast<std::byte>(i));
  const Recordset records = NewRow("T_Bytes LongBinary");
  records.Fields->Item("T_Bytes").Value = content;
  records.Update();
  EXPECT_EQ(Selected("SELECT T_Bytes FROM T"), Value(content));
}

}  // namespace
}  // namespace zef::test
