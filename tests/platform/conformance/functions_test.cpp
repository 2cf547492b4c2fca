#include "tests/platform/conformance/backend.h"
#include "tests/platform/function_cases.h"

namespace zef::test {
namespace {

class Functions : public Conformance {
 protected:
  void ExpectResults(std::span<const FunctionResult> cases) {
    for (const auto& [expression, value] : cases) {
      std::string given;
      EXPECT_NO_THROW(given = Text(std::string("SELECT ") + expression)) << expression;
      EXPECT_EQ(given, value) << expression;
    }
  }
};
INSTANTIATE_TEST_SUITE_P(Engines, Functions, testing::ValuesIn(Backends()), BackendName);

TEST_P(Functions, OfTextsGiveTheirResults) { ExpectResults(kTextResults); }
TEST_P(Functions, JoinTextsWithOtherValues) { ExpectResults(kJoinedResults); }
TEST_P(Functions, OfDatesGiveTheirResults) { ExpectResults(kDateResults); }
TEST_P(Functions, OfNumbersGiveTheirResults) { ExpectResults(kNumberResults); }
TEST_P(Functions, CountTheTimeOfEarlyDatesForward) { ExpectResults(kEarlyDateResults); }
TEST_P(Functions, ConvertValues) { ExpectResults(kConvertedResults); }
TEST_P(Functions, ChooseValues) { ExpectResults(kChosenResults); }

TEST_P(Functions, FailWithTheirTrueNumbers) {
  for (const auto& [expression, number] : kFunctionFailures) {
    EXPECT_EQ(FailureOf(std::string("SELECT ") + expression), number) << expression;
  }
}

}  // namespace
}  // namespace zef::test
