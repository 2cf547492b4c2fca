#include "client/arguments.h"

#include <gmock/gmock.h>

#include <ostream>

#include "tests/client/failure_of.h"

namespace zef::client {
namespace {

using namespace std::chrono_literals;
using test::FailureOf;
using testing::HasSubstr;
using testing::Optional;
using testing::StartsWith;

Arguments Read(std::vector<std::string> words) { return std::get<Arguments>(ReadArguments(std::move(words))); }
std::string Shown(std::vector<std::string> words) { return std::get<std::string>(ReadArguments(std::move(words))); }
std::string Complaint(std::vector<std::string> words) {
  return FailureOf([&] { ReadArguments(std::move(words)); });
}

// ---- commands

struct Spelled {
  std::vector<std::string> words;
  Command command;

  friend void PrintTo(const Spelled& spelled, std::ostream* out) {
    *out << spelled.words[0] << ' ' << spelled.words[1];
  }
};

class EveryCommand : public testing::TestWithParam<Spelled> {};

TEST_P(EveryCommand, IsUnderstood) { EXPECT_EQ(Read(GetParam().words).command, GetParam().command); }

TEST_P(EveryCommand, HasHelpThatNamesItsFile) {
  std::vector<std::string> words = GetParam().words;
  words.emplace_back("--help");
  EXPECT_THAT(Shown(words), HasSubstr("FILE"));
}

TEST_P(EveryCommand, TakesTheGlobalOptionsBehindIt) {
  std::vector<std::string> words = GetParam().words;
  words.insert(words.end(), {"--json", "--password", "secret"});
  const Arguments arguments = Read(words);
  EXPECT_TRUE(arguments.json && arguments.place.password == "secret");
}

TEST_P(EveryCommand, RefusesAnUnknownOption) {
  std::vector<std::string> words = GetParam().words;
  words.emplace_back("--bogus");
  EXPECT_THAT(Complaint(words), testing::AllOf(StartsWith("2: "), HasSubstr("--bogus")));
}

TEST_P(EveryCommand, RefusesAWordTooMany) {
  std::vector<std::string> words = GetParam().words;
  words.emplace_back("surplus");
  EXPECT_THAT(Complaint(words), testing::AllOf(StartsWith("2: "), HasSubstr("surplus")));
}

INSTANTIATE_TEST_SUITE_P(
    Arguments, EveryCommand,
    testing::Values(
        Spelled{{"create", "f"}, Command::Create}, Spelled{{"info", "f"}, Command::Info},
        Spelled{{"folders", "f"}, Command::Folders}, Spelled{{"add", "folder", "f", "n"}, Command::AddFolder},
        Spelled{{"add", "task", "f", "n"}, Command::AddTask},
        Spelled{{"add", "event", "f", "t", "--start", "2024-05-17"}, Command::AddEvent},
        Spelled{{"tasks", "f"}, Command::Tasks}, Spelled{{"agenda", "f"}, Command::Agenda},
        Spelled{{"seen", "f", "1", "2024-05-17"}, Command::Seen}, Spelled{{"contacts", "f"}, Command::List},
        Spelled{{"notes", "f"}, Command::List}, Spelled{{"alarms", "f"}, Command::List},
        Spelled{{"calls", "f"}, Command::List}, Spelled{{"categories", "f"}, Command::List},
        Spelled{{"add", "contact", "f", "--last-name", "Lee"}, Command::AddRecord},
        Spelled{{"add", "note", "f", "n"}, Command::AddRecord},
        Spelled{{"add", "alarm", "f", "t", "--start", "2024-05-17"}, Command::AddRecord},
        Spelled{{"add", "call", "f", "555"}, Command::AddRecord},
        Spelled{{"add", "category", "f", "n"}, Command::AddRecord}, Spelled{{"show", "call", "f", "1"}, Command::Show},
        Spelled{{"set", "note", "f", "1", "Title=x"}, Command::Set},
        Spelled{{"delete", "folder", "f", "1", "--yes"}, Command::Delete}, Spelled{{"done", "f", "1"}, Command::Done},
        Spelled{{"copy", "folder", "f", "a", "b"}, Command::CopyFolder}, Spelled{{"find", "f", "555"}, Command::Find},
        Spelled{{"attachment", "save", "f", "1", "x"}, Command::SaveAttachment}, Spelled{{"users", "f"}, Command::List},
        Spelled{{"set", "user", "f", "1", "Name=x"}, Command::Set}, Spelled{{"lists", "f", "states"}, Command::Lists},
        Spelled{{"export", "note", "f", "1", "x"}, Command::Export}, Spelled{{"upgrade", "f"}, Command::Upgrade}));

TEST(Arguments, NoCommandIsWrongUseThatTellsThem) {
  EXPECT_THAT(Complaint({}), StartsWith("2: 'zef' needs a command; there are create, info, "));
}

TEST(Arguments, UnknownCommandIsWrongUseThatTellsThem) {
  EXPECT_THAT(Complaint({"bogus"}), StartsWith("2: 'zef' has no command 'bogus'; there are create, info, "));
}

TEST(Arguments, UnknownThingToAddIsWrongUse) {
  EXPECT_THAT(
      Complaint({"add", "bogus"}),
      StartsWith("2: 'zef add' has no command 'bogus'; there are folder, task, event, contact, note, alarm, call, "
                 "category, user."));
}

TEST(Arguments, MissingFileIsWrongUse) { EXPECT_THAT(Complaint({"info"}), StartsWith("2: FILE is missing.")); }

TEST(Arguments, VersionIsShown) { EXPECT_THAT(Shown({"--version"}), StartsWith("zef 9.")); }

TEST(Arguments, HelpOfTheProgramNamesTheCommands) { EXPECT_THAT(Shown({"--help"}), HasSubstr("  agenda ")); }

TEST(Arguments, GlobalOptionsMayStandInFrontOfTheCommand) { EXPECT_TRUE(Read({"--json", "info", "f"}).json); }

TEST(Arguments, EmptyPasswordIsWrongUse) {
  EXPECT_THAT(Complaint({"info", "f", "--password", ""}), StartsWith("2: --password: the password is empty"));
}

TEST(Arguments, TextThatIsNotUtf8IsWrongUse) {
  EXPECT_EQ(Complaint({"add", "task", "f", "\xff"}), "2: An argument is not UTF-8 text.");
}

TEST(Arguments, BothSpellingsOfColourAreUnderstood) {
  EXPECT_TRUE(Read({"info", "f", "--no-colour"}).no_colour && Read({"info", "f", "--no-color"}).no_colour);
}

// ---- names

TEST(Arguments, NameMayBeThatOfACommand) { EXPECT_EQ(Read({"add", "task", "f", "folder"}).name, "folder"); }

TEST(Arguments, NameMayLookLikeAnOptionBehindTwoHyphens) {
  EXPECT_EQ(Read({"add", "task", "f", "--", "--json"}).name, "--json");
}

TEST(Arguments, FileMayBeCalledLikeACommand) { EXPECT_EQ(Read({"info", "info"}).place.file, "info"); }

// ---- intervals

TEST(Arguments, IntervalMayBeTwoWords) {
  EXPECT_THAT(Read({"add", "task", "f", "n", "--every", "2", "weeks"}).rule.every, Optional(std::string("2 weeks")));
}

TEST(Arguments, IntervalMayBeOneQuotedWord) {
  EXPECT_THAT(Read({"add", "task", "f", "n", "--every", "2 weeks"}).rule.every, Optional(std::string("2 weeks")));
}

TEST(Arguments, IntervalDoesNotSwallowTheFile) {
  EXPECT_EQ(Read({"add", "task", "--every", "week", "f", "n"}).place.file, "f");
}

TEST(Arguments, TwoWordIntervalMayStandInFrontOfTheFile) {
  EXPECT_EQ(Read({"add", "task", "--every", "2", "weeks", "f", "n"}).place.file, "f");
}

TEST(Arguments, WordsBehindTwoHyphensAreNotJoined) { EXPECT_EQ(Read({"add", "task", "--", "--every", "2"}).name, "2"); }

// ---- values

TEST(Arguments, DatesAreRead) {
  EXPECT_THAT(Read({"add", "task", "f", "n", "--due", "2024-05-17 09:00"}).due, Optional(Date(2024y / 5 / 17, 32400)));
}

TEST(Arguments, WrongDateIsToldByItsOption) {
  EXPECT_THAT(Complaint({"add", "task", "f", "n", "--due", "soon"}), StartsWith("2: --due: 'soon' is no date."));
}

TEST(Arguments, WrongDateArgumentIsToldByItsName) {
  EXPECT_THAT(Complaint({"seen", "f", "1", "soon"}), StartsWith("2: DATE: 'soon' is no date."));
}

TEST(Arguments, MonthIsRead) { EXPECT_THAT(Read({"agenda", "f", "--month", "2024-05"}).month, Optional(2024y / 5)); }

TEST(Arguments, EventWithoutAStartIsWrongUse) {
  EXPECT_THAT(Complaint({"add", "event", "f", "t"}), StartsWith("2: --start is missing."));
}

TEST(Arguments, ReminderMayBeNegative) {
  EXPECT_EQ(Read({"add", "event", "f", "t", "--start", "2024-05-17", "--reminder", "-5"}).reminder, -5);
}

// ---- records

TEST(Arguments, RecordIsKnownByItsKindAndIdentifier) {
  const Arguments arguments = Read({"show", "category", "f", "7"});
  EXPECT_TRUE(arguments.type == RecordType::Category && arguments.id == 7);
}

TEST(Arguments, OptionsOfANewRecordBecomeItsProperties) {
  EXPECT_THAT(Read({"add", "contact", "f", "--birthday", "1980-02-29", "--city", "Ulm"}).values,
              testing::UnorderedElementsAre(Assignment("BirthDate", Date(1980y / 2 / 29)),
                                            Assignment("City", std::string("Ulm"))));
}

TEST(Arguments, CallWithoutADirectionCameIn) { EXPECT_EQ(Read({"add", "call", "f", "555"}).values.size(), 1U); }

TEST(Arguments, CallCanBeOutgoing) {
  EXPECT_THAT(Read({"add", "call", "f", "555", "--outgoing"}).values, testing::Contains(Assignment("Direction", 1)));
}

TEST(Arguments, SeveralChangesAreTakenInTheirOrder) {
  EXPECT_THAT(Read({"set", "note", "f", "1", "Title=x", "FolderID=4"}).values,
              testing::ElementsAre(Assignment("Title", std::string("x")), Assignment("FolderID", 4)));
}

TEST(Arguments, HelpOfSetNamesTheProperties) {
  EXPECT_THAT(Shown({"set", "category", "--help"}), HasSubstr("Properties: Name, Color."));
}

TEST(Arguments, UnknownKindOfRecordIsWrongUseThatTellsTheKinds) {
  EXPECT_THAT(Complaint({"show", "person", "f", "1"}),
              StartsWith("2: 'zef show' has no command 'person'; there are folder, task, event, contact, note, alarm, "
                         "call, category, user."));
}

// ---- one clear sentence for each mistake

struct Mistake {
  std::vector<std::string> words;
  std::string complaint;

