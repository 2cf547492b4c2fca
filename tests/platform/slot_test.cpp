#include "platform/slot.h"

#include <gtest/gtest.h>

#include "tests/support/raised.h"

namespace zef::test {
namespace {

constexpr NullRule kPlain;
constexpr NullRule kOther{.number = -1, .text = "E"};
constexpr NullRule kRefused{.refused = true};

/// What a variable holds after a value was stored in it.
template <class T>
T Stored(Value value, T before, const NullRule& rule = kPlain) {
  Store(std::move(value), {&before, &rule});
  return before;
}

TEST(SlotTest, NumberTakesAText) { EXPECT_EQ(Stored(std::string("12"), std::int32_t{7}), 12); }
TEST(SlotTest, NumberRoundsHalfToEven) { EXPECT_EQ(Stored(2.5, std::int32_t{7}), 2); }
TEST(SlotTest, NumberReadsTrueAsMinusOne) { EXPECT_EQ(Stored(true, std::int32_t{7}), -1); }
TEST(SlotTest, NumberReadsNullAsZero) { EXPECT_EQ(Stored(Null{}, std::int32_t{7}), 0); }
TEST(SlotTest, NumberReadsNullByItsRule) { EXPECT_EQ(Stored(Null{}, std::int32_t{7}, kOther), -1); }
TEST(SlotTest, TextTakesANumber) { EXPECT_EQ(Stored(12, std::string("before")), "12"); }
TEST(SlotTest, TextReadsNullAsEmpty) { EXPECT_EQ(Stored(Null{}, std::string("before")), ""); }
TEST(SlotTest, TextReadsNullByItsRule) { EXPECT_EQ(Stored(Null{}, std::string("before"), kOther), "E"); }
TEST(SlotTest, DateTakesAText) { EXPECT_EQ(Stored(std::string("5/1/2024"), Date(7)), Date(45413)); }
TEST(SlotTest, DateReadsNullAsZero) { EXPECT_EQ(Stored(Null{}, Date(7), kOther), Date()); }
TEST(SlotTest, FlagIsTrueForOne) { EXPECT_TRUE(Stored(1, false)); }
TEST(SlotTest, FlagIsFalseForAnotherByte) { EXPECT_FALSE(Stored(std::uint8_t{255}, true)); }
TEST(SlotTest, FlagReadsNullAsFalse) { EXPECT_FALSE(Stored(Null{}, true, kOther)); }

TEST(SlotTest, FlagBeyondAByteRaises6) {
  EXPECT_EQ(NumberRaised([] { Stored(256, false); }), 6);
}
TEST(SlotTest, NumberBeyond32BitsRaises6) {
  EXPECT_EQ(NumberRaised([] { Stored(2147483648.0, std::int32_t{0}); }), 6);
}
TEST(SlotTest, TextThatIsNoDateRaises13) {
  EXPECT_EQ(NumberRaised([] { Stored(std::string("secret"), Date()); }), 13);
}
TEST(SlotTest, RefusedNullRaises94) {
  EXPECT_EQ(NumberRaised([] { Stored(Null{}, std::int32_t{7}, kRefused); }), 94);
}

TEST(SlotTest, FailureLeavesTheVariable) {
  std::int32_t number = 7;
  EXPECT_TRUE(Raised([&] { Store(Null{}, {&number, &kRefused}); }));
  EXPECT_EQ(number, 7);
}

TEST(SlotTest, WithoutAVariableTakesNoNull) { EXPECT_FALSE(StoreNull({})); }

}  // namespace
}  // namespace zef::test
