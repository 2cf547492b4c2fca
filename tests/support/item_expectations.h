#pragma once

#include <gtest/gtest.h>

#include <cstdint>

#include "tests/support/raised.h"
#include "tests/support/record_fixture.h"

/// What tests of all records with a rule and a notification of their own look for.
namespace zef::test {

/// Expects the numbers of an item and of its children, each in the child and in the item's reference.
template <class Item>
void ExpectNumbers(const Item& item, std::int32_t id, std::int32_t rule, std::int32_t notification) {
  EXPECT_EQ(item.ID, id);
  EXPECT_EQ(item.Recurrence->ID, rule);
  EXPECT_EQ(item.RecurrenceID, rule);
  EXPECT_EQ(item.Notification->ID, notification);
  EXPECT_EQ(item.NotificationID, notification);
}

/// Expects that a session reaches an item's notification before a rule that is missing ends it.
template <class Item>
void ExpectSessionToReachTheNotificationBeforeTheRule(const Ref<CSession>& session) {
  const auto item = MakeRef<Item>();
  item->Recurrence.reset();
  EXPECT_EQ(NumberRaised([&] { item->SetSession(session); }), 91);
  EXPECT_EQ(item->Session(), session);
  EXPECT_EQ(item->Notification->Session(), session);
}

/// Expects that resetting an item's flags reaches its rule before a notification that is missing ends it.
template <class Item>
void ExpectFlagsToReachTheRuleBeforeTheNotification() {
  const auto item = MakeRef<Item>();
  item->Notification.reset();
  EXPECT_EQ(NumberRaised([&] { item->ResetFlags(); }), 91);
  EXPECT_EQ(Flags(*item->Recurrence), "new modified");
}

/// Expects that saving a changed item with stored children that are unchanged leaves references that the client has
/// set.
template <class Item>
void ExpectUnchangedChildrenToLeaveTheirReferences(Item& item) {
  item.RecurrenceID = 77;
  item.NotificationID = 78;
  EXPECT_TRUE(item.Save());
  EXPECT_EQ(item.RecurrenceID, 77);
  EXPECT_EQ(item.NotificationID, 78);
}

/// Expects that the next `Save` inserts an item and its children.
template <class Item>
void ExpectNewWithChildren(const Item& item) {
  EXPECT_EQ(Flags(item), "new modified");
  EXPECT_EQ(Flags(*item.Recurrence), "new modified");
  EXPECT_EQ(Flags(*item.Notification), "new modified");
}

}  // namespace zef::test
