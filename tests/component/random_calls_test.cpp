#include "tests/component/random_calls.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <random>
#include <vector>

#include "tests/component/library.h"

namespace zef::test {
namespace {

/// Random calls, the same in every run. They may write files, which they do in a folder that goes away.
class RandomCalls : public ComponentTest, public testing::WithParamInterface<std::uint32_t> {
 protected:
  RandomCalls() { std::filesystem::current_path(folder.path()); }
  ~RandomCalls() override { std::filesystem::current_path(before); }

  static std::vector<std::uint8_t> Choices() {
    std::mt19937 random(GetParam());
    std::vector<std::uint8_t> bytes(40'000);
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
    return bytes;
  }

  const std::filesystem::path before = std::filesystem::current_path();
  TemporaryFolder folder;
};

TEST_P(RandomCalls, OfUnconnectedObjectsKeepTheRules) {
  EXPECT_EQ(DriveRandomCalls(&Create, "", Choices()), "") << "with seed " << GetParam();
}

TEST_P(RandomCalls, OfConnectedObjectsKeepTheRules) {
  const Database database;
  EXPECT_EQ(DriveRandomCalls(&Create, database.ConnectionString(), Choices()), "") << "with seed " << GetParam();
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomCalls, testing::Range(1u, 9u));

}  // namespace
}  // namespace zef::test
