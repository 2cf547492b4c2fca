#include "folders/category.h"
#include "folders/folder.h"
#include "tests/support/column_cases.h"
#include "tests/support/record_fixture.h"

namespace zef::test {
namespace {

const ColumnCases<CFolder> kFolderColumns = {
    {"FLD_ID", "91", "91", "", [](auto& f) { return Shown(f.ID); }},
    {"FLD_ParentID", "92", "92", "0", [](auto& f) { return Shown(f.ParentID); }},
    {"FLD_Options", "93", "93", "0", [](auto& f) { return Shown(f.Options); }},
    {"FLD_Name", "'a name'", "a name", "", [](auto& f) { return Shown(f.Name); }},
    {"FLD_Description", "'a description'", "a description", "", [](auto& f) { return Shown(f.Description); }},
    {"FLD_Type", "3", "3", "0", [](auto& f) { return Shown(f.ItemsType); }},
    {"FLD_DateLastUpdate", "'2/3/2024 1:00:00 PM'", "2/3/2024 1:00:00 PM", "12:00:00 AM",
     [](auto& f) { return Shown(f.DateLastUpdate); }},
    {"FLD_Protected", "1", "1", "0", [](auto& f) { return Shown(std::int32_t{f.Protected}); }},
};

const ColumnCases<CCategory> kCategoryColumns = {
    {"CAT_ID", "91", "91", "", [](auto& c) { return Shown(c.ID); }},
    {"CAT_Name", "'a name'", "a name", "", [](auto& c) { return Shown(c.Name); }},
    {"CAT_Color", "92", "92", "0", [](auto& c) { return Shown(c.Color); }},
    {"CAT_DateLastUpdate", "'2/3/2024 1:00:00 PM'", "2/3/2024 1:00:00 PM", "12:00:00 AM",
     [](auto& c) { return Shown(c.DateLastUpdate); }},
};

using ColumnsOfAFolder = RecordTest;
using ColumnsOfACategory = RecordTest;

TEST_F(ColumnsOfAFolder, AreReadInTheirOrder) {
  Run(InsertOfAll("Folders", kFolderColumns));
  ExpectReadInOrder(connection(), "Folders WHERE FLD_ID=91", kFolderColumns, [] { return MakeRef<CFolder>(); });
}

TEST_F(ColumnsOfAFolder, AreAllRead) {
  EXPECT_THAT(ColumnsRead(kFolderColumns), testing::UnorderedElementsAreArray(ColumnsOf(connection(), "Folders")));
}

TEST_F(ColumnsOfACategory, AreReadInTheirOrder) {
  Run(InsertOfAll("Categories", kCategoryColumns));
  ExpectReadInOrder(connection(), "Categories", kCategoryColumns, [] { return MakeRef<CCategory>(); });
}

TEST_F(ColumnsOfACategory, AreAllRead) {
  EXPECT_THAT(ColumnsRead(kCategoryColumns), testing::UnorderedElementsAreArray(ColumnsOf(connection(), "Categories")));
}

}  // namespace
}  // namespace zef::test
