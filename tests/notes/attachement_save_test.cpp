#include <sys/resource.h>
#include <sys/stat.h>

#include "calendar/alarm.h"
#include "tests/notes/attachement_fixture.h"
#include "tests/support/fault_sweep.h"
#include "tests/support/open_file.h"
#include "tests/support/process.h"

namespace zef::test {
namespace {

class AttachementSave : public AttachementTest {
 protected:
  /// The stored content, by way of a cache file.
  std::string StoredContent() {
    const Ref<CAttachement> attachement = session->GetAttachement(1);
    attachement->CacheFileName = CachePath("content");
    EXPECT_TRUE(attachement->Cache2File());
    return ContentOf(CachePath("content"));
  }
};

TEST_F(AttachementSave, NewAttachementStoresItsTexts) {
  const Ref<CAttachement> loaded = LoadedAttachement();
  EXPECT_EQ(loaded->Name, "O'Brien's photo 📷");
  EXPECT_EQ(loaded->DocType, "jpg");
  EXPECT_EQ(loaded->Description, "In the 'garden'");
  EXPECT_EQ(loaded->FileName, SourcePath());
}

TEST_F(AttachementSave, NewAttachementStoresEveryByteOfItsFile) {
  std::string content;
  for (int byte = 0; byte < 256; ++byte) content += static_cast<char>(byte);
  LoadedAttachement(content);
  EXPECT_EQ(StoredContent(), content);
}

TEST_F(AttachementSave, EmptyFileComesBackEmpty) {
  LoadedAttachement("");
  EXPECT_EQ(StoredContent(), "");
  EXPECT_EQ(Stored("SELECT IsNull(ATC_Content) FROM Attachements"), "False");
}

TEST_F(AttachementSave, EmptyTextsAreStoredAsEmptyTexts) {
  PutSource("x");
  const Ref<CAttachement> attachement = NewAttachement();
  attachement->FileName = SourcePath();
  ASSERT_TRUE(attachement->Save());
  EXPECT_EQ(Stored("SELECT ATC_Name FROM Attachements"), "");
}

TEST_F(AttachementSave, NewAttachementDrawsFromSequenceTen) {
  SetSequences({{10, 41}});
  const Ref<CAttachement> attachement = FullAttachement();
  ASSERT_TRUE(attachement->Save());
  EXPECT_EQ(attachement->ID, 42);
}

TEST_F(AttachementSave, NewAttachementOpensTheTableByName) {
  ASSERT_TRUE(FullAttachement()->Save());
  EXPECT_EQ(Sent().front(), "SELECT * FROM [Attachements]");
}

TEST_F(AttachementSave, ChangedAttachementSelectsItsRow) {
  const Ref<CAttachement> attachement = LoadedAttachement();
  attachement->Name = "b";
  ASSERT_TRUE(attachement->Save());
  EXPECT_EQ(Sent().front(), "SELECT * FROM Attachements where ATC_ID=1");
}

TEST_F(AttachementSave, FieldsAreSetInTheirOrder) {
  ASSERT_TRUE(FullAttachement()->Save());
  EXPECT_THAT(Sent().back(), testing::StartsWith("INSERT INTO [Attachements] ([ATC_ID],[ATC_Name],[ATC_DocType],"
                                                 "[ATC_Description],[ATC_FileName],[ATC_Content]) "));
  const Ref<CAttachement> attachement = session->GetAttachement(1);
  attachement->Name = "b";
  ASSERT_TRUE(attachement->Save());
  EXPECT_THAT(Sent().back(), testing::StartsWith("UPDATE [Attachements] SET [ATC_ID]=?,[ATC_Name]=?,[ATC_DocType]=?,"
                                                 "[ATC_Description]=?,[ATC_FileName]=?,[ATC_Content]=? "));
}

TEST_F(AttachementSave, ChangedAttachementStoresTheFileAsItIsNow) {
  const Ref<CAttachement> attachement = LoadedAttachement("old");
  PutSource("new and longer");
  attachement->Description = "changed";
  ASSERT_TRUE(attachement->Save());
  EXPECT_EQ(StoredContent(), "new and longer");
  EXPECT_EQ(Stored("SELECT ATC_Description FROM Attachements"), "changed");
}

TEST_F(AttachementSave, CachedAloneMakesTheNextSaveStoreTheFileAgain) {
  const Ref<CAttachement> attachement = LoadedAttachement("old");
  PutSource("new");
  attachement->Cached = true;
  ASSERT_TRUE(attachement->Save());
  EXPECT_EQ(StoredContent(), "new");
}

TEST_F(AttachementSave, OtherAttachementsStayAsTheyAre) {
  LoadedAttachement("first");
  ASSERT_TRUE(FullAttachement("second")->Save());
  EXPECT_EQ(StoredContent(), "first");
  EXPECT_EQ(Rows("Attachements"), 2);
}

TEST_F(AttachementSave, SavingClearsTheFlags) {
  const Ref<CAttachement> attachement = FullAttachement();
  ASSERT_TRUE(attachement->Save());
  EXPECT_EQ(Flags(*attachement), "old clear");
}

TEST_F(AttachementSave, UnchangedAttachementTouchesNeitherFileNorTable) {
  const Ref<CAttachement> attachement = LoadedAttachement();
  std::filesystem::remove(SourcePath());
  EXPECT_TRUE(attachement->Save());
  EXPECT_EQ(SentInAll(), Texts{});
}

TEST_F(AttachementSave, UnchangedNewAttachementIsNoLongerNew) {
  const Ref<CAttachement> attachement = NewAttachement();
  EXPECT_TRUE(attachement->Save());
  EXPECT_EQ(Flags(*attachement), "old clear");
}

TEST_F(AttachementSave, SaveClearsAnOldErrorEvenWithNothingToWrite) {
  LeaveAnOldError();
  ASSERT_TRUE(NewAttachement()->Save());
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(AttachementSave, SaveIsOpenToASessionThatMayOnlyRead) {
  session->UserRights = DataViewer;
  EXPECT_TRUE(FullAttachement()->Save());
}

TEST_F(AttachementSave, SaveJoinsTheClientsTransaction) {
  const Ref<CAttachement> attachement = FullAttachement();
  ASSERT_TRUE(session->BeginTransaction());
  ASSERT_TRUE(attachement->Save());
  ASSERT_TRUE(session->RollbackTransaction());
  EXPECT_EQ(Rows("Attachements"), 0);
}

// ---- a save that fails

TEST_F(AttachementSave, MissingFileIsRecordedAndTheNumberIsLost) {
  const Ref<CAttachement> attachement = FullAttachement();
  attachement->FileName = SourcePath() + ".gone";
  EXPECT_FALSE(attachement->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CAttachement.Save");
  EXPECT_EQ(session->GetErrorCode(), 3002);
  EXPECT_EQ(Flags(*attachement), "new modified");
  EXPECT_EQ(Stored("SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=10"), "1");
  EXPECT_EQ(Rows("Attachements"), 0);
}

TEST_F(AttachementSave, MissingFileOfAChangedAttachementLeavesItsRow) {
  const Ref<CAttachement> attachement = LoadedAttachement();
  std::filesystem::remove(SourcePath());
  attachement->Description = "changed";
  EXPECT_FALSE(attachement->Save());
  EXPECT_EQ(Stored("SELECT ATC_Description FROM Attachements"), "In the 'garden'");
  EXPECT_EQ(StoredContent(), "the content");
  EXPECT_EQ(Flags(*attachement), "old modified");
}

TEST_F(AttachementSave, NoFileNameIsRecorded) {
  const Ref<CAttachement> attachement = FullAttachement();
  attachement->FileName = "";
  EXPECT_FALSE(attachement->Save());
  EXPECT_EQ(session->GetErrorCode(), 3002);
}

TEST_F(AttachementSave, FolderInPlaceOfTheFileIsRecorded) {
  const Ref<CAttachement> attachement = FullAttachement();
  attachement->FileName = "/";
  EXPECT_FALSE(attachement->Save());
  EXPECT_EQ(session->GetErrorCode(), 3002);
}

TEST_F(AttachementSave, PipeInPlaceOfTheFileIsRecordedWithoutWaiting) {
  const Ref<CAttachement> attachement = FullAttachement();
  std::filesystem::remove(SourcePath());
  ASSERT_EQ(mkfifo(SourcePath().c_str(), 0600), 0);
  EXPECT_FALSE(attachement->Save());
  EXPECT_EQ(session->GetErrorCode(), 3002);
}

TEST_F(AttachementSave, FileThatCannotBeReadIsRecorded) {
  const Ref<CAttachement> attachement = FullAttachement();
  attachement->FileName = "/proc/self/mem";
  EXPECT_FALSE(attachement->Save());
  EXPECT_EQ(session->GetErrorCode(), 3003);
}

TEST_F(AttachementSave, FailedSaveSucceedsOnceTheFileIsThere) {
  const Ref<CAttachement> attachement = FullAttachement();
  std::filesystem::remove(SourcePath());
  ASSERT_FALSE(attachement->Save());
  PutSource("late");
  EXPECT_TRUE(attachement->Save());
  EXPECT_EQ(attachement->ID, 2);
}

constexpr Property<std::string> CAttachement::*kLimitedTexts[] = {&CAttachement::Name, &CAttachement::DocType};

TEST_F(AttachementSave, TextsOf255CharactersComeBack) {
  for (const auto text : kLimitedTexts) {
    const Ref<CAttachement> attachement = FullAttachement();
    (*attachement).*text = std::string(255, 'n');
    ASSERT_TRUE(attachement->Save()) << session->GetEntireErrorDesc();
    EXPECT_EQ((*session->GetAttachement(attachement->ID)).*text, std::string(255, 'n'));
  }
}

TEST_F(AttachementSave, TextsOf256CharactersFail) {
  for (const auto text : kLimitedTexts) {
    const Ref<CAttachement> attachement = FullAttachement();
    (*attachement).*text = std::string(256, 'n');
    EXPECT_FALSE(attachement->Save());
    EXPECT_EQ(session->GetErrorCode(), -2147217887);
  }
}

TEST_F(AttachementSave, SavingLeavesNoFileOpen) {
  const Ref<CAttachement> attachement = LoadedAttachement();
  const auto open = OpenFileCount();
  for (int i = 0; i < 10; ++i) {
    attachement->ResetFlagsX(true, false);
    ASSERT_TRUE(attachement->Save());
  }
  EXPECT_EQ(OpenFileCount(), open);
}

TEST_F(AttachementSave, TextThatIsNotUtf8IsRecordedAndWritesNothing) {
  const Ref<CAttachement> attachement = FullAttachement();
  for (auto text : {&CAttachement::Name, &CAttachement::DocType, &CAttachement::Description}) {
    (*attachement).*text = "caf\xe9";
    EXPECT_FALSE(attachement->Save());
    (*attachement).*text = "";
  }
  EXPECT_EQ(session->GetEntireErrorDesc(),
            "[CAttachement.Save] Error: -2147217900 - The text for the column 'ATC_Description' is not UTF-8 text.");
  EXPECT_EQ(Rows("Attachements"), 0);
}

TEST_F(AttachementSave, FileNameThatIsNotUtf8IsRecordedAndLeavesTheRow) {
  const Ref<CAttachement> attachement = LoadedAttachement();
  const std::string latin = SourcePath() + "\xe9";
  std::ofstream(latin) << "content";
  attachement->FileName = latin;
  EXPECT_FALSE(attachement->Save());
  EXPECT_EQ(session->GetErrorDescription(), "The text for the column 'ATC_FileName' is not UTF-8 text.");
  EXPECT_EQ(Stored("SELECT ATC_FileName FROM Attachements"), SourcePath());
  EXPECT_EQ(Flags(*attachement), "old modified");
}

TEST_F(AttachementSave, RowThatIsGoneIsRecorded) {
  const Ref<CAttachement> attachement = LoadedAttachement();
  Run("DELETE * FROM Attachements");
  attachement->Name = "b";
  EXPECT_FALSE(attachement->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CAttachement.Save");
  EXPECT_EQ(session->GetErrorCode(), 3021);
  EXPECT_EQ(Flags(*attachement), "old modified");
}

TEST_F(AttachementSave, MissingSequenceIsRecordedInTheNameOfTheSaveWithItsReason) {
  Run("DELETE * FROM Sequences WHERE SEQ_ID=10");
  const Ref<CAttachement> attachement = FullAttachement();
  EXPECT_FALSE(attachement->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CAttachement.Save");
  EXPECT_EQ(session->GetErrorCode(), 3021);
  EXPECT_EQ(Rows("Attachements"), 0);
}

TEST_F(AttachementSave, EveryFailureOfANewAttachementsSaveLeavesNothingBehind) {
  const auto failures = FailEachFirstSave(database, *session, [&] { return FullAttachement(); });
  ASSERT_EQ(failures.size(), 6u) << "four calls for the identifier, the opening and the insert";
  for (const InjectedFailure& failure : failures) EXPECT_EQ(failure.procedure, "CAttachement.Save");
}

TEST_F(AttachementSave, EveryFailureOfAnUpdateLeavesTheRow) {
  const Ref<CAttachement> attachement = LoadedAttachement("old");
  attachement->Name = "b";
  std::string flags = "old modified";
  const auto save = [&] {
    const bool saved = attachement->Save();
    if (!saved) flags = Flags(*attachement);
    return saved;
  };
  EXPECT_EQ(FailEachCall(database, *session, save, [&] { return flags; }).size(), 2u);
}

// ---- large files

/// The most memory that a piece of work takes in a process of its own, beyond what it started with, in bytes.
template <class Work>
double MostMemory(Work&& work) {
  Process child([&]() -> std::string {
    rusage before{}, after{};
    getrusage(RUSAGE_SELF, &before);
    if (!work()) return "failed";
    getrusage(RUSAGE_SELF, &after);
    return std::to_string(after.ru_maxrss - before.ru_maxrss);
  });
  const std::string kilobytes = child.Result();
  EXPECT_NE(kilobytes, "failed");
  return kilobytes == "failed" ? 0 : std::stod(kilobytes) * 1024;
}

/// An attachment of 64 MB, in a database that no connection is open on.
class LargeAttachement : public testing::Test {
 protected:
  static constexpr std::size_t kSize = std::size_t{64} << 20;

  LargeAttachement() {
    std::ofstream(source_) << "begins";
    std::filesystem::resize_file(source_, kSize);
  }
  void SetUp() override {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the address sanitizer keeps freed memory for a while";
#endif
  }
  /// The most memory that work on an attachment takes, in sizes of its file; the work is done by a new attachment if
  /// `stored` is false.
  template <class Work>
  double MostMemory(bool stored, Work&& work) const {
    return test::MostMemory([&] {
             const Ref<CSession> session = database_.OpenSession();
             const Ref<CAttachement> attachement = stored ? session->GetAttachement(1) : MakeRef<CAttachement>();
             attachement->SetSession(session);
             attachement->FileName = source_;
             return work(*attachement);
           }) /
           static_cast<double>(kSize);
  }
  /// A new alarm with the attachment.
  static Ref<CAlarm> Attached(CAttachement& attachement) {
    Ref<CAlarm> alarm = attachement.Session()->CreateAlarm();
    alarm->Attachement = Ref<CAttachement>(&attachement);
    return alarm;
  }
  std::string SmallSource() const {
    const std::string path = (folder_.path() / "small").string();
    std::ofstream(path) << "few bytes";
    return path;
  }
  double MostMemoryOfTheInsert() const {
    return MostMemory(false, [](CAttachement& attachement) { return attachement.Save(); });
  }

  Database database_;
  TemporaryFolder folder_;
  std::string source_ = (folder_.path() / "source").string();
};

TEST_F(LargeAttachement, IsInsertedWithAtMostThreeTimesItsSizeInMemory) { EXPECT_LT(MostMemoryOfTheInsert(), 3); }

TEST_F(LargeAttachement, IsUpdatedWithAtMostThreeTimesItsSizeInMemory) {
  MostMemoryOfTheInsert();
  EXPECT_LT(MostMemory(true,
                       [](CAttachement& attachement) {
                         attachement.Name = "b";
                         return attachement.Save();
                       }),
            3);
}

TEST_F(LargeAttachement, IsCachedWithAtMostThreeTimesItsSizeInMemory) {
  const std::string cache = (folder_.path() / "cache").string();
  MostMemoryOfTheInsert();
  EXPECT_LT(MostMemory(true,
                       [&](CAttachement& attachement) {
                         attachement.CacheFileName = cache;
                         return attachement.Cache2File();
                       }),
            3);
  EXPECT_EQ(std::filesystem::file_size(cache), kSize);
}

TEST_F(LargeAttachement, IsLoadedWithoutItsContentInMemory) {
  MostMemoryOfTheInsert();
  EXPECT_LT(MostMemory(true, [](CAttachement& attachement) { return attachement.FileName != std::string(); }), 0.5);
}

TEST_F(LargeAttachement, DoesNotBurdenTheInsertOfASmallOne) {
  MostMemoryOfTheInsert();
  EXPECT_LT(MostMemory(false,
                       [this](CAttachement& attachement) {
                         attachement.FileName = SmallSource();
                         return attachement.Save();
                       }),
            0.5);
}

TEST_F(LargeAttachement, DoesNotBurdenTheLoadOfItsAlarm) {
  ASSERT_GT(MostMemory(false, [](CAttachement& attachement) { return Attached(attachement)->Save(); }), 1);
  EXPECT_LT(MostMemory(false,
                       [](CAttachement& attachement) {
                         const Ref<CAlarm> alarm = attachement.Session()->GetAlarm(1);
                         return alarm && !alarm->Attachement->FileName->empty();
                       }),
            0.5);
}

TEST_F(LargeAttachement, IsInsertedByItsAlarmWithAtMostThreeTimesItsSizeInMemory) {
  EXPECT_LT(MostMemory(false, [](CAttachement& attachement) { return Attached(attachement)->Save(); }), 3);
}

TEST_F(LargeAttachement, IsCopiedWithItsAlarmWithAtMostThreeTimesItsSizeInMemory) {
  MostMemory(false, [](CAttachement& attachement) { return Attached(attachement)->Save(); });
  EXPECT_LT(MostMemory(false,
                       [](CAttachement& attachement) {
                         const Ref<CAlarm> copy = attachement.Session()->DuplicateAlarm(1);
                         return copy && copy->Save();
                       }),
            3);
}

}  // namespace
}  // namespace zef::test
