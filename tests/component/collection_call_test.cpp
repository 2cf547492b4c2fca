#include <gtest/gtest.h>

#include <string>

#include "tests/component/library.h"

namespace zef::test {
namespace {

/// The ten collection classes, with the class of their elements.
struct Collected {
  const char* collection;
  const char* element;

  friend void PrintTo(const Collected& collected, std::ostream* out) { *out << collected.collection; }
};

class EveryCollection : public ComponentTest, public testing::WithParamInterface<Collected> {
 protected:
  Object Element(std::int32_t identifier) {
    Object element = Create(GetParam().element);
    element.Put("ID", identifier);
    return element;
  }
  std::int32_t Count() { return collection.Get("Count").value.number(); }

  const Object collection = Create(GetParam().collection);
};

TEST_P(EveryCollection, TakesItsElements) {
  const Object element = Element(7);
  EXPECT_TRUE(collection.Call("Add", element).value.truth());
  EXPECT_EQ(collection.Get("ItemByKey", "7").value.object(), element);
}
TEST_P(EveryCollection, TakesNoSecondElementOfAnIdentifier) {
  collection.Call("Add", Element(7));
  EXPECT_FALSE(collection.Call("Add", Element(7)).value.truth());
  EXPECT_EQ(Count(), 1);
}
TEST_P(EveryCollection, TakesNoElementOfAnotherClass) {
  EXPECT_EQ(collection.Call("Add", Create("CNotification")).result, DISP_E_TYPEMISMATCH);
}
TEST_P(EveryCollection, IsCleared) {
  collection.Call("Add", Element(7));
  EXPECT_EQ(collection.Call("Clear").result, S_OK);
  EXPECT_EQ(Count(), 0);
}
TEST_P(EveryCollection, IsWalkedOver) {
  const Object element = Element(7);
  collection.Call("Add", element);
  const Outcome outcome = collection.Get("NewEnum");
  void* found = nullptr;
  ASSERT_EQ(outcome.value.raw().punkVal->QueryInterface(IID_IEnumVARIANT, &found), S_OK);
  auto* const walk = static_cast<IEnumVARIANT*>(found);
  Variant first;
  EXPECT_EQ(walk->Next(1, &first.raw(), nullptr), S_OK);
  EXPECT_EQ(first.object(), element);
  walk->Release();
}

constexpr Collected kCollections[] = {
    {"CAlarms", "CAlarm"},   {"CCategories", "CCategory"}, {"CContacts", "CContact"},   {"CEvents", "CEvent"},
    {"CFolders", "CFolder"}, {"CNotes", "CNote"},          {"CPhoneLogs", "CPhoneLog"}, {"CTags", "CTag"},
    {"CTasks", "CTask"},     {"CUsers", "CUser"},
};
std::string NameOfCase(const testing::TestParamInfo<Collected>& info) { return info.param.collection; }
INSTANTIATE_TEST_SUITE_P(EachClass, EveryCollection, testing::ValuesIn(kCollections), NameOfCase);

/// Positions and keys in every form in which clients give them.
class CollectionCall : public ComponentTest {
 protected:
  CollectionCall() {
    for (const std::int32_t identifier : {17, 2, -1}) {
      const Object tag = Create("CTag");
      tag.Put("ID", identifier);
      tags.Call("Add", tag);
    }
  }
  template <class... Arguments>
  std::int32_t Found(std::string_view name, Arguments&&... arguments) {
    return tags.Get(name, std::forward<Arguments>(arguments)...).value.object().Get("ID").value.number();
  }
  /// The identifiers that are left after a removal.
  std::string LeftWithout(Variant&& which) {
    outcome = tags.Call("Remove", std::move(which));
    std::string identifiers;
    const std::int32_t count = tags.Get("Count").value.number();
    for (std::int32_t i = 1; i <= count; ++i) identifiers += std::to_string(Found("ItemByIdx", i)) + " ";
    return identifiers;
  }

  static constexpr SCODE kRunTime = static_cast<SCODE>(0x800A0000);
  const Object tags = Create("CTags");
  Outcome outcome;
};

TEST_F(CollectionCall, FindsByPosition) { EXPECT_EQ(Found("ItemByIdx", 2), 2); }
TEST_F(CollectionCall, FindsByAPositionInText) { EXPECT_EQ(Found("ItemByIdx", "3"), -1); }
TEST_F(CollectionCall, FindsByKey) { EXPECT_EQ(Found("ItemByKey", "-1"), -1); }
TEST_F(CollectionCall, FindsByANumberAsKey) { EXPECT_EQ(Found("ItemByKey", 17), 17); }
TEST_F(CollectionCall, FindsByAReferenceToAKey) {
  TextVariable key("17");
  EXPECT_EQ(Found("ItemByKey", key.Ref()), 17);
}
TEST_F(CollectionCall, RaisesForPositionZero) { EXPECT_EQ(tags.Get("ItemByIdx", 0).scode, kRunTime + 9); }
TEST_F(CollectionCall, RaisesForAnUnknownKey) { EXPECT_EQ(tags.Get("ItemByKey", "3").scode, kRunTime + 5); }
TEST_F(CollectionCall, GivesNoCategoryForTheMissingReference) {
  EXPECT_FALSE(Create("CCategories").Get("ItemByKey", "-1").value.object());
}
TEST_F(CollectionCall, RemovesByPosition) { EXPECT_EQ(LeftWithout(1), "2 -1 "); }
TEST_F(CollectionCall, RemovesByKey) { EXPECT_EQ(LeftWithout("2"), "17 -1 "); }
TEST_F(CollectionCall, RemovesByANumberOfAnotherKind) { EXPECT_EQ(LeftWithout(2.0), "17 -1 "); }
TEST_F(CollectionCall, RemovesByAReferenceToAPosition) {
  std::int32_t position = 3;
  EXPECT_EQ(LeftWithout(Variant::Ref(VT_I4, &position)), "17 2 ");
}
TEST_F(CollectionCall, RemovesByAReferenceToAKey) {
  TextVariable key("17");
  EXPECT_EQ(LeftWithout(key.Ref()), "2 -1 ");
}
TEST_F(CollectionCall, RemovesByAKeyInAVariant) {
  Variant key("17");
  EXPECT_EQ(LeftWithout(Variant::Ref(key)), "2 -1 ");
}
TEST_F(CollectionCall, RemovesNothingForAnUnknownKey) {
  EXPECT_EQ(LeftWithout("3"), "17 2 -1 ");
  EXPECT_EQ(outcome.scode, kRunTime + 5);
}
TEST_F(CollectionCall, RemovesNothingBeyondTheEnd) {
  EXPECT_EQ(LeftWithout(4), "17 2 -1 ");
  EXPECT_EQ(outcome.scode, kRunTime + 9);
}
TEST_F(CollectionCall, RemovesNothingByAnObject) {
  EXPECT_EQ(LeftWithout(tags.Get("ItemByIdx", 1).value.object()), "17 2 -1 ");
  EXPECT_EQ(outcome.result, DISP_E_TYPEMISMATCH);
}
TEST_F(CollectionCall, RemovesNothingByNull) {
  EXPECT_EQ(LeftWithout(Variant::Null()), "17 2 -1 ");
  EXPECT_EQ(outcome.result, DISP_E_TYPEMISMATCH);
}

}  // namespace
}  // namespace zef::test
