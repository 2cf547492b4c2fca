#include <gmock/gmock.h>

#include <fstream>

#include "tests/client/run_zef.h"

namespace zef::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

/// A database with one record of each kind that is exported.
class ZefExportTest : public ZefTest {
 protected:
  ZefExportTest() {
    Zef({"add", "note", "people.db", "Ideas", "--text", "é and Ω"});
    Zef({"add", "contact", "people.db", "--last-name", "Lee"});
    Zef({"add", "task", "people.db", "Pay"});
    Zef({"add", "event", "people.db", "Lunch", "--start", "2024-05-17"});
    Zef({"add", "alarm", "people.db", "Go", "--start", "2024-05-17"});
  }
  std::string Content(const char* name) const {
    std::ifstream file(File(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }
  void Write(const char* name, const char* text) const { std::ofstream(File(name)) << text; }
  std::ptrdiff_t Names() const {
    return std::distance(std::filesystem::directory_iterator(folder()), std::filesystem::directory_iterator());
  }
};

struct Exported {
  const char* kind;
  const char* beginning;

  friend void PrintTo(const Exported& exported, std::ostream* out) { *out << exported.kind; }
};

class EveryExportedKind : public ZefExportTest, public testing::WithParamInterface<Exported> {};
INSTANTIATE_TEST_SUITE_P(Records, EveryExportedKind,
                         testing::Values(Exported{"note", "Title:Ideas\r\n"},
                                         Exported{"contact", "First name:\r\nLast name:Lee\r\n"},
                                         Exported{"task", "Name:Pay\r\n"}, Exported{"event", "Text:Lunch\r\n"},
                                         Exported{"alarm", "Text:Go\r\n"}));

TEST_P(EveryExportedKind, IsWritten) {
  Printed({"export", GetParam().kind, "people.db", "1", "x.txt"});
  EXPECT_THAT(Content("x.txt"), StartsWith(GetParam().beginning));
}

TEST_P(EveryExportedKind, MissingOneIsRefusedAndNoFileIsMade) {
  EXPECT_EQ(Complaint(1, {"export", GetParam().kind, "people.db", "9", "x.txt"}),
            std::string("zef: There is no ") + GetParam().kind + " 9.\n");
  EXPECT_FALSE(std::filesystem::exists(File("x.txt")));
}

TEST_F(ZefExportTest, TellsWhatItWrote) {
  EXPECT_EQ(Printed({"export", "note", "people.db", "1", "x.txt"}), "Wrote note 1, 'Ideas' to x.txt.\n");
}

TEST_F(ZefExportTest, TellsWhatItWroteAsJson) {
  EXPECT_EQ(Printed({"export", "note", "people.db", "1", "x.txt", "--json"}),
            "{\"kind\": \"note\", \"id\": 1, \"file\": \"x.txt\"}\n");
}

TEST_F(ZefExportTest, IsWrittenInOneByteACharacter) {
  Zef({"export", "note", "people.db", "1", "x.txt"});
  EXPECT_THAT(Content("x.txt"), HasSubstr("Text:\xE9 and ?\r\n"));
}

TEST_F(ZefExportTest, IsPrivateToTheUserAndLeavesNothingElse) {
  const auto before = Names();
  Zef({"export", "note", "people.db", "1", "x.txt"});
  EXPECT_EQ(Names(), before + 1);
  EXPECT_EQ(std::filesystem::status(File("x.txt")).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST_F(ZefExportTest, ExistingFileIsKept) {
  Write("x.txt", "mine");
  EXPECT_EQ(Complaint(1, {"export", "note", "people.db", "1", "x.txt"}),
            "zef: 'x.txt' exists already; it is written over only with --yes.\n");
  EXPECT_EQ(Content("x.txt"), "mine");
}

TEST_F(ZefExportTest, ExistingFileIsWrittenOverWithConsent) {
  Write("x.txt", "mine");
  Printed({"export", "note", "people.db", "1", "x.txt", "--yes"});
  EXPECT_THAT(Content("x.txt"), StartsWith("Title:Ideas\r\n"));
}

TEST_F(ZefExportTest, LinkIsRefusedEvenWithConsent) {
  Write("mine.txt", "mine");
  std::filesystem::create_symlink("mine.txt", File("x.txt"));
  Complaint(1, {"export", "note", "people.db", "1", "x.txt"});
  EXPECT_THAT(Complaint(1, {"export", "note", "people.db", "1", "x.txt", "--yes"}), HasSubstr("x.txt"));
  EXPECT_EQ(Content("mine.txt"), "mine");
}

TEST_F(ZefExportTest, LinkThatLeadsNowhereIsRefused) {
  std::filesystem::create_symlink("nowhere.txt", File("x.txt"));
  Complaint(1, {"export", "note", "people.db", "1", "x.txt"});
  Complaint(1, {"export", "note", "people.db", "1", "x.txt", "--yes"});
  EXPECT_FALSE(std::filesystem::exists(File("nowhere.txt")));
}

TEST_F(ZefExportTest, MissingFolderIsRefused) {
  EXPECT_EQ(Complaint(1, {"export", "note", "people.db", "1", "none/x.txt"}),
            "zef: Nothing can be made in the folder 'none': No such file or directory.\n");
}

TEST_F(ZefExportTest, KindThatIsNotExportedIsWrongUseThatTellsTheOthers) {
  EXPECT_THAT(Complaint(2, {"export", "user", "people.db", "1", "x.txt"}),
              HasSubstr("there are task, event, contact, note, alarm."));
}

TEST_F(ZefExportTest, MissingTargetIsWrongUse) {
  EXPECT_THAT(Complaint(2, {"export", "note", "people.db", "1"}), StartsWith("zef: TARGET is missing."));
}

}  // namespace
}  // namespace zef::test
