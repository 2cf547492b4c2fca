#include "ZEFComponents/date_text.h"

#include "tests/support/date_text_tests.h"

namespace zef {
namespace {

TEST(DateText, OfADateOutOfRangeIsRefused) { EXPECT_THROW(ToText(Date(1e9)), Failure); }

}  // namespace
}  // namespace zef
