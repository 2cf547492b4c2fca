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
class RandomCalls : public ComponentTest {
 protected:
  static constexpr std::uint32_t kSeeds = 30;

  RandomCalls() { std::filesystem::current_path(folder.path()); }
  ~RandomCalls() override { std::filesystem::current_path(before); }

  static std::vector<std::uint8_t> Choices(std::uint32_t seed) {
    std::mt19937 random(seed);
    std::vector<std::uint8_t> bytes(10'000);
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
    return bytes;
  }

  const std::filesystem::path before = std::filesystem::current_path();
  TemporaryFolder folder;
};

TEST_F(RandomCalls, OfUnconnectedObjectsKeepTheRules) {
  for (std::uint32_t seed = 0; seed < kSeeds; ++seed) {
    EXPECT_EQ(DriveRandomCalls(&Create, "", Choices(seed)), "") << "with seed " << seed;
  }
}

TEST_F(RandomCalls, OfConnectedObjectsKeepTheRules) {
  for (std::uint32_t seed = 0; seed < kSeeds; ++seed) {
    const Database database;
    EXPECT_EQ(DriveRandomCalls(&Create, database.ConnectionString(), Choices(seed)), "") << "with seed " << seed;
  }
}

}  // namespace
}  // namespace zef::test
