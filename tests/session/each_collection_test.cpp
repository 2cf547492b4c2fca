#include <gtest/gtest.h>

#include "addressbook/contact.h"
#include "addressbook/phone_log.h"
#include "calendar/alarm.h"
#include "calendar/event.h"
#include "folders/category.h"
#include "folders/folder.h"
#include "notes/note.h"
#include "session/collections.h"
#include "tasks/task.h"
#include "tests/support/raised.h"
#include "users/user.h"

namespace zef::test {
namespace {

/// A collection of each class, with elements of the identifiers 30 and 10, in this order.
template <class Element>
class EachCollection : public testing::Test {
 protected:
  EachCollection() {
    for (const std::int32_t id : {30, 10}) EXPECT_TRUE(Add(id));
  }
  bool Add(std::int32_t id) {
    const auto element = MakeRef<Element>();
    element->ID = id;
    return elements->Add(element);
  }
  Ref<Collection<Element>> elements = MakeRef<Collection<Element>>();
};
using Elements = testing::Types<CTag, CFolder, CAlarm, CCategory, CContact, CEvent, CNote, CPhoneLog, CTask, CUser>;
TYPED_TEST_SUITE(EachCollection, Elements);

TYPED_TEST(EachCollection, KeepsTheOrderOfAdding) {
  EXPECT_EQ(this->elements->ItemByIdx(1)->ID, 30);
  EXPECT_EQ(this->elements->ItemByIdx(2)->ID, 10);
}

TYPED_TEST(EachCollection, IsKeyedByTheID) { EXPECT_EQ(this->elements->ItemByKey("10")->ID, 10); }

TYPED_TEST(EachCollection, RefusesASecondElementOfAnID) {
  EXPECT_FALSE(this->Add(10));
  EXPECT_EQ(this->elements->Count(), 2);
}

TYPED_TEST(EachCollection, RefusesNothing) { EXPECT_FALSE(this->elements->Add(nullptr)); }

TYPED_TEST(EachCollection, HasNoPositionZero) {
  EXPECT_EQ(NumberRaised([&] { this->elements->ItemByIdx(0); }), 9);
}

TYPED_TEST(EachCollection, RemovesByPositionAndByKey) {
  this->elements->Remove(1);
  this->elements->Remove("10");
  EXPECT_EQ(this->elements->Count(), 0);
}

TYPED_TEST(EachCollection, ClearsItself) {
  this->elements->Clear();
  EXPECT_EQ(this->elements->Count(), 0);
}

TYPED_TEST(EachCollection, RaisesForTheKeyOfMinusOneUnlessOfCategories) {
  const bool categories = std::is_same_v<TypeParam, CCategory>;
  EXPECT_EQ(NumberRaised([&] { this->elements->ItemByKey("-1"); }), categories ? 0 : 5);
}

TYPED_TEST(EachCollection, FindsAnElementOfMinusOneUnlessOfCategories) {
  EXPECT_TRUE(this->Add(-1));
  const bool categories = std::is_same_v<TypeParam, CCategory>;
  EXPECT_EQ(this->elements->ItemByKey("-1") == nullptr, categories);
}

}  // namespace
}  // namespace zef::test
