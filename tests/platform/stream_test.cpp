#include "platform/stream.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/support/database.h"
#include "tests/support/process.h"
#include "tests/support/raised.h"

namespace zef::test {
namespace {

class Streams : public testing::Test {
 protected:
  Streams() { stream_.Open(); }
  std::string Path(const std::string& name) const { return (folder_.path() / name).string(); }
  void Put(const std::string& name, const std::string& content) const {
    std::ofstream(Path(name), std::ios::binary) << content;
  }
  std::string Content(const std::string& name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  std::size_t SizeRead() { return std::get<Bytes>(stream_.Read()).size(); }

  Stream stream_;

 private:
  TemporaryFolder folder_;
};

TEST_F(Streams, CarryEveryByteFromAFileToAnother) {
  std::string content;
  for (int byte = 0; byte < 256; ++byte) content += static_cast<char>(byte);
  Put("in", content);
  stream_.LoadFromFile(Path("in"));
  Value value = stream_.Read();
  stream_.Write(std::move(value));
  stream_.SaveToFile(Path("out"), adSaveCreateOverWrite);
  EXPECT_EQ(Content("out"), content);
}

TEST_F(Streams, ReadAnEmptyFileAsNoBytes) {
  Put("in", "");
  stream_.LoadFromFile(Path("in"));
  EXPECT_EQ(stream_.Read(), Value(Bytes()));
}

TEST_F(Streams, ReadAFileThatTellsNoSizeToItsEnd) {
  stream_.LoadFromFile("/proc/self/status");
  EXPECT_GT(SizeRead(), 0u);
}

TEST_F(Streams, HandTheirBytesOverOnce) {
  Put("in", "abc");
  stream_.LoadFromFile(Path("in"));
  EXPECT_EQ(SizeRead(), 3u);
  EXPECT_EQ(SizeRead(), 0u);
}

TEST_F(Streams, ReplaceTheirBytesByThoseOfAFile) {
  stream_.Write(Bytes(100));
  Put("in", "abc");
  stream_.LoadFromFile(Path("in"));
  EXPECT_EQ(SizeRead(), 3u);
}

TEST_F(Streams, CannotLoadAMissingFile) {
  EXPECT_EQ(NumberRaised([&] { stream_.LoadFromFile(Path("no")); }), 3002);
}

TEST_F(Streams, CannotLoadAFolder) {
  EXPECT_EQ(NumberRaised([&] { stream_.LoadFromFile(Path("")); }), 3002);
}

TEST_F(Streams, CannotLoadAFileThatTheUserMayNotRead) {
  Put("in", "secret");
  std::filesystem::permissions(std::filesystem::path(Path("in")).parent_path(), std::filesystem::perms::all);
  std::filesystem::permissions(Path("in"), std::filesystem::perms::none);
  Process child([&]() -> std::string {
    if (geteuid() == 0 && setuid(65534) != 0) return "3002";  // cannot become another user here
    return std::to_string(NumberRaised([&] { stream_.LoadFromFile(Path("in")); }));
  });
  EXPECT_EQ(child.Result(), "3002");
}

TEST_F(Streams, ReadAFileThatHasShrunkToItsNewEnd) {
  const char* const shrunk = "/sys/kernel/mm/transparent_hugepage/enabled";  // tells a size that it does not have
  std::error_code none;
  if (!std::filesystem::exists(shrunk, none)) GTEST_SKIP() << "no such file on this system";
  const std::uintmax_t told = std::filesystem::file_size(shrunk);
  stream_.LoadFromFile(shrunk);
  const std::size_t read = SizeRead();
  EXPECT_GT(read, 0u);
  EXPECT_LT(read, told);
}

TEST_F(Streams, CannotLoadAFileThatCannotBeRead) {
  EXPECT_EQ(NumberRaised([&] { stream_.LoadFromFile("/proc/self/mem"); }), 3003);
}

TEST_F(Streams, CannotLoadAFileWhoseReadingFailsOnTheWay) {
  Process child([&]() -> std::string {
    // With a first page, the own memory can be read up to its end and no further.
    const int how = MAP_FIXED | MAP_PRIVATE | MAP_ANONYMOUS;
    if (mmap(nullptr, 4096, PROT_READ | PROT_WRITE, how, -1, 0) == MAP_FAILED) return "3003, 7";  // cannot have one
    stream_.Write(Bytes(7));
    const std::int32_t number = NumberRaised([&] { stream_.LoadFromFile("/proc/self/mem"); });
    return std::to_string(number) + ", " + std::to_string(SizeRead());
  });
  EXPECT_EQ(child.Result(), "3003, 7");
}

TEST_F(Streams, CannotLoadAFileBeyondA32BitSize) {
  Put("large", "");
  std::filesystem::resize_file(Path("large"), std::uintmax_t{1} << 31);
  EXPECT_EQ(NumberRaised([&] { stream_.LoadFromFile(Path("large")); }), 3003);
}

TEST_F(Streams, KeepTheirBytesWhenAFileCannotBeLoaded) {
  stream_.Write(Bytes(7));
  EXPECT_EQ(NumberRaised([&] { stream_.LoadFromFile(Path("no")); }), 3002);
  EXPECT_EQ(SizeRead(), 7u);
}

TEST_F(Streams, CannotSaveWhereThereIsNoFolder) {
  EXPECT_EQ(NumberRaised([&] { stream_.SaveToFile(Path("no/out"), adSaveCreateOverWrite); }), 3004);
}

TEST_F(Streams, TellWhyAFileCannotBeUsed) {
  const auto failure = Raised([&] { stream_.LoadFromFile(Path("no")); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->description(), "The file '" + Path("no") + "' cannot be used: No such file or directory.");
}

TEST_F(Streams, TakeBytesOnly) {
  EXPECT_EQ(NumberRaised([&] { stream_.Write(Null{}); }), 3001);
  EXPECT_EQ(NumberRaised([&] { stream_.Write(std::string("text")); }), 3001);
}

TEST_F(Streams, AreOfNoUseWhenClosed) {
  stream_.Close();
  EXPECT_EQ(NumberRaised([&] { stream_.Read(); }), 3704);
  EXPECT_EQ(NumberRaised([&] { stream_.Write(Bytes()); }), 3704);
  EXPECT_EQ(NumberRaised([&] { stream_.LoadFromFile(Path("in")); }), 3704);
  EXPECT_EQ(NumberRaised([&] { stream_.SaveToFile(Path("out"), adSaveCreateOverWrite); }), 3704);
  EXPECT_EQ(NumberRaised([&] { stream_.Close(); }), 3704);
}

TEST_F(Streams, OpenAgainWithoutTheOldBytes) {
  stream_.Write(Bytes(7));
  stream_.Close();
  stream_.Open();
  EXPECT_EQ(SizeRead(), 0u);
}

TEST_F(Streams, CannotBeOpenedTwice) {
  EXPECT_EQ(NumberRaised([&] { stream_.Open(); }), 3705);
}

TEST_F(Streams, OfAnyTypeButBinaryIsRefused) {
  Stream text;
  text.Type = static_cast<StreamType>(2);
  EXPECT_EQ(NumberRaised([&] { text.Open(); }), 3001);
}

TEST_F(Streams, SavingWithoutOverwritingIsRefused) {
  EXPECT_EQ(NumberRaised([&] { stream_.SaveToFile(Path("out"), static_cast<SaveOption>(1)); }), 3001);
}

}  // namespace
}  // namespace zef::test
