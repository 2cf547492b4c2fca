#include <gmock/gmock.h>

#include <fstream>

#include "platform/connection.h"
#include "platform/engine.h"
#include "platform/recordset.h"
#include "tests/client/run_zef.h"

namespace zef::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

using ZefCreateTest = ZefTest;

TEST_F(ZefCreateTest, TellsWhatItMade) {
  EXPECT_EQ(Printed({"create", "new.db"}), "Made new.db with the tables of version 9.2.4.\n");
}

TEST_F(ZefCreateTest, TellsWhatItMadeAsJson) {
  EXPECT_EQ(Printed({"create", "new.db", "--json"}),
            "{\"file\": \"new.db\", \"schema\": \"9.2.4\", \"encrypted\": false}\n");
}

TEST_F(ZefCreateTest, ExistingFileIsRefused) {
  EXPECT_EQ(Complaint(1, {"create", "people.db"}), "zef: 'people.db' exists already.\n");
}

TEST_F(ZefCreateTest, NewDatabaseHasTheSystemFoldersAndNothingElse) {
  EXPECT_EQ(Printed({"info", "people.db"}),
            "File         people.db\nVersion      9.2.4\nEncrypted    no\nFolders      12\nTasks        0\nEvents      "
            " 0\nContacts     0\nNotes        0\nAlarms       0\nCalls        0\nAttachments  0\nCategories   0\nUsers "
            "       1\n");
}

TEST_F(ZefCreateTest, InfoIsToldAsJson) {
  EXPECT_EQ(Printed({"info", "people.db", "--json"}),
            "{\"file\": \"people.db\", \"version\": \"9.2.4\", \"encrypted\": false, \"folders\": 12, \"tasks\": 0, "
            "\"events\": 0, \"contacts\": 0, \"notes\": 0, \"alarms\": 0, \"calls\": 0, \"attachments\": 0, "
            "\"categories\": 0, \"users\": 1}\n");
}

TEST_F(ZefCreateTest, InfoCountsEveryKindOfRecord) {
  std::ofstream(File("plan.txt")) << "the plan";
  Zef({"add", "task", "people.db", "Pay", "--due", "2024-05-17"});
  Zef({"add", "contact", "people.db", "--last-name", "Lee"});
  Zef({"add", "note", "people.db", "Ideas"});
  Zef({"add", "alarm", "people.db", "Go", "--start", "2024-05-14", "--attach", "plan.txt"});
  Zef({"add", "call", "people.db", "555"});
  Zef({"add", "category", "people.db", "Red"});
  EXPECT_THAT(Printed({"info", "people.db", "--json"}),
              EndsWith("\"tasks\": 1, \"events\": 1, \"contacts\": 1, \"notes\": 1, \"alarms\": 1, \"calls\": 1, "
                       "\"attachments\": 1, \"categories\": 1, \"users\": 1}\n"));
}

TEST_F(ZefCreateTest, OlderSchemaIsMadeAndTold) {
  Zef({"create", "old.db", "--schema", "9.1"});
  EXPECT_THAT(Printed({"info", "old.db"}), HasSubstr("Version      9.1.0\n"));
}

TEST_F(ZefCreateTest, OlderSchemaIsRefusedByCommandsThatNeedTheNewOne) {
  Zef({"create", "old.db", "--schema", "9.1"});
  EXPECT_THAT(Complaint(1, {"folders", "old.db"}),
              HasSubstr("has version '9.1.0'; it must be upgraded to 9.2.4 first, by zef upgrade."));
}

#ifdef ZEF_SYSTEM_SQLITE

TEST_F(ZefCreateTest, PasswordIsRefusedWithoutEncryption) {
  EXPECT_EQ(Complaint(1, {"create", "secret.db", "--password", "p"}),
            "zef: This build of the library has no encryption; a database password cannot be used.\n");
  EXPECT_FALSE(std::filesystem::exists(File("secret.db")));
}

#else

class ZefPasswordTest : public ZefTest {
 protected:
  ZefPasswordTest() { EXPECT_EQ(Zef({"create", "secret.db", "--password", "p'w\"d"}).err, ""); }
};

TEST_F(ZefPasswordTest, FileShowsNothingOfItsContent) {
  std::ifstream file(File("secret.db"), std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  EXPECT_EQ(bytes.find("Calendar"), std::string::npos);
}

TEST_F(ZefPasswordTest, RightPasswordOpens) {
  EXPECT_THAT(Printed({"info", "secret.db", "--password", "p'w\"d"}), HasSubstr("Encrypted    yes\n"));
}

TEST_F(ZefPasswordTest, WrongPasswordIsRefused) {
  EXPECT_EQ(Complaint(1, {"info", "secret.db", "--password", "other"}),
            "zef: The password of the database is wrong.\n");
}

TEST_F(ZefPasswordTest, MissingPasswordIsRefused) {
  EXPECT_THAT(Complaint(1, {"folders", "secret.db"}), HasSubstr("The database is protected"));
}

TEST_F(ZefPasswordTest, PasswordForAnOpenFileIsRefused) {
  EXPECT_THAT(Complaint(1, {"folders", "people.db", "--password", "p"}), HasSubstr("this database has none"));
}

#endif

class ZefForeignTest : public ZefTest {
 protected:
  ZefForeignTest() {
    zef::CreateDatabase("Provider=SQLite;Data Source=" + File("o.db").string());
    auto connection = MakeRef<Connection>();
    connection->Open("Provider=SQLite;Data Source=" + File("o.db").string());
    connection->Execute("CREATE TABLE Notes (N Long)");
  }
};

TEST_F(ZefForeignTest, DatabaseOfAnotherProgramIsToldByEveryCommand) {
  for (const char* const command : {"info", "folders", "tasks", "agenda"}) {
    EXPECT_EQ(Complaint(1, {command, "o.db"}), "zef: 'o.db' is a database, but none of zef's.\n") << command;
  }
}

TEST_F(ZefForeignTest, FileThatIsNoDatabaseIsTold) {
  std::ofstream(File("o.txt")) << "text";
  EXPECT_EQ(Complaint(1, {"info", "o.txt"}), "zef: The file 'o.txt' is not a database.\n");
}

}  // namespace
}  // namespace zef::test
