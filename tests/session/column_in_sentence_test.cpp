#include <gtest/gtest.h>

#include "addressbook/contact.h"
#include "calendar/event.h"
#include "folders/folder.h"
#include "tests/support/raised.h"
#include "tests/support/session_test.h"

namespace zef::test {
namespace {

/// Failures with a value tell the column, never the value.
class ColumnInSentence : public SessionTest {
 protected:
  std::string Told(const std::string& statement) {
    const auto failure = Raised([&] { connection().Execute(statement); });
    return failure ? failure->description() : "no failure";
  }
};

TEST_F(ColumnInSentence, OfATextThatIsTooLong) {
  EXPECT_EQ(Told("UPDATE Events SET EVE_Type='secret'"),
            "A text is too long for the column 'EVE_Type', which takes 1 character.");
}

TEST_F(ColumnInSentence, OfACalculatedTextThatIsTooLong) {
  connection().Execute("INSERT INTO Events (EVE_ID) VALUES (1)");
  EXPECT_EQ(Told("UPDATE Events SET EVE_Type='sec' & 'ret'"),
            "A text is too long for the column 'EVE_Type', which takes 1 character.");
}

TEST_F(ColumnInSentence, OfANumberThatIsTooLarge) {
  EXPECT_EQ(Told("INSERT INTO Folders (FLD_ID, FLD_Protected) VALUES (99, 256)"),
            "A number lies outside of what the column 'FLD_Protected' can hold.");
}

TEST_F(ColumnInSentence, OfACalculatedNumberThatIsTooLarge) {
  EXPECT_EQ(Told("UPDATE Folders SET FLD_Type=2000000000+FLD_ID*1000000000"),
            "A number lies outside of what the column 'FLD_Type' can hold.");
}

TEST_F(ColumnInSentence, OfADateOutsideOfTheCalendar) {
  EXPECT_EQ(Told("INSERT INTO Tasks (TSK_ID, TSK_DueDate) VALUES (1, 9999999)"),
            "A date lies outside of what the column 'TSK_DueDate' can hold.");
}

TEST_F(ColumnInSentence, OfATextThatIsNoNumber) {
  EXPECT_EQ(Told("INSERT INTO Folders (FLD_ID, FLD_Type) VALUES (99, 'secret')"),
            "A value does not convert to the type of the column 'FLD_Type'.");
}

TEST_F(ColumnInSentence, OfATextThatIsNoDate) {
  EXPECT_EQ(Told("INSERT INTO Tasks (TSK_ID, TSK_DueDate) VALUES (1, 'secret')"),
            "A value does not convert to the type of the column 'TSK_DueDate'.");
}

TEST_F(ColumnInSentence, OfATextThatAShorterColumnWouldCut) {
  EXPECT_EQ(Told("ALTER TABLE Folders ALTER COLUMN FLD_Name Text(3)"),
            "A text is too long for the column 'FLD_Name', which takes 3 characters.");
}

TEST_F(ColumnInSentence, OfAFieldThatUpdateRefuses) {
  auto rs = MakeRef<Recordset>();
  rs->Open("SELECT * FROM Folders WHERE FLD_ID=8", session->conDBConnection, adOpenStatic, adLockOptimistic);
  rs->Fields().Item("FLD_Protected").SetValue(256);
  const auto failure = Raised([&] { rs->Update(); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->description(), "A number lies outside of what the column 'FLD_Protected' can hold.");
}

TEST_F(ColumnInSentence, OfADateThatASaveCannotWrite) {
  const Ref<CEvent> event = session->CreateEvent();
  event->EndDate = Date(3e6);
  EXPECT_FALSE(event->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(),
            "[CEvent.GetFieldsArray] Error: 5 - The date in the column 'EVE_EndDate' lies outside of the years 100 to "
            "9999.");
}

TEST_F(ColumnInSentence, OfADateThatGetFieldsArrayCannotWrite) {
  const Ref<CContact> contact = session->CreateContact();
  contact->BirthDate = Date(-1e6);
  FieldsArray fields;
  std::int32_t count = 0;
  EXPECT_FALSE(contact->GetFieldsArray(FN_DATABASE, fields, count));
  EXPECT_EQ(session->GetErrorDescription(),
            "The date in the column 'CNT_BirthDate' lies outside of the years 100 to 9999.");
}

// ---- reading

TEST_F(ColumnInSentence, OfANullInAKey) {
  const auto rs = connection().Execute("SELECT Null AS FLD_ID FROM Folders");
  const auto failure = Raised([&] { MakeRef<CFolder>()->GetValuesFromRS(rs); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->number(), 94);
  EXPECT_EQ(failure->description(), "Invalid use of Null in the column 'FLD_ID'");
}

TEST_F(ColumnInSentence, OfAMissingColumn) {
  const auto rs = connection().Execute("SELECT FLD_ID FROM Folders");
  const auto failure = Raised([&] { MakeRef<CFolder>()->GetValuesFromRS(rs); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->number(), 3265);
  EXPECT_EQ(failure->description(), "The column 'FLD_ParentID' is missing.");
}

/// A row that another program wrote against the types of the columns.
std::string ToldOfEvent(CSession& session, const std::string& values) {
  session.conDBConnection->Execute("ALTER TABLE Events ALTER COLUMN EVE_Reminder Memo");
  session.conDBConnection->Execute("ALTER TABLE Events ALTER COLUMN EVE_StartDate Memo");
  session.conDBConnection->Execute("INSERT INTO Events (EVE_ID, EVE_Reminder, EVE_StartDate) VALUES (1, " + values +
                                   ")");
  EXPECT_FALSE(session.GetEvent(1));
  return session.GetEntireErrorDesc();
}

TEST_F(ColumnInSentence, OfAStoredTextThatIsNoNumber) {
  EXPECT_EQ(ToldOfEvent(*session, "'secret', 1"), "[GetEvent] Error: 13 - Type mismatch in the column 'EVE_Reminder'");
}

TEST_F(ColumnInSentence, OfAStoredNumberThatIsTooLarge) {
  EXPECT_EQ(ToldOfEvent(*session, "'3000000000', 1"), "[GetEvent] Error: 6 - Overflow in the column 'EVE_Reminder'");
}

TEST_F(ColumnInSentence, OfAStoredTextThatIsNoDate) {
  EXPECT_EQ(ToldOfEvent(*session, "1, 'secret'"), "[GetEvent] Error: 13 - Type mismatch in the column 'EVE_StartDate'");
}

}  // namespace
}  // namespace zef::test
