#include "client/record_kinds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

namespace zef::client {

void PrintTo(const RecordKind& kind, std::ostream* out) { *out << kind.name; }

namespace {

bool HasProperty(const RecordKind& kind, std::string_view name) {
  const std::vector<PropertyInfo> properties = PropertiesOf(kind.type);
  return std::any_of(properties.begin(), properties.end(),
                     [&](const PropertyInfo& property) { return property.name == name; });
}

class EveryKind : public testing::TestWithParam<RecordKind> {};
INSTANTIATE_TEST_SUITE_P(RecordKinds, EveryKind,
                         testing::ValuesIn(std::vector(RecordKinds().begin(), RecordKinds().end())));

TEST_P(EveryKind, HasItsTitleAmongItsProperties) { EXPECT_TRUE(HasProperty(GetParam(), GetParam().title)); }

TEST_P(EveryKind, HasColumnsOfItsOwnProperties) {
  for (const ListColumn& column : GetParam().columns) EXPECT_TRUE(HasProperty(GetParam(), column.property));
}

TEST_P(EveryKind, HasOptionsForItsOwnProperties) {
  for (const AddOption& option : GetParam().options) EXPECT_TRUE(HasProperty(GetParam(), option.property));
}

TEST_P(EveryKind, WithAFolderCanBeMovedToAnother) {
  const bool lies_in_a_folder = GetParam().root_folder != nullptr;
  EXPECT_EQ(HasProperty(GetParam(), "FolderID"), lies_in_a_folder);
}

TEST_P(EveryKind, KeepsItsIdentifierReadOnly) {
  const PropertyInfo id = PropertiesOf(GetParam().type).front();
  EXPECT_TRUE(id.name == "ID" && id.read_only);
}

TEST_P(EveryKind, HasADifferentJsonNameForEachProperty) {
  std::vector<std::string> names;
  for (const PropertyInfo& property : PropertiesOf(GetParam().type)) names.push_back(JsonName(property.name));
  std::sort(names.begin(), names.end());
  EXPECT_EQ(std::adjacent_find(names.begin(), names.end()), names.end());
}

struct Named {
  std::string_view property;
  const char* json;

  friend void PrintTo(const Named& named, std::ostream* out) { *out << named.property; }
};

class JsonNameTest : public testing::TestWithParam<Named> {};

TEST_P(JsonNameTest, IsThePropertyInSmallLettersWithUnderscores) {
  EXPECT_EQ(JsonName(GetParam().property), GetParam().json);
}

INSTANTIATE_TEST_SUITE_P(Properties, JsonNameTest,
                         testing::Values(Named{"ID", "id"}, Named{"FolderID", "folder"},
                                         Named{"BirthDate", "birth_date"}, Named{"MI", "mi"},
                                         Named{"WorkURL", "work_url"}, Named{"StartDate", "start"},
                                         Named{"DueDate", "due"}, Named{"EType", "type"}, Named{"Recurrence", "rule"},
                                         Named{"AssignedTo", "assigned_to"}));

}  // namespace
}  // namespace zef::client
