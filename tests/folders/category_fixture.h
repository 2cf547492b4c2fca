#pragma once

#include <string>

#include "folders/category.h"
#include "session/collections.h"
#include "tests/support/record_fixture.h"

namespace zef::test {

/// Tests around categories.
class CategoryTest : public RecordTest {
 protected:
  /// A category as clients make it.
  Ref<CCategory> NewCategory(const std::string& name = {}) {
    auto category = MakeRef<CCategory>();
    category->SetSession(session);
    category->Name = name;
    return category;
  }
  Ref<CCategory> StoredCategory(const std::string& name) {
    Ref<CCategory> category = NewCategory(name);
    EXPECT_TRUE(category->Save()) << session->GetEntireErrorDesc();
    Forget();
    return category;
  }
};

}  // namespace zef::test
