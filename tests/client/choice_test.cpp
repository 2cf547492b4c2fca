#include "client/choice.h"

#include <gtest/gtest.h>

#include "tests/client/failure_of.h"

namespace zef::client {
namespace {

using test::FailureOf;

FolderInfo Folder(std::int32_t id, FolderKind kind) { return {.id = id, .kind = kind, .name = "Garden"}; }

TEST(IdentifierIn, WholeNumberIsOne) { EXPECT_EQ(IdentifierIn("17"), 17); }

TEST(IdentifierIn, NumberWithSomethingBehindIsNone) { EXPECT_EQ(IdentifierIn("17a"), std::nullopt); }

TEST(IdentifierIn, NumberBeyond32BitsIsNone) { EXPECT_EQ(IdentifierIn("2147483648"), std::nullopt); }

TEST(ChooseFolder, OnlyOneIsTaken) { EXPECT_EQ(ChooseFolder({Folder(4, kTasks)}, "garden").id, 4); }

TEST(ChooseFolder, KindNarrowsSeveralDown) {
  EXPECT_EQ(ChooseFolder({Folder(4, kNotes), Folder(5, kTasks)}, "garden", kTasks).id, 5);
}

TEST(ChooseFolder, NoneIsRefused) {
  EXPECT_EQ(FailureOf([] { ChooseFolder({}, "garden"); }), "1: There is no folder 'garden'.");
}

TEST(ChooseFolder, OneOfAnotherKindIsRefused) {
  EXPECT_EQ(FailureOf([] { ChooseFolder({Folder(4, kNotes)}, "garden", kTasks); }),
            "1: The folder 'Garden' does not hold tasks.");
}

TEST(ChooseFolder, SeveralAreRefusedWithTheirIdentifiers) {
  EXPECT_EQ(FailureOf([] {
              ChooseFolder({Folder(4, kTasks), Folder(5, kTasks)}, "garden", kTasks);
            }),
            "1: Several folders are called 'garden'; give one by its identifier: 4, 5.");
}

TEST(IsOlderVersion, NumbersAreComparedAsNumbers) { EXPECT_TRUE(IsOlderVersion("9.2.4", "9.10.0")); }

TEST(IsOlderVersion, MissingNumberCountsAsZero) { EXPECT_TRUE(IsOlderVersion("9.1", "9.1.1")); }

TEST(IsOlderVersion, SameVersionIsNot) { EXPECT_FALSE(IsOlderVersion("9.2.4", "9.2.4")); }

TEST(IsOlderVersion, LaterVersionIsNot) { EXPECT_FALSE(IsOlderVersion("10", "9.2.4")); }

TEST(IsOlderVersion, TextWithoutNumbersIs) { EXPECT_TRUE(IsOlderVersion("", "9.2.4")); }

}  // namespace
}  // namespace zef::client
