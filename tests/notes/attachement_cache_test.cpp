#include <signal.h>
#include <sys/resource.h>

#include "tests/notes/attachement_fixture.h"
#include "tests/support/open_file.h"
#include "tests/support/process.h"

namespace zef::test {
namespace {

using AttachementCache = AttachementTest;

// ---- GetNewCacheFileName

TEST_F(AttachementCache, FirstNameIsNumberOneInTheTemporaryFolder) {
  const Ref<CAttachement> attachement = LoadedAttachement();
  std::string name;
  ASSERT_TRUE(attachement->GetNewCacheFileName(name));
  EXPECT_EQ(name, CachePath("zef1.jpg"));
}

TEST_F(AttachementCache, NameWithoutADocTypeEndsInThePoint) {
  std::string name;
  ASSERT_TRUE(NewAttachement()->GetNewCacheFileName(name));
  EXPECT_EQ(name, CachePath("zef1."));
}

TEST_F(AttachementCache, NameIsTheSameUntilItsFileExists) {
  const Ref<CAttachement> attachement = LoadedAttachement();
  std::string first, second, third;
  ASSERT_TRUE(attachement->GetNewCacheFileName(first));
  ASSERT_TRUE(attachement->GetNewCacheFileName(second));
  EXPECT_EQ(second, first);
  std::ofstream(first) << "x";
  ASSERT_TRUE(attachement->GetNewCacheFileName(third));
  EXPECT_EQ(third, CachePath("zef2.jpg"));
}

TEST_F(AttachementCache, FirstGapIsTaken) {
  for (const char* taken : {"zef1.jpg", "zef3.jpg", "zef2.txt"}) std::ofstream(CachePath(taken)) << "x";
  std::string name;
  ASSERT_TRUE(LoadedAttachement()->GetNewCacheFileName(name));
  EXPECT_EQ(name, CachePath("zef2.jpg"));
}

TEST_F(AttachementCache, LinkThatLeadsNowhereTakesItsName) {
  std::filesystem::create_symlink("nowhere", CachePath("zef1.jpg"));
  std::string name;
  ASSERT_TRUE(LoadedAttachement()->GetNewCacheFileName(name));
  EXPECT_EQ(name, CachePath("zef2.jpg"));
}

TEST_F(AttachementCache, FolderTakesItsName) {
  std::filesystem::create_directory(CachePath("zef1.jpg"));
  std::string name;
  ASSERT_TRUE(LoadedAttachement()->GetNewCacheFileName(name));
  EXPECT_EQ(name, CachePath("zef2.jpg"));
}

TEST_F(AttachementCache, NameIsNotMadeAFile) {
  std::string name;
  ASSERT_TRUE(LoadedAttachement()->GetNewCacheFileName(name));
  EXPECT_EQ(CacheFiles(), Texts{});
}

TEST_F(AttachementCache, DocTypeThatLeadsOutOfTheFolderIsRecordedAndLeavesTheArgument) {
  const Ref<CAttachement> attachement = NewAttachement();
  for (const char* type : {"x/../../evil", "/etc", "a/", "/"}) {
    attachement->DocType = type;
    std::string name = "mine";
    EXPECT_FALSE(attachement->GetNewCacheFileName(name)) << type;
    EXPECT_EQ(session->GetErrorProcedure(), "CAttachement.GetnewCacheFileName");
    EXPECT_EQ(session->GetErrorCode(), 75);
    EXPECT_EQ(name, "mine");
  }
}

TEST_F(AttachementCache, DocTypeWithAZeroCharacterIsRecorded) {
  const Ref<CAttachement> attachement = NewAttachement();
  attachement->DocType = std::string("t\0xt", 4);
  std::string name = "mine";
  EXPECT_FALSE(attachement->GetNewCacheFileName(name));
  EXPECT_EQ(session->GetEntireErrorDesc(),
            "[CAttachement.GetnewCacheFileName] Error: 75 - The name of the file holds a zero character.");
  EXPECT_EQ(name, "mine");
}

TEST_F(AttachementCache, DocTypeThatIsTooLongForAFileNameIsRecorded) {
  const Ref<CAttachement> attachement = NewAttachement();
  attachement->DocType = std::string(255, 'x');
  std::string name;
  EXPECT_FALSE(attachement->GetNewCacheFileName(name));
  EXPECT_EQ(session->GetErrorCode(), 75);
}

TEST_F(AttachementCache, NameDoesNotClearAnOldError) {
  LeaveAnOldError();
  std::string name;
  ASSERT_TRUE(NewAttachement()->GetNewCacheFileName(name));
  EXPECT_EQ(session->GetErrorCode(), 77);
}

// ---- Cache2File

TEST_F(AttachementCache, ContentIsWrittenUnderANewName) {
  const Ref<CAttachement> attachement = LoadedAttachement("the content");
  ASSERT_TRUE(attachement->Cache2File());
  EXPECT_EQ(attachement->CacheFileName, CachePath("zef1.jpg"));
  EXPECT_EQ(ContentOf(CachePath("zef1.jpg")), "the content");
}

TEST_F(AttachementCache, CacheFileIsPrivateToTheUser) {
  ASSERT_TRUE(LoadedAttachement()->Cache2File());
  EXPECT_EQ(std::filesystem::status(CachePath("zef1.jpg")).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST_F(AttachementCache, CachingSelectsTheRow) {
  const Ref<CAttachement> attachement = LoadedAttachement();
  ASSERT_TRUE(attachement->Cache2File());
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Attachements where ATC_ID=1"});
}

TEST_F(AttachementCache, CachingMarksNothing) {
  const Ref<CAttachement> attachement = LoadedAttachement();
  ASSERT_TRUE(attachement->Cache2File());
  EXPECT_EQ(Flags(*attachement), "old clear");
  EXPECT_FALSE(attachement->Cached);
}

TEST_F(AttachementCache, CachingLeavesAModifiedAttachementModified) {
  const Ref<CAttachement> attachement = LoadedAttachement();
  attachement->Name = "b";
  ASSERT_TRUE(attachement->Cache2File());
  EXPECT_EQ(Flags(*attachement), "old modified");
}

TEST_F(AttachementCache, CachedDoesNotKeepTheFileFromBeingWritten) {
  const Ref<CAttachement> attachement = LoadedAttachement("the content");
  attachement->Cached = true;
  ASSERT_TRUE(attachement->Cache2File());
  EXPECT_EQ(ContentOf(CachePath("zef1.jpg")), "the content");
  EXPECT_TRUE(attachement->Cached);
}

TEST_F(AttachementCache, SecondCachingOverwritesTheSameFile) {
  const Ref<CAttachement> attachement = LoadedAttachement("the content");
  ASSERT_TRUE(attachement->Cache2File());
  std::ofstream(CachePath("zef1.jpg")) << "something longer than that";
  ASSERT_TRUE(attachement->Cache2File());
  EXPECT_EQ(ContentOf(CachePath("zef1.jpg")), "the content");
  EXPECT_EQ(CacheFiles(), Texts{"zef1.jpg"});
}

TEST_F(AttachementCache, OtherObjectOfTheSameRowTakesANewFile) {
  ASSERT_TRUE(LoadedAttachement()->Cache2File());
  ASSERT_TRUE(session->GetAttachement(1)->Cache2File());
  EXPECT_THAT(CacheFiles(), testing::UnorderedElementsAre("zef1.jpg", "zef2.jpg"));
}

TEST_F(AttachementCache, NameGivenByTheClientIsUsedAsItStands) {
  const Ref<CAttachement> attachement = LoadedAttachement("the content");
  attachement->CacheFileName = CachePath("mine");
  ASSERT_TRUE(attachement->Cache2File());
  EXPECT_EQ(ContentOf(CachePath("mine")), "the content");
}

TEST_F(AttachementCache, LinkUnderTheNameIsReplacedAndNotFollowed) {
  std::ofstream(CachePath("target")) << "untouched";
  std::filesystem::create_symlink(CachePath("target"), CachePath("mine"));
  const Ref<CAttachement> attachement = LoadedAttachement();
  attachement->CacheFileName = CachePath("mine");
  ASSERT_TRUE(attachement->Cache2File());
  EXPECT_EQ(ContentOf(CachePath("target")), "untouched");
}

TEST_F(AttachementCache, RowThatIsGoneGivesANameAndNoFile) {
  const Ref<CAttachement> attachement = LoadedAttachement();
  Run("DELETE * FROM Attachements");
  EXPECT_TRUE(attachement->Cache2File());
  EXPECT_EQ(attachement->CacheFileName, CachePath("zef1.jpg"));
  EXPECT_EQ(CacheFiles(), Texts{});
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(AttachementCache, RowThatIsGoneLeavesTheFileThatIsThere) {
  std::ofstream(CachePath("mine")) << "old";
  const Ref<CAttachement> attachement = LoadedAttachement();
  attachement->CacheFileName = CachePath("mine");
  Run("DELETE * FROM Attachements");
  EXPECT_TRUE(attachement->Cache2File());
  EXPECT_EQ(ContentOf(CachePath("mine")), "old");
}

TEST_F(AttachementCache, NullContentLeavesTheFileThatIsThere) {
  std::ofstream(CachePath("mine")) << "old";
  const Ref<CAttachement> attachement = LoadedAttachement();
  attachement->CacheFileName = CachePath("mine");
  Run("UPDATE Attachements SET ATC_Content=Null");
  EXPECT_FALSE(attachement->Cache2File());
  EXPECT_EQ(ContentOf(CachePath("mine")), "old");
}

TEST_F(AttachementCache, CachingLeavesNoFileOpen) {
  const Ref<CAttachement> attachement = LoadedAttachement();
  ASSERT_TRUE(attachement->Cache2File());
  const auto open = OpenFileCount();
  for (int i = 0; i < 10; ++i) ASSERT_TRUE(attachement->Cache2File());
  EXPECT_EQ(OpenFileCount(), open);
}

TEST_F(AttachementCache, NullContentIsRecordedAndGivesNoFile) {
  Run("INSERT INTO Attachements (ATC_ID) VALUES (81)");
  const Ref<CAttachement> attachement = session->GetAttachement(81);
  EXPECT_FALSE(attachement->Cache2File());
  EXPECT_EQ(session->GetErrorProcedure(), "CAttachement.Cache2File");
  EXPECT_EQ(session->GetErrorCode(), 3001);
  EXPECT_EQ(CacheFiles(), Texts{});
}

TEST_F(AttachementCache, FolderThatIsGoneIsRecorded) {
  const Ref<CAttachement> attachement = LoadedAttachement();
  std::filesystem::remove_all(CachePath(""));
  EXPECT_FALSE(attachement->Cache2File());
  EXPECT_EQ(session->GetErrorProcedure(), "CAttachement.Cache2File");
  EXPECT_EQ(session->GetErrorCode(), 3004);
}

TEST_F(AttachementCache, FolderThatTakesNoFileIsRecorded) {
  const Ref<CAttachement> attachement = LoadedAttachement();
  attachement->CacheFileName = "/proc/zef1.jpg";
  EXPECT_FALSE(attachement->Cache2File());
  EXPECT_EQ(session->GetErrorProcedure(), "CAttachement.Cache2File");
  EXPECT_EQ(session->GetErrorCode(), 3004);
}

TEST_F(AttachementCache, NameThatCannotBeFoundEndsWithItsOwnRecord) {
  const Ref<CAttachement> attachement = LoadedAttachement();
  attachement->DocType = "x/y";
  EXPECT_FALSE(attachement->Cache2File());
  EXPECT_EQ(session->GetErrorProcedure(), "CAttachement.GetnewCacheFileName");
  EXPECT_EQ(attachement->CacheFileName, "");
}

TEST_F(AttachementCache, SelectThatFailsIsRecorded) {
  const Ref<CAttachement> attachement = LoadedAttachement();
  Refuse("SELECT * FROM Attachements");
  EXPECT_FALSE(attachement->Cache2File());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CAttachement.Cache2File] Error: -2147217900 - made to fail");
}

TEST_F(AttachementCache, CachingClearsAnOldError) {
  const Ref<CAttachement> attachement = LoadedAttachement();
  LeaveAnOldError();
  ASSERT_TRUE(attachement->Cache2File());
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(AttachementCache, CachingIsOpenToASessionThatMayOnlyRead) {
  const Ref<CAttachement> attachement = LoadedAttachement();
  session->UserRights = DataViewer;
  EXPECT_TRUE(attachement->Cache2File());
}

/// The number of the failure of a caching that may write so many bytes to a file, over a file that is there.
std::string FailureOfCaching(const Database& database, const std::string& source, const std::string& cache,
                             rlim_t room) {
  const Ref<CSession> session = database.OpenSession();
  const auto attachement = MakeRef<CAttachement>();
  attachement->SetSession(session);
  attachement->FileName = source;
  if (!attachement->Save()) return session->GetEntireErrorDesc();
  attachement->CacheFileName = cache;
  signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{room, room};
  setrlimit(RLIMIT_FSIZE, &limit);
  return attachement->Cache2File() ? "none" : std::to_string(session->GetErrorCode());
}

TEST(AttachementCacheWithoutRoom, IsRecordedAndLeavesTheOldFileAlone) {
  const Database database;
  const TemporaryFolder folder;
  const std::string source = folder.path() / "source", cache = folder.path() / "cache";
  std::ofstream(source) << std::string(100'000, 'x');
  std::ofstream(cache) << "old";
  Process client([&] { return FailureOfCaching(database, source, cache, 50'000); });
  EXPECT_EQ(client.Result(), "3004");
  std::string content;
  std::ifstream(cache) >> content;
  EXPECT_EQ(content, "old");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 2);
}

}  // namespace
}  // namespace zef::test
