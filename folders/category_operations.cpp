#include "folders/category.h"
#include "session/collections.h"
#include "session/operations.h"

namespace zef {
namespace {

/// The row itself, then every reference to it; each is followed by the identifier.
constexpr std::string_view kDeletion[] = {
    "DELETE * FROM Categories WHERE CAT_ID=",
    "UPDATE Alarms SET ALA_CategoryID = -1 WHERE ALA_CategoryID=",
    "UPDATE Events SET EVE_CategoryID = -1 WHERE EVE_CategoryID=",
    "UPDATE Notes SET NOT_CategoryID = -1 WHERE NOT_CategoryID=",
    "UPDATE Tasks SET TSK_CategoryID = -1 WHERE TSK_CategoryID=",
    "UPDATE Contacts SET CNT_CategoryID = -1 WHERE CNT_CategoryID=",
};

// The refusal bears the name that clients know it by.
constexpr char kRefusal[] = "CSession.DeleteEvent";

}  // namespace

Ref<CCategory> CSession::GetCategory(std::int32_t CategoryID) {
  return GetRecord<CCategory>(*this, "GetCategory", "SELECT * FROM Categories WHERE CAT_ID=", CategoryID);
}

std::int32_t CSession::GetCategoryID4Name(const std::string& strConnectName) {
  return FirstID(*this, "GetCategoryID4Name", "SELECT * FROM Categories WHERE CAT_Name=" + SqlQuoted(strConnectName),
                 "CAT_ID", Value(-1));
}

bool CSession::LoadCategoriesWithCriteria(const Ref<CCategories>& udtCategories, const std::string& strCriteria) {
  return LoadRecords(*this, udtCategories, "LoadCategoriesWithCriteria", "SELECT * FROM Categories", strCriteria);
}

bool CSession::DeleteCategory(std::int32_t lngCategoryID) {
  if (Refused(*this, kRefusal)) {
    Deref(conDBConnection).RollbackTrans();
    return false;
  }
  ClearError();
  return InConnectionTransaction(*this, "DeleteCategory", [&] {
    for (const std::string_view statement : kDeletion) Execute(*this, WithNumber(statement, lngCategoryID));
    return true;
  });
}

}  // namespace zef
