#include <gmock/gmock.h>

#include <fstream>

#include "tests/client/run_zef.h"

namespace zef::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

// ---- every kind that is listed and added by the table of kinds

struct Sample {
  const char* kind;
  const char* plural;
  std::vector<std::string> options;
  const char* added;  ///< what is told of the first one
  const char* json;

  friend void PrintTo(const Sample& sample, std::ostream* out) { *out << sample.kind; }
};

class EveryListedKind : public ZefTest, public testing::WithParamInterface<Sample> {
 protected:
  std::vector<std::string> Adding(const char* file = "people.db") const {
    std::vector<std::string> words{"add", GetParam().kind, file};
    words.insert(words.end(), GetParam().options.begin(), GetParam().options.end());
    return words;
  }
  std::string Kind() const { return GetParam().kind; }
  std::string Plural() const { return GetParam().plural; }
};

INSTANTIATE_TEST_SUITE_P(
    Records, EveryListedKind,
    testing::Values(
        Sample{"contact",
               "contacts",
               {"--first-name", "Ann", "--last-name", "O'Hara"},
               "contact 1, 'O'Hara, Ann', to the folder 'Contacts'",
               "\"last_name\": \"O'Hara\""},
        Sample{
            "note", "notes", {"Ideas", "--text", "a'b"}, "note 1, 'Ideas', to the folder 'Notes'", "\"text\": \"a'b\""},
        Sample{"alarm",
               "alarms",
               {"Wake up", "--start", "2024-05-14 07:00", "--every", "day"},
               "alarm 1, 'Wake up', to the folder 'Alarms'",
               "\"rule\": {\"words\": \"every day\""},
        Sample{"call",
               "calls",
               {"555", "--outgoing", "--date", "2024-05-01"},
               "call 1, '555'",
               "\"record_date\": \"2024-05-01\""},
        Sample{"category", "categories", {"Red", "--colour", "255"}, "category 1, 'Red'", "\"color\": 255"}));

TEST_P(EveryListedKind, IsAdded) { EXPECT_EQ(Printed(Adding()), std::string("Added ") + GetParam().added + ".\n"); }

TEST_P(EveryListedKind, IsAddedAndToldAsJson) {
  std::vector<std::string> words = Adding();
  words.emplace_back("--json");
  EXPECT_THAT(Printed(words), AllOf(StartsWith("{\"id\": 1, "), HasSubstr(GetParam().json)));
}

TEST_P(EveryListedKind, IsListed) {
  Zef(Adding());
  EXPECT_THAT(Printed({Plural(), "people.db"}), AllOf(StartsWith("ID  "), HasSubstr("\n 1  ")));
}

TEST_P(EveryListedKind, IsListedAsJson) {
  Zef(Adding());
  EXPECT_THAT(Printed({Plural(), "people.db", "--json"}),
              AllOf(StartsWith("[{\"id\": 1, "), HasSubstr(GetParam().json)));
}

TEST_P(EveryListedKind, ListIsEmptyAtFirst) { EXPECT_EQ(Printed({Plural(), "people.db"}), "No " + Plural() + ".\n"); }

TEST_P(EveryListedKind, IsShown) {
  Zef(Adding());
  EXPECT_THAT(Printed({"show", Kind(), "people.db", "1"}), testing::ContainsRegex("^ID +1\n"));
}

TEST_P(EveryListedKind, IsDeleted) {
  Zef(Adding());
  EXPECT_THAT(Printed({"delete", Kind(), "people.db", "1"}), StartsWith("Deleted " + Kind() + " 1, '"));
  EXPECT_EQ(Printed({Plural(), "people.db", "--json"}), "[]\n");
}

TEST_P(EveryListedKind, MissingOneIsRefusedByEveryCommand) {
  const std::string complaint = "zef: There is no " + Kind() + " 9.\n";
  EXPECT_EQ(Complaint(1, {"show", Kind(), "people.db", "9"}), complaint);
  EXPECT_EQ(Complaint(1, {"delete", Kind(), "people.db", "9"}), complaint);
}

TEST_P(EveryListedKind, ConditionInErrorIsRefused) {
  EXPECT_THAT(Complaint(1, {Plural(), "people.db", "--where", "=="}), StartsWith("zef: Syntax error"));
}

TEST_P(EveryListedKind, MissingFileIsRefusedAndNotMade) {
  EXPECT_EQ(Complaint(1, Adding("missing.db")), "zef: The database file 'missing.db' does not exist.\n");
  EXPECT_FALSE(std::filesystem::exists(File("missing.db")));
}

