#include "platform/keyed_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "platform/reference.h"

namespace zef {
namespace {

using List = KeyedList<int>;

List Numbers(int count) {
  List list;
  for (int i = 1; i <= count; ++i) list.Add(std::to_string(i), 10 * i);
  return list;
}

std::vector<int> ItemsOf(const List& list) {
  std::vector<int> items;
  for (const int item : list) items.push_back(item);
  return items;
}

template <class Action>
std::int32_t FailureOf(Action action) {
  try {
    action();
  } catch (const RunTimeError& failure) {
    return failure.number();
  }
  return 0;
}

TEST(KeyedList, ANewOneIsEmpty) {
  EXPECT_EQ(List().Count(), 0);
  EXPECT_EQ(ItemsOf(List()), std::vector<int>());
}

TEST(KeyedList, ItemsStandInTheOrderOfAdding) { EXPECT_EQ(ItemsOf(Numbers(3)), (std::vector<int>{10, 20, 30})); }

TEST(KeyedList, PositionsCountFrom1) {
  EXPECT_EQ(Numbers(3).Item(1), 10);
  EXPECT_EQ(Numbers(3).Item(3), 30);
}

TEST(KeyedList, APositionOutsideRaises9) {
  const List list = Numbers(3);
  EXPECT_EQ(FailureOf([&] { list.Item(0); }), 9);
  EXPECT_EQ(FailureOf([&] { list.Item(4); }), 9);
  EXPECT_EQ(FailureOf([&] { list.Item(-1); }), 9);
}

TEST(KeyedList, AKeyFindsItsItem) { EXPECT_EQ(Numbers(100).Item("42"), 420); }

TEST(KeyedList, AnUnknownKeyRaises5) {
  const List list = Numbers(3);
  EXPECT_EQ(FailureOf([&] { list.Item("4"); }), 5);
}

TEST(KeyedList, AKeyOfAnEmptyListRaises5) {
  EXPECT_EQ(FailureOf([] { List().Item("1"); }), 5);
}

TEST(KeyedList, LetterCaseOfAKeyDoesNotCount) {
  List list;
  list.Add("Inbox", 1);
  EXPECT_EQ(list.Item("INBOX"), 1);
}

TEST(KeyedList, AnExistingKeyRaises457) {
  List list = Numbers(3);
  EXPECT_EQ(FailureOf([&] { list.Add("2", 0); }), 457);
}

TEST(KeyedList, AnExistingKeyInOtherLetterCaseRaises457) {
  List list;
  list.Add("Inbox", 1);
  EXPECT_EQ(FailureOf([&] { list.Add("iNBOX", 2); }), 457);
}

TEST(KeyedList, ARefusedKeyChangesNothing) {
  List list = Numbers(3);
  FailureOf([&] { list.Add("2", 0); });
  EXPECT_EQ(ItemsOf(list), (std::vector<int>{10, 20, 30}));
}

TEST(KeyedList, TheEmptyKeyIsAKey) {
  List list;
  list.Add("", 7);
  EXPECT_EQ(list.Item(""), 7);
}

TEST(KeyedList, ContainsTellsKeys) {
  EXPECT_TRUE(Numbers(3).Contains("3"));
  EXPECT_FALSE(Numbers(3).Contains("4"));
}

TEST(KeyedList, RemovingAPositionMovesTheOthersUp) {
  List list = Numbers(4);
  list.Remove(2);
  EXPECT_EQ(ItemsOf(list), (std::vector<int>{10, 30, 40}));
  EXPECT_EQ(list.Item("4"), 40);
}

TEST(KeyedList, RemovingAKeyForgetsIt) {
  List list = Numbers(4);
  list.Remove("2");
  EXPECT_FALSE(list.Contains("2"));
  EXPECT_EQ(list.Item(2), 30);
}

TEST(KeyedList, ARemovedKeyMayComeBack) {
  List list = Numbers(4);
  list.Remove("2");
  list.Add("2", 99);
  EXPECT_EQ(list.Item(4), 99);
  EXPECT_EQ(list.Item("2"), 99);
}

TEST(KeyedList, RemovingWhatIsNotThereRaisesAsReadingDoes) {
  List list = Numbers(3);
  EXPECT_EQ(FailureOf([&] { list.Remove(4); }), 9);
  EXPECT_EQ(FailureOf([&] { list.Remove(0); }), 9);
  EXPECT_EQ(FailureOf([&] { list.Remove("4"); }), 5);
}

TEST(KeyedList, ClearLeavesNoKey) {
  List list = Numbers(3);
  list.Clear();
  EXPECT_EQ(list.Count(), 0);
  EXPECT_FALSE(list.Contains("1"));
}

TEST(KeyedList, ACopyIsItsOwn) {
  List list = Numbers(3);
  List copy = list;
  copy.Remove("1");
  EXPECT_EQ(list.Item("1"), 10);
  EXPECT_EQ(copy.Item("3"), 30);
}

struct Counted : RefCounted<Counted> {};

TEST(KeyedList, ClearReleasesItsReferences) {
  const Ref<Counted> object = MakeRef<Counted>();
  KeyedList<Ref<Counted>> list;
  list.Add("1", object);
  list.Clear();
  EXPECT_EQ(object->use_count(), 1U);
}

TEST(KeyedList, AHundredThousandItemsAreFoundAgain) {
  const List list = Numbers(100000);
  for (int i = 1; i <= 100000; ++i) ASSERT_EQ(list.Item(std::to_string(i)), 10 * i);
}

/// The same list without an index.
class Model {
 public:
  using Entry = std::pair<std::string, int>;

  std::ptrdiff_t Find(const std::string& key) const {
    return std::find_if(entries.begin(), entries.end(), [&](const Entry& e) { return e.first == key; }) -
           entries.begin();
  }
  bool Contains(const std::string& key) const { return Find(key) < std::ssize(entries); }
  std::vector<int> Items() const {
    std::vector<int> items;
    for (const Entry& entry : entries) items.push_back(entry.second);
    return items;
  }

  std::vector<Entry> entries;
};

TEST(KeyedList, BehavesAsAPlainListDoes) {
  std::mt19937 random(20240501);
  List list;
  Model model;
  for (int i = 0; i < 20000; ++i) {
    const std::string key = std::to_string(random() % 60);
    const bool known = model.Contains(key);
    ASSERT_EQ(list.Contains(key), known);
    if (random() % 2 == 0) {
      ASSERT_EQ(FailureOf([&] { list.Add(key, i); }), known ? 457 : 0);
      if (!known) model.entries.emplace_back(key, i);
    } else if (known) {
      ASSERT_EQ(list.Item(key), model.entries[static_cast<std::size_t>(model.Find(key))].second);
      list.Remove(key);
      model.entries.erase(model.entries.begin() + model.Find(key));
    }
    ASSERT_EQ(ItemsOf(list), model.Items());
  }
}

}  // namespace
}  // namespace zef
