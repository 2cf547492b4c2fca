#include "tests/component/c_client.h"

#include <gtest/gtest.h>

#include "tests/component/library.h"

namespace zef::test {
namespace {

TEST(ClientInC, FindsEverythingWhereTheLayoutSays) {
  const CLSID tag = IdentifierOf("CTag");
  const CLSID tags = IdentifierOf("CTags");
  EXPECT_STREQ(RunClientInC(LibraryPath().c_str(), reinterpret_cast<const unsigned char*>(&tag),
                            reinterpret_cast<const unsigned char*>(&tags)),
               nullptr);
}

}  // namespace
}  // namespace zef::test
