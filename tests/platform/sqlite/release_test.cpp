#include <gtest/gtest.h>

#include "platform/engine.h"
#include "tests/support/database.h"

namespace zef::test {
namespace {

TEST(ReleasedEngines, BeginAnewWithTheNextConnection) {
  const Database database;
  ReleaseEngines();
  EXPECT_GT(Count(*database.Connect(), "Folders"), 0);
}

TEST(ReleasedEngines, StillOpenEncryptedFiles) {
  const Database database("9.2.4", "open sesame");
  ReleaseEngines();
  EXPECT_GT(Count(*database.Connect(), "Folders"), 0);
}

TEST(ReleasedEngines, MayBeReleasedTwice) {
  ReleaseEngines();
  ReleaseEngines();
  const Database database;
  EXPECT_GT(Count(*database.Connect(), "Folders"), 0);
}

}  // namespace
}  // namespace zef::test
