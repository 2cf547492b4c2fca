#include <gmock/gmock.h>

#include <ranges>
#include <string>
#include <vector>

#include "tests/clients/loaded.h"

namespace zef::test {
namespace {

using ElementsTest = DatabaseTest;

static_assert(std::input_iterator<Elements<CFolder>>);
static_assert(std::sentinel_for<std::default_sentinel_t, Elements<CFolder>>);

TEST_F(ElementsTest, ComeInOrder) {
  const CFolders folders = RootFolders();
  std::int32_t place = 0;
  for (auto folder : folders) EXPECT_EQ(folder, folders.ItemByIdx(++place));
  EXPECT_EQ(place, folders.Count);
}

TEST_F(ElementsTest, OfAnEmptyCollectionAreNone) {
  for (auto folder : Built().Create<CFolders>()) ADD_FAILURE() << folder.Name;
}

TEST_F(ElementsTest, OfAPropertyAreWalked) {
  const Recordset records = session_.conDBConnection->Execute("SELECT FLD_ID, FLD_Name FROM Folders");
  std::vector<std::string> names;
  for (auto field : records.Fields.get()) names.push_back(field.Name);
  EXPECT_THAT(names, testing::ElementsAre("FLD_ID", "FLD_Name"));
}

// A property that ends with its expression would be walked after its end.
static_assert(!std::ranges::range<const decltype(Connection::Errors)>);

TEST_F(ElementsTest, OfAPropertyOfAPropertyAreWalked) {
  Raised([&] { session_.conDBConnection->Execute("SELECT * FROM Nowhere"); });
  std::vector<std::int32_t> numbers;
  for (auto error : session_.conDBConnection->Errors.get()) numbers.push_back(error.Number);
  EXPECT_THAT(numbers, testing::ElementsAre(-2147217865));
}

TEST_F(ElementsTest, CanBeChanged) {
  const CFolders folders = RootFolders();
  for (auto folder : folders) folder.Description = "seen";
  EXPECT_EQ(folders.ItemByIdx(2).Description, "seen");
}

TEST_F(ElementsTest, WalkEndsWhenTheCollectionIsEmptied) {
  const CFolders folders = RootFolders();
  int seen = 0;
  for (auto folder : folders) {
    ++seen;
    folders.Clear();
  }
  EXPECT_EQ(seen, 1);
}

TEST_F(ElementsTest, OfNothingRaise91) {
  EXPECT_EQ(Raised([] {
              for (auto folder : CFolders()) ADD_FAILURE() << folder.Name;
            }).number(),
            91);
}

TEST_F(ElementsTest, FailureOnTheWayIsThatOfACall) {
  const Recordset records = session_.conDBConnection->Execute("SELECT FLD_ID, FLD_Name FROM Folders");
  const Fields fields = records.Fields;
  int seen = 0;
  const Failure walked = Raised([&] {
    for (auto field : fields) {
      ++seen;
      if (field) records.Close();
    }
  });
  const Failure called = Raised([&] { fields.Count.get(); });
  EXPECT_EQ(seen, 1);
  EXPECT_EQ(walked.number(), 3704);
  EXPECT_EQ(walked.number(), called.number());
  EXPECT_STREQ(walked.what(), called.what());
  EXPECT_EQ(walked.source(), called.source());
}

TEST_F(ElementsTest, LeaveNothingBehindWhenTheLoopIsLeft) {
  {
    for (auto folder : RootFolders()) {
      if (folder) break;
    }
  }
  session_ = CSession();
  EXPECT_TRUE(NothingLives());
}

}  // namespace
}  // namespace zef::test
