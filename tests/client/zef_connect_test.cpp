#include <gmock/gmock.h>

#include <fstream>

#include "platform/engine.h"
#include "tests/client/run_zef.h"

namespace zef::test {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

const std::string kPeople = "Provider=SQLite;Data Source=people.db";

/// The database "people.db" by a connection string.
using ZefConnectTest = ZefTest;

TEST_F(ZefConnectTest, StringStandsInPlaceOfTheFile) {
  Printed({"add", "contact", "--last-name", "Lee", "--connect", kPeople});
  EXPECT_EQ(Stored("SELECT CNT_LastName FROM Contacts"), "Lee");
}

TEST_F(ZefConnectTest, StringMayStandBeforeTheCommandAndBehindAnEqualsSign) {
  EXPECT_THAT(Printed({"--connect=" + kPeople, "folders"}), HasSubstr("Contacts"));
}

TEST_F(ZefConnectTest, InfoTellsNoFile) {
  EXPECT_THAT(Printed({"info", "--connect", kPeople}), StartsWith("Version  "));
  EXPECT_THAT(Printed({"info", "--connect", kPeople, "--json"}),
              StartsWith("{\"file\": null, \"version\": \"9.2.4\", \"encrypted\": null, "));
}

TEST_F(ZefConnectTest, PasswordOfTheStringAndTheOptionOpenTheSame) {
  Printed({"create", "safe.db", "--password", "secret"});
  const std::string safe = "Provider=SQLite;Data Source=safe.db";
  EXPECT_THAT(Printed({"info", "--connect", safe + ";Password=secret"}), HasSubstr("9.2.4"));
  EXPECT_THAT(Printed({"info", "--connect", safe, "--password", "secret"}), HasSubstr("9.2.4"));
}

TEST_F(ZefConnectTest, ComplaintNeverShowsThePassword) {
  const std::string complaint = Complaint(1, {"info", "--connect", kPeople + ";Password=secret"});
  EXPECT_THAT(complaint, Not(HasSubstr("secret")));
  EXPECT_THAT(complaint, HasSubstr("password"));
}

TEST_F(ZefConnectTest, UnknownProviderIsRefused) {
  EXPECT_EQ(Complaint(1, {"info", "--connect", "Provider=Nobody"}), "zef: The provider cannot be found.\n");
}

#ifdef ZEF_POSTGRESQL
class ZefClientLibraryTest : public ZefTest {
 protected:
  /// Connects with the library that the test has put into its folder.
  Ended Connect() {
    const std::vector<std::string> words{"LD_LIBRARY_PATH=" + folder().string(), ZEF_BINARY, "info", "--connect",
                                         "Provider=PostgreSQL;Host=/nowhere;Database=none"};
    return RunProgram(folder(), "env", words);
  }
};

TEST_F(ZefClientLibraryTest, OfTheServerThatCannotBeLoadedIsTold) {
  std::ofstream(File("libpq.so.5")) << "no library";
  const Ended run = Connect();
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, StartsWith("zef: The client library of the server cannot be loaded: " + folder().string()));
}

TEST_F(ZefClientLibraryTest, OfTheServerThatLacksAFunctionIsTold) {
  std::filesystem::copy_file(ZEF_LIBRARY, File("libpq.so.5"));
  const Ended run = Connect();
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "zef: The client library of the server is too old: it has no PQconnectdbParams.\n");
}
#endif

TEST_F(ZefConnectTest, EmptyStringIsWrongUse) {
  EXPECT_EQ(Complaint(2, {"info", "--connect", ""}), "zef: --connect: the connection string is empty.\n");
}

TEST_F(ZefConnectTest, MissingStringIsWrongUse) {
  EXPECT_THAT(Complaint(2, {"info", "--connect"}), HasSubstr("--connect"));
}

TEST_F(ZefConnectTest, FileBesideTheStringIsWrongUse) {
  EXPECT_THAT(Complaint(2, {"info", "people.db", "--connect", kPeople}),
              HasSubstr("'people.db' is not expected here."));
}

TEST_F(ZefConnectTest, WordBehindTheEndOfOptionsIsNoOption) {
  Printed({"add", "task", "people.db", "--", "--connect"});
  EXPECT_EQ(Stored("SELECT TSK_Name FROM Tasks"), "--connect");
}

TEST_F(ZefConnectTest, CreateFillsAnEmptyDatabase) {
  const std::string empty = "Provider=SQLite;Data Source=" + File("empty.db").string();
  CreateDatabase(empty);
  EXPECT_EQ(Printed({"create", "--connect", empty}), "Made the database with the tables of version 9.2.4.\n");
  EXPECT_THAT(Printed({"info", "empty.db"}), HasSubstr("Folders      12\n"));
}

TEST_F(ZefConnectTest, CreateRefusesADatabaseWithTables) {
  EXPECT_EQ(Complaint(1, {"create", "--connect", kPeople}),
            "zef: The database is not empty: it has a table 'Sequences'.\n");
}

TEST_F(ZefConnectTest, CreateMakesNoFile) {
  EXPECT_THAT(Complaint(1, {"create", "--connect", "Provider=SQLite;Data Source=none.db"}), HasSubstr("none.db"));
  EXPECT_FALSE(std::filesystem::exists(File("none.db")));
}

TEST_F(ZefConnectTest, UpgradeMakesNoCopy) {
  Printed({"create", "old.db", "--schema", "9.1"});
  EXPECT_EQ(Printed({"upgrade", "--connect", "Provider=SQLite;Data Source=old.db"}),
            "Upgraded the database from version 9.1.0 to 9.2.4. Steps: 9.2.1, 9.2.2, 9.2.3, 9.2.4.\n"
            "Added an index that it lacked: IX_Events_LinkID.\n");
  EXPECT_FALSE(std::filesystem::exists(File("old.db.backup")));
}

}  // namespace
}  // namespace zef::test