// ---- contacts

using ZefContactTest = ZefTest;

TEST_F(ZefContactTest, WithoutANameIsWrongUse) {
  EXPECT_EQ(Complaint(2, {"add", "contact", "people.db", "--phone", "555"}),
            "zef: A contact needs a name: give --first-name, --last-name or --company.\n");
}

TEST_F(ZefContactTest, AreListedByTheirNames) {
  Zef({"add", "contact", "people.db", "--last-name", "Zorn"});
  Zef({"add", "contact", "people.db", "--last-name", "Abel", "--birthday", "1980-02-29", "--phone", "555"});
  EXPECT_EQ(Printed({"contacts", "people.db"}),
            "ID  NAME  COMPANY  PHONE  MOBILE  EMAIL  BORN\n"
            " 2  Abel           555                   1980-02-29\n"
            " 1  Zorn\n");
}

TEST_F(ZefContactTest, BirthdayAppearsInTheAgenda) {
  Zef({"add", "contact", "people.db", "--first-name", "Ann", "--last-name", "Lee", "--birthday", "1980-05-17"});
  EXPECT_THAT(Printed({"agenda", "people.db", "--today", "2024-05-17", "--days", "1"}),
              HasSubstr("Ann Lee's Birthday"));
}

TEST_F(ZefContactTest, NameTooLongIsRefusedAndNothingIsWritten) {
  Complaint(1, {"add", "contact", "people.db", "--last-name", std::string(256, 'x'), "--birthday", "1980-05-17"});
  EXPECT_EQ(Stored("SELECT Count(*) FROM Events"), "0");
}

TEST_F(ZefContactTest, OfAFolderAreListed) {
  Zef({"add", "folder", "people.db", "Club", "--parent", "Contacts"});
  Zef({"add", "contact", "people.db", "--last-name", "Lee", "--folder", "Club"});
  Zef({"add", "contact", "people.db", "--last-name", "Abel"});
  EXPECT_THAT(Printed({"contacts", "people.db", "--folder", "club", "--where", "1=1 OR 1=1"}),
              AllOf(HasSubstr("Lee"), Not(HasSubstr("Abel"))));
}

TEST_F(ZefContactTest, FolderOfAnotherKindIsRefused) {
  EXPECT_EQ(Complaint(1, {"add", "contact", "people.db", "--last-name", "Lee", "--folder", "notes"}),
            "zef: The folder 'Notes' does not hold contacts.\n");
}

TEST_F(ZefContactTest, IsFoundByANumber) {
  Zef({"add", "contact", "people.db", "--last-name", "Lee", "--mobile", "555-1"});
  EXPECT_THAT(Printed({"find", "people.db", "555-1"}), HasSubstr("LastName        Lee\n"));
}

TEST_F(ZefContactTest, IsFoundAndToldAsJson) {
  Zef({"add", "contact", "people.db", "--last-name", "Lee", "--work-phone", "555-1"});
  EXPECT_THAT(Printed({"find", "people.db", "555-1", "--json"}), StartsWith("{\"id\": 1, "));
}

TEST_F(ZefContactTest, NumberThatNobodyHasIsRefused) {
  EXPECT_EQ(Complaint(1, {"find", "people.db", "x' OR 'a'='a"}), "zef: No contact has the number 'x' OR 'a'='a'.\n");
}

// ---- calls

TEST_F(ZefTest, CallOfAContactThatIsMissingIsRefused) {
  EXPECT_EQ(Complaint(1, {"add", "call", "people.db", "555", "--contact", "9"}), "zef: There is no contact 9.\n");
}

TEST_F(ZefTest, CallWithoutADateTookPlaceNow) {
  Zef({"add", "call", "people.db", "555"});
  EXPECT_EQ(Stored("SELECT DateDiff('d', PL_RecordDate, Now()) FROM PhoneLogs"), "0");
}

// ---- attached files

class ZefAttachmentTest : public ZefTest {
 protected:
  ZefAttachmentTest() { Write("plan.txt", "the plan"); }
  void Write(const char* name, const char* text) const { std::ofstream(File(name)) << text; }
  std::string Content(const char* name) const {
    std::ifstream file(File(name));
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }
  Ended AddAlarm(const char* attached) const {
    return Zef({"add", "alarm", "people.db", "Go", "--start", "2024-05-14", "--attach", attached});
  }
};

