#include <gtest/gtest.h>

#include <array>
#include <cstdint>

#include "component/enumerator.h"
#include "platform/run_time_error.h"
#include "tests/support/foreign_objects.h"

namespace zef::test {
namespace {

constexpr std::int32_t kFailing = 2;

/// A walk in the middle of which an element fails. Each of the others is the one client's object.
class FailingWalk : public testing::Test {
 protected:
  ~FailingWalk() override { walk->Release(); }

  static bool ElementAt(component::Object object, std::int32_t position, VARIANT& element) {
    if (position == kFailing) throw RunTimeError(FailureNumber::SubscriptOutOfRange);
    auto* const given = static_cast<ForeignObject*>(object.address);
    given->AddRef();
    element.vt = VT_DISPATCH;
    element.pdispVal = given;
    return true;
  }
  HRESULT Next() { return walk->Next(kWanted, values.data(), &fetched); }

  static constexpr ULONG kWanted = 3;
  static constexpr component::Class kDescribed{
      .name = "Objects", .members = {}, .add_reference = [](void*) {}, .release = [](void*) {}};
  ForeignObject given;
  std::array<VARIANT, kWanted> values{};
  ULONG fetched = 77;
  IEnumVARIANT* const walk = new component::Enumerator(kDescribed, {&given, 0}, &ElementAt);
};

TEST_F(FailingWalk, HandsOutNothing) {
  EXPECT_EQ(Next(), static_cast<HRESULT>(0x800A0000) + 9);
  EXPECT_EQ(fetched, 0u);
  for (const VARIANT& value : values) EXPECT_EQ(value.vt, VT_EMPTY);
}
TEST_F(FailingWalk, GivesBackWhatItHadFetched) {
  Next();
  EXPECT_EQ(given.references, 1u);
}
TEST_F(FailingWalk, StaysWhereItWas) {
  Next();
  EXPECT_EQ(walk->Next(kFailing, values.data(), &fetched), S_OK);
  EXPECT_EQ(fetched, 2u);
  for (VARIANT& value : values) VariantClear(&value);
}

}  // namespace
}  // namespace zef::test
