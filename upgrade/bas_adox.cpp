#include "upgrade/bas_adox.h"

#include "platform/text.h"

namespace zef {
namespace {

/// The longest name that a database of this kind gives to a relationship.
constexpr std::int64_t kLongestName = 64;

std::string NameOf(const std::string& primary, const std::string& foreign, const std::string& name) {
  return std::string(text::Left(name.empty() ? primary + foreign : name, kLongestName));
}

bool Has(const CatalogKeys& keys, const std::string& name) {
  const std::string sought = text::LowerCase(name);
  for (std::int32_t i = 0; i < keys.Count(); ++i) {
    if (text::LowerCase(keys.Item(i).Name) == sought) return true;
  }
  return false;
}

}  // namespace

bool DeleteRelationship(Catalog& cat, const std::string& strPrimaryTable, const std::string& strForeignTable,
                        const std::string& strRelationshipName, std::string& strErrorMsg) try {
  const std::string name = NameOf(strPrimaryTable, strForeignTable, strRelationshipName);
  const CatalogKeys keys = cat.Tables(strForeignTable).Keys;
  if (Has(keys, name)) keys.Delete(name);
  return true;
} catch (...) {
  const RunTimeError failure = *CurrentFailure();
  strErrorMsg = "Unable to delete relationship between " + strPrimaryTable + " and " + strForeignTable +
                " tables.\r\n\r\n" + failure.description() + " (Error #" + std::to_string(failure.number()) + ")";
  return false;
}

}  // namespace zef
