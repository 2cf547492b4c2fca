#pragma once

#include <gtest/gtest.h>

#include <cstdint>

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

/// Expects that the next `Save` inserts an item and its children.
template <class Item>
void ExpectNewWithChildren(const Item& item) {
  EXPECT_EQ(Flags(item), "new modified");
  EXPECT_EQ(Flags(*item.Recurrence), "new modified");
  EXPECT_EQ(Flags(*item.Notification), "new modified");
}

}  // namespace zef::test
