#include "folders/category.h"

namespace zef {
namespace {

constexpr Column<CCategory> kColumns[] = {
    Key<CCategory>("CAT_ID"),
    {.name = "CAT_Name", .member = &CCategory::Name, .row = 0, .form = Form::Plain, .spelled = "CAT_NAme"},
    Stored<CCategory>("CAT_Color", &CCategory::Color, 1),
    Stored<CCategory>("CAT_DateLastUpdate", &CCategory::DateLastUpdate, 2, Form::Stamp),
};
constexpr Table kCategories("Categories", kColumns);

constexpr std::int32_t kCategorySequence = 9;

}  // namespace

void CCategory::GetValuesFromRS(const Ref<Recordset>& Rs) {
  ReadColumns(*this, kCategories, Deref(Rs));
  SetFlags(false, false);
}

bool CCategory::Save() {
  return SaveAlone("CCategory.Save", MaySave::Writers, [this](CSession&) {
    const bool drawn = WriteUnderDrawnID(*this, kCategories, kCategorySequence, DatabaseRows(*this, kCategories));
    return drawn ? Outcome::Done : Outcome::Quiet;
  });
}

}  // namespace zef
