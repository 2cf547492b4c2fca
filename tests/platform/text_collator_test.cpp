#include <gtest/gtest.h>
#include <unicode/ucol.h>

#include <random>
#include <string>
#include <string_view>

#include "platform/text.h"

namespace zef::text {
namespace {

using std::string;
using std::string_view;

int Sign(int order) { return (order > 0) - (order < 0); }

string RandomText(std::mt19937& random, std::size_t longest, string_view alphabet) {
  string text;
  for (auto length = random() % (longest + 1); length > 0; --length) text += alphabet[random() % alphabet.size()];
  return text;
}

string PrintableAscii() {
  string characters;
  for (char c = ' '; c <= '~'; ++c) characters += c;
  return characters;
}

TEST(Compare, AsciiAgreesWithTheCollator) {
  UErrorCode status = U_ZERO_ERROR;
  UCollator* const collator = ucol_open("und-u-ks-level2", &status);
  ASSERT_TRUE(U_SUCCESS(status));
  std::mt19937 random(20240501);
  const string characters = PrintableAscii();
  for (int i = 0; i < 300000; ++i) {
    // Short texts of few letters often share a beginning or are equal.
    const string_view alphabet = i % 2 == 0 ? string_view(characters) : "aAbB -_'";
    const string a = RandomText(random, 6, alphabet);
    const string b = RandomText(random, 6, alphabet);
    const UCollationResult expected = ucol_strcollUTF8(collator, a.data(), static_cast<std::int32_t>(a.size()),
                                                       b.data(), static_cast<std::int32_t>(b.size()), &status);
    ASSERT_EQ(Sign(Compare(a, b)), Sign(expected)) << a << " | " << b;
  }
  ucol_close(collator);
}

}  // namespace
}  // namespace zef::text