  friend void PrintTo(const Mistake& mistake, std::ostream* out) { *out << mistake.complaint; }
};

class Mistaken : public testing::TestWithParam<Mistake> {};

TEST_P(Mistaken, IsWrongUseToldInOneSentence) { EXPECT_EQ(Complaint(GetParam().words), "2: " + GetParam().complaint); }

std::vector<std::string> Task(std::vector<std::string> options) {
  options.insert(options.begin(), {"add", "task", "f", "n"});
  return options;
}
std::vector<std::string> Event(std::vector<std::string> options) {
  options.insert(options.begin(), {"add", "event", "f", "t", "--start", "2024-05-17"});
  return options;
}

INSTANTIATE_TEST_SUITE_P(
    CommandLines, Mistaken,
    testing::Values(
        Mistake{{"seen", "f", "x", "2024-05-17"}, "EVENT: 'x' is no whole number."},
        Mistake{{"seen", "f", "", "2024-05-17"}, "EVENT: '' is no whole number."},
        Mistake{{"seen", "f", "1.5", "2024-05-17"}, "EVENT: '1.5' is no whole number."},
        Mistake{{"seen", "f", "2147483648", "2024-05-17"}, "EVENT: 2147483648 is not between 1 and 2147483647."},
        Mistake{{"seen", "f", "1"}, "DATE is missing. (See zef seen --help.)"},
        Mistake{{"seen", "f", "1", "2024-05-17", "--user", "me"}, "--user: 'me' is no whole number."},
        Mistake{Event({"--reminder", "soon"}), "--reminder: 'soon' is no whole number."},
        Mistake{Event({"--reminder", "9999999999"}),
                "--reminder: 9999999999 is not between -2147483648 and 2147483647."},
        Mistake{Event({"--reminder"}), "--reminder needs a value. (See zef add event --help.)"},
        Mistake{{"agenda", "f", "--days", "0"}, "--days: 0 is not between 1 and 36600."},
        Mistake{{"agenda", "f", "--days", "many"}, "--days: 'many' is no whole number."},
        Mistake{Task({"--every", "day", "--times", "0"}), "--times: 0 is not between 1 and 2147483647."},
        Mistake{Task({"--every"}), "--every needs a value. (See zef add task --help.)"},
        Mistake{Task({"--due", "1899-12-30"}), "--due: '1899-12-30' cannot be given; that day stands for \"no date\"."},
        Mistake{Task({"--reminder", "3"}), "'--reminder' is not expected here. (See zef add task --help.)"},
        Mistake{{"info", "f", "g"}, "'g' is not expected here. (See zef info --help.)"},
        Mistake{{"info", "f", "--password"}, "--password needs a value. (See zef info --help.)"},
        Mistake{{"show", "note", "f", "x"}, "ID: 'x' is no whole number."},
        Mistake{{"show", "note", "f", "0"}, "ID: 0 is not between 1 and 2147483647."},
        Mistake{{"show", "note", "f"}, "ID is missing. (See zef show note --help.)"},
        Mistake{{"set", "note", "f", "1"}, "CHANGE is missing. (See zef set note --help.)"},
        Mistake{{"delete", "note", "f", "1", "--yes"}, "'--yes' is not expected here. (See zef delete note --help.)"},
        Mistake{{"add", "note", "f"}, "TITLE is missing. (See zef add note --help.)"},
        Mistake{{"add", "alarm", "f", "t"}, "--start is missing. (See zef add alarm --help.)"},
        Mistake{{"add", "call", "f", "5", "--contact", "Ann"}, "--contact: 'Ann' is no whole number."},
        Mistake{{"calls", "f", "--folder", "x"}, "'--folder' is not expected here. (See zef calls --help.)"},
        Mistake{{"find", "f"}, "NUMBER is missing. (See zef find --help.)"},
        Mistake{{"create", "f", "--schema", "8"}, "--schema: '8' is none of 9.2.4, 9.1. (See zef create --help.)"}));

TEST(Arguments, IntervalThatIsNegativeIsOneValue) {
  EXPECT_THAT(Read(Task({"--every", "-1", "day"})).rule.every, Optional(std::string("-1 day")));
}

TEST(Arguments, IntervalWithADecimalPointIsOneValue) {
  EXPECT_THAT(Read(Task({"--every", "1.5", "days"})).rule.every, Optional(std::string("1.5 days")));
}

TEST(Arguments, IntervalWithoutAUnitSwallowsNoOption) {
  EXPECT_THAT(Read(Task({"--every", "2", "--on", "mon"})).rule.on, Optional(std::string("mon")));
}

TEST(Arguments, UnknownKindOfFolderIsWrongUseThatTellsTheKinds) {
  EXPECT_THAT(Complaint({"add", "folder", "f", "n", "--kind", "files"}), HasSubstr("alarms"));
}

TEST(Arguments, UnknownSchemaIsWrongUseThatTellsTheVersions) {
  EXPECT_THAT(Complaint({"create", "f", "--schema", "8"}), HasSubstr("9.2.4"));
}

}  // namespace
}  // namespace zef::client
