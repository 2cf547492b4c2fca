#include <gmock/gmock.h>

#include <chrono>
#include <sstream>
#include <string_view>
#include <type_traits>

#include "tests/clients/loaded.h"

namespace zef::test {
namespace {

using PropertyTest = DatabaseTest;

TEST_F(PropertyTest, TextOfAnyTypeIsAssigned) {
  CContact contact = session_.CreateContact();
  const std::string owned = "Ann";
  for (const std::string& read :
       {std::string((contact.FirstName = "Ann").get()), std::string((contact.FirstName = owned).get()),
        std::string((contact.FirstName = std::string_view(owned)).get())}) {
    EXPECT_EQ(read, "Ann");
  }
}

TEST_F(PropertyTest, TextComesBackInAllOfUnicode) {
  CContact contact = session_.CreateContact();
  for (const std::string& text :
       {std::string(), std::string("O'Brien"), std::string("J\u00fcrgen \u20ac \U0001F600"), std::string("a\0b", 3)}) {
    contact.FirstName = text;
    EXPECT_EQ(contact.FirstName.get(), text);
  }
}

TEST_F(PropertyTest, MalformedTextIsReplacedAndNotLost) {
  CContact contact = session_.CreateContact();
  contact.FirstName = "a\xFF\xC3z";
  EXPECT_EQ(contact.FirstName.get(), "a\uFFFD\uFFFDz");
}

TEST_F(PropertyTest, OnePropertyIsAssignedToAnother) {
  CContact contact = session_.CreateContact();
  contact.FirstName = "Lee";
  contact.LastName = contact.FirstName;
  CContact other = session_.CreateContact();
  other.LastName = contact.LastName;
  EXPECT_EQ(other.LastName, contact.FirstName);
}

TEST_F(PropertyTest, ComparesWithItsTypeFromBothSides) {
  CContact contact = session_.CreateContact();
  contact.FirstName = "Bob";
  contact.FolderID = 7;
  EXPECT_TRUE(contact.FirstName == "Bob" && "Bob" == contact.FirstName && contact.FirstName != "Ann");
  EXPECT_TRUE(contact.FolderID == 7 && contact.FolderID < 8 && 6 < contact.FolderID);
  EXPECT_TRUE(contact.FirstName > "Ann");
}

TEST_F(PropertyTest, TextComparesWithTextsOfAnyType) {
  CContact contact = session_.CreateContact();
  contact.FirstName = "Bob";
  contact.LastName = "Carr";
  const std::string_view view = "Bob";
  EXPECT_TRUE(contact.FirstName == view && view == contact.FirstName && contact.FirstName < std::string("Cy"));
  EXPECT_TRUE(contact.FirstName < contact.LastName && contact.LastName > view);
}

TEST_F(PropertyTest, DateComparesAsAMoment) {
  CContact contact = session_.CreateContact();
  CContact other = session_.CreateContact();
  contact.BirthDate = Date(std::chrono::May / 1 / 1890, 3600);
  other.BirthDate = Date(std::chrono::May / 1 / 1890, 7200);
  EXPECT_TRUE(contact.BirthDate < other.BirthDate && contact.BirthDate != other.BirthDate);
  EXPECT_TRUE(contact.BirthDate < std::chrono::May / 2 / 1890 && Date{0} > contact.BirthDate);
}

TEST_F(PropertyTest, CalendarDayIsAssignedAsItsMidnight) {
  CContact contact = session_.CreateContact();
  contact.BirthDate = std::chrono::May / 1 / 2024;
  EXPECT_EQ(contact.BirthDate, Date{45413});
}

TEST_F(PropertyTest, CalendarDayThatDoesNotExistRaises5) {
  CContact contact = session_.CreateContact();
  EXPECT_EQ(Raised([&] { contact.BirthDate = std::chrono::February / 30 / 2024; }).number(), 5);
}

TEST_F(PropertyTest, IsWrittenToAStream) {
  CContact contact = session_.CreateContact();
  contact.FirstName = "Ann";
  contact.FolderID = 7;
  contact.BirthDate = Date(std::chrono::May / 1 / 2024, 32400);
  std::ostringstream out;
  out << contact.FirstName << ' ' << contact.FolderID << ' ' << contact.BirthDate;
  EXPECT_EQ(out.str(), "Ann 7 5/1/2024 9:00:00 AM");
}

TEST_F(PropertyTest, TextsAreJoined) {
  CContact contact = session_.CreateContact();
  contact.FirstName = "Ann";
  contact.LastName = "Lee";
  const std::string blank = " ";
  EXPECT_EQ("Dr. " + contact.FirstName + blank + contact.LastName, "Dr. Ann Lee");
  EXPECT_EQ(contact.FirstName + blank, "Ann ");
  EXPECT_EQ(contact.FirstName + contact.LastName, "AnnLee");
}

TEST_F(PropertyTest, IntegerBeyond32BitsIsRefused) {
  CTask task = session_.CreateTask();
  task.Completed = 7;
  for (const std::int64_t wide : {std::int64_t{4294967297}, std::int64_t{2147483648}, std::int64_t{-2147483649}}) {
    EXPECT_EQ(Raised([&] { task.Completed = wide; }).number(), DISP_E_OVERFLOW) << wide;
  }
  EXPECT_EQ(Raised([&] { task.Completed = 4294967295u; }).number(), DISP_E_OVERFLOW);
  EXPECT_EQ(task.Completed, 7);
}

TEST_F(PropertyTest, IntegerOfAnyTypeIsAssignedInTheRangeOf32Bits) {
  CTask task = session_.CreateTask();
  for (const std::int64_t value : {std::int64_t{2147483647}, std::int64_t{-2147483648}, std::int64_t{0}}) {
    task.Completed = value;
    EXPECT_EQ(task.Completed, value);
  }
  task.Completed = std::uint8_t{200};
  EXPECT_EQ(task.Completed, 200);
  task.Completed = FT_TASKS;
  EXPECT_EQ(task.Completed, FT_TASKS);
}

TEST_F(PropertyTest, SumBeyond32BitsIsRefused) {
  CTask task = session_.CreateTask();
  task.Completed = 2147483647;
  EXPECT_EQ(Raised([&] { task.Completed += 1; }).number(), DISP_E_OVERFLOW);
  EXPECT_EQ(task.Completed, 2147483647);
}

template <class Property, class Given>
constexpr bool kTakes = std::is_assignable_v<Property&, Given>;
using Integer = decltype(CTask::Completed);
using Boolean = decltype(CFolder::Protected);

static_assert(kTakes<Integer, std::int64_t> && kTakes<Integer, Integer&> && kTakes<Boolean, bool> &&
              kTakes<Boolean, Boolean&>);
static_assert(!kTakes<Integer, double> && !kTakes<Integer, char> && !kTakes<Integer, bool> &&
              !kTakes<Integer, Boolean&>);
static_assert(!kTakes<Boolean, const char*> && !kTakes<Boolean, int> && !kTakes<Boolean, std::nullptr_t>);

TEST_F(PropertyTest, PathIsATextToo) {
  CContact contact = session_.CreateContact();
  contact.FirstName = std::filesystem::path("/home/ann");
  EXPECT_EQ(contact.FirstName, "/home/ann");
}

TEST_F(PropertyTest, IsChangedInItsPlace) {
  CContact contact = session_.CreateContact();
  contact.FirstName = "Ann";
  contact.FirstName += "-Marie";
  EXPECT_EQ(contact.FirstName, "Ann-Marie");
  contact.FolderID = 7;
  contact.FolderID += 3;
  contact.FolderID -= 1;
  EXPECT_EQ(contact.FolderID, 9);
  contact.FolderID |= 4;
  contact.FolderID &= 12;
  EXPECT_EQ(contact.FolderID, 12);
}

TEST_F(PropertyTest, MembersOfAValueAreReachedThroughIt) {
  CContact contact = session_.CreateContact();
  contact.FirstName = "Ann";
  contact.BirthDate = std::chrono::May / 1 / 2024;
  EXPECT_EQ(contact.FirstName->size(), 3u);
  EXPECT_EQ(contact.BirthDate->Weekday(), std::chrono::Wednesday);
}

TEST_F(PropertyTest, ServesAsAnArgument) {
  CFolders folders = RootFolders();
  const CFolder folder = folders.ItemByIdx(1);
  CTag tag = Built().Create<CTag>();
  tag.Text = "FLD_ID=" + std::to_string(folder.ID);
  EXPECT_EQ(session_.GetFolder(folder.ID)->Name, folder.Name);
  EXPECT_EQ(session_.GetFolderIDByCriteria(tag.Text), folder.ID);
}

TEST_F(PropertyTest, DateKeepsItsVeryBits) {
  CContact contact = session_.CreateContact();
  for (const double day : {0.0, -1.25, 45413.0 + 32401 / 86400.0, -657434.0, 2958465.5}) {
    contact.BirthDate = Date{day};
    EXPECT_EQ(contact.BirthDate.get(), Date{day});
  }
}

TEST_F(PropertyTest, ObjectIsSetAndSetToNothing) {
  CUser user = Built().Create<CUser>();
  EXPECT_FALSE(user.Session);
  user.Session = session_;
  EXPECT_EQ(user.Session, session_);
  user.Session = CSession();
  EXPECT_FALSE(user.Session);
  user.Session = session_;
  user.Session = nullptr;
  EXPECT_TRUE(user.Session == nullptr);
}

TEST_F(PropertyTest, MembersOfAnObjectAreReachedThroughIt) {
  CTask task = session_.CreateTask();
  task.Recurrence->RType = REC_WEEKLY;
  EXPECT_EQ(task.Recurrence->RType, REC_WEEKLY);
}

TEST_F(PropertyTest, CannotOutliveItsObjectUnnoticed) {
  EXPECT_FALSE(std::is_copy_constructible_v<decltype(CContact::FirstName)>);
  EXPECT_FALSE(std::is_copy_constructible_v<decltype(CFolders::Count)>);
}

TEST_F(PropertyTest, OfNothingRaises91) {
  CContact nothing;
  EXPECT_EQ(Raised([&] { nothing.FirstName.get(); }).number(), 91);
  EXPECT_EQ(Raised([&] { nothing.FirstName = "Ann"; }).number(), 91);
}

TEST(ReferenceTest, IsNoLargerThanAPointer) { EXPECT_EQ(sizeof(CSession), sizeof(void*)); }

TEST(ReferenceTest, NullPointerIsNothing) {
  CTag tag = Built().Create<CTag>();
  EXPECT_FALSE(tag == nullptr);
  tag = nullptr;
  EXPECT_TRUE(tag == nullptr);
}

TEST(ReferenceTest, LastOneEndsTheObject) {
  {
    CTag tag = Built().Create<CTag>();
    CTag copy = tag;
    CTag moved = std::move(tag);
    copy = moved;
    CTag& same = copy;
    copy = same;
    EXPECT_EQ(copy, moved);
    EXPECT_FALSE(tag);  // moved from
    EXPECT_FALSE(NothingLives());
  }
  EXPECT_TRUE(NothingLives());
}

}  // namespace
}  // namespace zef::test
