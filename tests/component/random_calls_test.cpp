#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <sstream>
#include <vector>

#include "tests/component/library.h"
#include "tests/support/random/calls.h"

namespace zef::test {
namespace {

/// Random calls, the same in every run; the environment variable ZEF_SEEDS names further seeds, separated by blanks.
/// They may write files, which they do in a folder that goes away.
class RandomCalls : public ComponentTest {
 protected:
  RandomCalls() { std::filesystem::current_path(folder.path()); }
  ~RandomCalls() override { std::filesystem::current_path(before); }

  static std::vector<std::uint32_t> Seeds() {
    constexpr std::uint32_t kSeeds = 30;
    std::vector<std::uint32_t> seeds(kSeeds);
    for (std::uint32_t i = 0; i < kSeeds; ++i) seeds[i] = i;
    if (const char* const further = std::getenv("ZEF_SEEDS")) {
      std::istringstream words(further);
      for (std::uint32_t seed = 0; words >> seed;) seeds.push_back(seed);
      if (!words.eof()) ADD_FAILURE() << "ZEF_SEEDS holds more than numbers: " << further;
    }
    return seeds;
  }
  static std::vector<std::uint8_t> Bytes(std::uint32_t seed) {
    std::mt19937 random(seed);
    std::vector<std::uint8_t> bytes(10'000);
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
    return bytes;
  }
  static std::string Drive(const std::string& connection_string, std::uint32_t seed) {
    return DriveRandomCalls(Library::Shared().ClassObjects(), connection_string, Bytes(seed));
  }

  const std::filesystem::path before = std::filesystem::current_path();
  TemporaryFolder folder;
};

TEST_F(RandomCalls, OfUnconnectedObjectsKeepTheRules) {
  for (const std::uint32_t seed : Seeds()) EXPECT_EQ(Drive("", seed), "") << "with seed " << seed;
}

TEST_F(RandomCalls, OfConnectedObjectsKeepTheRules) {
  for (const std::uint32_t seed : Seeds()) {
    const Database database;
    EXPECT_EQ(Drive(database.ConnectionString(), seed), "") << "with seed " << seed;
  }
}

}  // namespace
}  // namespace zef::test
