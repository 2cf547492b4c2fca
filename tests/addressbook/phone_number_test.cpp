#include "tests/addressbook/contact_fixture.h"
#include "tests/support/planner.h"

namespace zef::test {
namespace {

class PhoneNumber : public ContactTest {
 protected:
  void Insert(int id, const std::string& column, const std::string& number) {
    Run("INSERT INTO Contacts (CNT_ID," + column + ") VALUES (" + std::to_string(id) + ",'" + number + "')");
  }
};

TEST_F(PhoneNumber, IsSearchedInFourColumnsByOneStatement) {
  session->GetContactIDByPhoneNumber("555-1");
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Contacts WHERE CNT_PHONE='555-1' or CNT_MobilePhone='555-1' or "
                               "CNT_WorkPhone='555-1' or CNT_WorkFax='555-1'"});
}

TEST_F(PhoneNumber, InEachOfTheFourColumnsIsFound) {
  for (const char* column : {"CNT_Phone", "CNT_MobilePhone", "CNT_WorkPhone", "CNT_WorkFax"}) {
    Run("DELETE * FROM Contacts");
    Insert(7, column, "555-1");
    Insert(8, column, "555-2");
    EXPECT_EQ(session->GetContactIDByPhoneNumber("555-1"), 7) << column;
  }
}

TEST_F(PhoneNumber, IsSearchedThroughTheIndexesOfAllFourColumns) {
  session->GetContactIDByPhoneNumber("555-1");
  const std::vector<std::string> steps = Planner(database.path()).Steps(Sent().at(0));
  EXPECT_THAT(steps, testing::Contains("MULTI-INDEX OR"));
  for (const char* column : {"CNT_Phone", "CNT_MobilePhone", "CNT_WorkPhone", "CNT_WorkFax"}) {
    EXPECT_THAT(steps, testing::Contains(testing::HasSubstr(std::string("(") + column + "=?)")));
  }
  EXPECT_THAT(steps, testing::Each(testing::Not(testing::StartsWith("SCAN"))));
}

TEST_F(PhoneNumber, InAnotherColumnIsNotFound) {
  for (int id = 0; const char* column : {"CNT_WorkExtension", "CNT_Email", "CNT_Notes", "CNT_CustomField1"}) {
    Insert(++id, column, "555-1");
  }
  EXPECT_EQ(session->GetContactIDByPhoneNumber("555-1"), -1);
}

TEST_F(PhoneNumber, OfTwoContactsGivesOneOfThem) {
  Insert(7, "CNT_Phone", "555-1");
  Insert(8, "CNT_WorkFax", "555-1");
  EXPECT_THAT(session->GetContactIDByPhoneNumber("555-1"), testing::AnyOf(7, 8));
}

TEST_F(PhoneNumber, OfNobodyGivesMinusOneAndNoError) {
  session->ClearError();
  EXPECT_EQ(session->GetContactIDByPhoneNumber("555-1"), -1);
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(PhoneNumber, IsComparedWithoutRegardToLetterCase) {
  Insert(7, "CNT_Phone", "0800 Flowers");
  EXPECT_EQ(session->GetContactIDByPhoneNumber("0800 FLOWERS"), 7);
}

TEST_F(PhoneNumber, OutsideAsciiIsComparedWithoutRegardToLetterCaseToo) {
  Insert(7, "CNT_WorkPhone", "0800 Blüten");
  EXPECT_EQ(session->GetContactIDByPhoneNumber("0800 BLÜTEN"), 7);
}

TEST_F(PhoneNumber, IsNotNormalised) {
  Insert(7, "CNT_Phone", "555-1");
  for (const char* number : {"5551", "555 1", " 555-1", "+555-1", "555-%"}) {
    EXPECT_EQ(session->GetContactIDByPhoneNumber(number), -1) << number;
  }
}

TEST_F(PhoneNumber, ThatIsEmptyFindsAClearedOneButNotNull) {
  Run("INSERT INTO Contacts (CNT_ID) VALUES (7)");
  EXPECT_EQ(session->GetContactIDByPhoneNumber(""), -1);
  Insert(8, "CNT_WorkFax", "");
  EXPECT_EQ(session->GetContactIDByPhoneNumber(""), 8);
}

TEST_F(PhoneNumber, WithAnApostropheGivesMinusOneAndIsRecorded) {
  Insert(7, "CNT_Phone", "555''1");
  EXPECT_EQ(session->GetContactIDByPhoneNumber("555'1"), -1);
  EXPECT_EQ(session->GetErrorProcedure(), "GetContactIDByPhoneNumber");
  EXPECT_EQ(session->GetErrorCode(), -2147217900);
}

TEST_F(PhoneNumber, SearchDoesNotClearAnOldError) {
  LeaveAnOldError();
  EXPECT_EQ(session->GetContactIDByPhoneNumber("555-1"), -1);
  EXPECT_EQ(session->GetErrorCode(), 77);
}

TEST_F(PhoneNumber, SearchThatFailsIsRecorded) {
  Refuse("SELECT * FROM Contacts");
  EXPECT_EQ(session->GetContactIDByPhoneNumber("555-1"), -1);
  EXPECT_EQ(session->GetEntireErrorDesc(), "[GetContactIDByPhoneNumber] Error: -2147217900 - made to fail");
}

}  // namespace
}  // namespace zef::test
