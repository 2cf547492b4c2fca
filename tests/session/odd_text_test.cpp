#include <gtest/gtest.h>

#include "folders/folder.h"
#include "session/collections.h"
#include "tests/support/dump.h"
#include "tests/support/session_test.h"

namespace zef::test {
namespace {

constexpr auto kDoesNotFit = static_cast<std::int32_t>(FailureNumber::ValueDoesNotFit);
constexpr auto kStatementError = static_cast<std::int32_t>(FailureNumber::StatementError);

std::string Repeated(std::string_view part, int times) {
  std::string text;
  for (int i = 0; i < times; ++i) text += part;
  return text;
}

/// Texts that a client may put anywhere, and that come back as they were.
class OddText : public SessionTest {
 protected:
  Ref<CFolder> NewFolder() {
    Ref<CFolder> folder = session->CreateFolder();
    folder->ItemsType = FT_Notes;
    return folder;
  }
  std::string NameAfterSaving(const std::string& name) {
    const Ref<CFolder> folder = NewFolder();
    folder->Name = name;
    EXPECT_TRUE(folder->Save()) << session->GetEntireErrorDesc();
    const Ref<CFolder> read = session->GetFolder(folder->ID);
    return read ? read->Name.get() : "no folder";
  }
  std::string DescriptionAfterSaving(const std::string& description) {
    const Ref<CFolder> folder = NewFolder();
    folder->Description = description;
    EXPECT_TRUE(folder->Save()) << session->GetEntireErrorDesc();
    const Ref<CFolder> read = session->GetFolder(folder->ID);
    return read ? read->Description.get() : "no folder";
  }
};

TEST_F(OddText, WithAnApostropheComesBack) { EXPECT_EQ(NameAfterSaving("O'Brien"), "O'Brien"); }

TEST_F(OddText, OfApostrophesOnlyComesBack) { EXPECT_EQ(NameAfterSaving("'''"), "'''"); }

TEST_F(OddText, WithDoubleQuotesComesBack) { EXPECT_EQ(NameAfterSaving("the \"best\""), "the \"best\""); }

TEST_F(OddText, WithABackslashAtTheEndComesBack) { EXPECT_EQ(NameAfterSaving("C:\\"), "C:\\"); }

TEST_F(OddText, ThatLooksLikeAStatementComesBackAndIsNotRun) {
  const std::string text = "x'); DELETE * FROM Folders; --";
  EXPECT_EQ(NameAfterSaving(text), text);
  EXPECT_EQ(Count(connection(), "Folders"), 13);
}

TEST_F(OddText, WithMarksOfDatesBracketsAndPlaceholdersComesBack) {
  EXPECT_EQ(NameAfterSaving("#1/2/2003# [x] ? %s {d} ; --"), "#1/2/2003# [x] ? %s {d} ; --");
}

TEST_F(OddText, ThatLooksLikeANumberComesBack) { EXPECT_EQ(NameAfterSaving("007"), "007"); }

TEST_F(OddText, ThatLooksLikeADateComesBack) { EXPECT_EQ(NameAfterSaving("05/01/2024"), "05/01/2024"); }

TEST_F(OddText, WithBlanksAroundComesBack) { EXPECT_EQ(NameAfterSaving("  x  "), "  x  "); }

TEST_F(OddText, WithLineBreaksComesBack) { EXPECT_EQ(DescriptionAfterSaving("a\r\nb\nc\t"), "a\r\nb\nc\t"); }

TEST_F(OddText, WithEmojiComesBack) {
  EXPECT_EQ(NameAfterSaving("🎂 Mum 👩‍👩‍👧"), "🎂 Mum 👩‍👩‍👧");
}

TEST_F(OddText, WithAZeroCharacterComesBack) {
  const std::string text("a\0b", 3);
  EXPECT_EQ(DescriptionAfterSaving(text), text);
}

TEST_F(OddText, NameWithAZeroCharacterComesBack) {
  const std::string text("a\0b", 3);
  EXPECT_EQ(NameAfterSaving(text), text);
}

TEST_F(OddText, LongTextOf64KBComesBack) {
  const std::string text = Repeated("It's 'long' ü\n", 5000);
  EXPECT_EQ(DescriptionAfterSaving(text), text);
}

TEST_F(OddText, LongTextOf8MBComesBack) {
  const std::string text = Repeated("sixteen letters.", 524288);
  EXPECT_EQ(DescriptionAfterSaving(text).size(), text.size());
}

TEST_F(OddText, NameOf255CharactersComesBack) {
  const std::string text(255, 'n');
  EXPECT_EQ(NameAfterSaving(text), text);
}

TEST_F(OddText, NameOf255CharactersOfSeveralBytesComesBack) {
  const std::string text = Repeated("ü", 255);
  EXPECT_EQ(NameAfterSaving(text), text);
}

/// Texts that do not fit their column. Nothing of them is written.
class TextTooLong : public SessionTest, public testing::WithParamInterface<int> {
 protected:
  TextTooLong() {
    folder->Name = std::string(static_cast<std::size_t>(GetParam()), 'n');
    folder->Options = 5;
  }
  Ref<CFolder> folder = session->GetFolder(8);
};

TEST_P(TextTooLong, MakesSaveReturnFalse) { EXPECT_FALSE(folder->Save()); }

TEST_P(TextTooLong, IsRecorded) {
  folder->Save();
  EXPECT_EQ(session->GetErrorProcedure(), "CFolder.Save");
  EXPECT_EQ(session->GetErrorCode(), kDoesNotFit);
}

TEST_P(TextTooLong, IsNotTold) {
  folder->Save();
  EXPECT_EQ(session->GetErrorDescription().find("nnn"), std::string::npos);
}

TEST_P(TextTooLong, WritesNothing) {
  const std::string before = Dump(connection());
  folder->Save();
  EXPECT_EQ(Dump(connection()), before);
}

TEST_P(TextTooLong, KeepsTheFlags) {
  folder->Save();
  EXPECT_TRUE(folder->IsModified());
  EXPECT_FALSE(folder->IsNew());
}

TEST_P(TextTooLong, LeavesNoTransactionOpen) {
  folder->Save();
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(connection().OpenedEngine().TransactionDepth(), 0);
}

TEST_P(TextTooLong, ShortenedIsSaved) {
  folder->Save();
  folder->Name = "n";
  EXPECT_TRUE(folder->Save());
  EXPECT_EQ(session->GetFolder(8)->Options.get(), 5);
}

INSTANTIATE_TEST_SUITE_P(Lengths, TextTooLong, testing::Values(256, 65536));

/// Bytes that are no text are refused: what is stored can be read by everybody.
class InvalidBytes : public SessionTest, public testing::WithParamInterface<std::string> {
 protected:
  Ref<CFolder> NewFolder() {
    Ref<CFolder> folder = session->CreateFolder();
    folder->Name = GetParam();
    return folder;
  }
  Ref<CFolders> folders = MakeRef<CFolders>();
};

TEST_P(InvalidBytes, InANameMakeSaveReturnFalse) {
  EXPECT_FALSE(NewFolder()->Save());
  EXPECT_EQ(session->GetErrorCode(), kStatementError);
}

TEST_P(InvalidBytes, InADescriptionMakeSaveReturnFalse) {
  const Ref<CFolder> folder = session->GetFolder(8);
  folder->Description = GetParam();
  EXPECT_FALSE(folder->Save());
}

TEST_P(InvalidBytes, AreNotWritten) {
  NewFolder()->Save();
  EXPECT_EQ(Count(connection(), "Folders"), 12);
}

TEST_P(InvalidBytes, AreNotTold) {
  NewFolder()->Save();
  EXPECT_EQ(session->GetErrorDescription().find(GetParam()), std::string::npos);
}

TEST_P(InvalidBytes, KeepTheFlags) {
  const Ref<CFolder> folder = NewFolder();
  folder->Save();
  EXPECT_TRUE(folder->IsNew() && folder->IsModified());
}

TEST_P(InvalidBytes, InACriteriaMakeLoadReturnFalse) {
  EXPECT_FALSE(session->LoadFoldersWithCriteria(folders, "FLD_Name='" + GetParam() + "'"));
  EXPECT_EQ(session->GetErrorCode(), kStatementError);
}

INSTANTIATE_TEST_SUITE_P(Texts, InvalidBytes,
                         testing::Values("\xff\xfe", "a\x80z", "\xc3", "\xed\xa0\x80", "\xc0\x80",
                                         "\xf8\x88\x80\x80\x80"));

}  // namespace
}  // namespace zef::test