TEST_F(ZefAttachmentTest, IsNamedInTheListOfAlarms) {
  AddAlarm("plan.txt");
  EXPECT_EQ(Printed({"alarms", "people.db"}),
            "ID  TEXT  START       REPEATS  FILE\n"
            " 1  Go    2024-05-14           plan.txt\n");
}

TEST_F(ZefAttachmentTest, IsSavedAsItWas) {
  AddAlarm("plan.txt");
  std::filesystem::remove(File("plan.txt"));
  EXPECT_EQ(Printed({"attachment", "save", "people.db", "1", "back.txt"}), "Wrote the file of alarm 1 to back.txt.\n");
  EXPECT_EQ(Content("back.txt"), "the plan");
}

TEST_F(ZefAttachmentTest, IsSavedAndToldAsJson) {
  AddAlarm("plan.txt");
  EXPECT_EQ(Printed({"attachment", "save", "people.db", "1", "back.txt", "--json"}),
            "{\"alarm\": 1, \"file\": \"back.txt\"}\n");
}

TEST_F(ZefAttachmentTest, IsSavedForTheUserAlone) {
  AddAlarm("plan.txt");
  Zef({"attachment", "save", "people.db", "1", "back.txt"});
  EXPECT_EQ(std::filesystem::status(File("back.txt")).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST_F(ZefAttachmentTest, IsNotSavedOverAFile) {
  AddAlarm("plan.txt");
  Write("back.txt", "mine");
  EXPECT_EQ(Complaint(1, {"attachment", "save", "people.db", "1", "back.txt"}), "zef: 'back.txt' exists already.\n");
  EXPECT_EQ(Content("back.txt"), "mine");
}

TEST_F(ZefAttachmentTest, IsNotSavedOverALinkThatLeadsNowhere) {
  AddAlarm("plan.txt");
  std::filesystem::create_symlink("nowhere", File("back.txt"));
  EXPECT_EQ(Complaint(1, {"attachment", "save", "people.db", "1", "back.txt"}), "zef: 'back.txt' exists already.\n");
}

TEST_F(ZefAttachmentTest, FolderThatIsMissingIsRefused) {
  AddAlarm("plan.txt");
  EXPECT_EQ(Complaint(1, {"attachment", "save", "people.db", "1", "none/back.txt"}),
            "zef: Nothing can be made in the folder 'none': No such file or directory.\n");
}

TEST_F(ZefAttachmentTest, AlarmWithoutOneIsRefusedAndNoFileIsMade) {
  Zef({"add", "alarm", "people.db", "Go", "--start", "2024-05-14"});
  EXPECT_EQ(Complaint(1, {"attachment", "save", "people.db", "1", "back.txt"}),
            "zef: No file is attached to alarm 1.\n");
  EXPECT_FALSE(std::filesystem::exists(File("back.txt")));
}

TEST_F(ZefAttachmentTest, MissingAlarmIsRefused) {
  EXPECT_EQ(Complaint(1, {"attachment", "save", "people.db", "9", "back.txt"}), "zef: There is no alarm 9.\n");
}

TEST_F(ZefAttachmentTest, MissingFileToAttachIsRefusedAndNoAlarmIsWritten) {
  const Ended run = AddAlarm("missing.txt");
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("missing.txt"));
  EXPECT_EQ(Printed({"alarms", "people.db"}), "No alarms.\n");
}

TEST_F(ZefAttachmentTest, CanBeReplaced) {
  AddAlarm("plan.txt");
  Write("plan.txt", "another plan");
  Printed({"set", "alarm", "people.db", "1", "Attachement=plan.txt"});
  Zef({"attachment", "save", "people.db", "1", "back.txt"});
  EXPECT_EQ(Content("back.txt"), "another plan");
}

TEST_F(ZefAttachmentTest, CanBeTakenAway) {
  AddAlarm("plan.txt");
  Printed({"set", "alarm", "people.db", "1", "Attachement="});
  EXPECT_EQ(Stored("SELECT Count(*) FROM Attachements"), "0");
}

TEST_F(ZefAttachmentTest, StaysWhenTheAlarmChangesAndItsFileIsGone) {
  AddAlarm("plan.txt");
  std::filesystem::remove(File("plan.txt"));
  Printed({"set", "alarm", "people.db", "1", "Text=Stop"});
  EXPECT_EQ(Stored("SELECT ATC_Name FROM Attachements"), "plan.txt");
}

}  // namespace
}  // namespace zef::test
