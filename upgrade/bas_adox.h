#pragma once

#include <string>

#include "platform/catalog.h"

namespace zef {

/// Removes a relationship from the foreign table, letter case ignored; True also if it is not there. An empty
/// `strRelationshipName` stands for the names of the two tables, one behind the other; only its first 64 characters
/// count. A failure writes its sentence to `strErrorMsg` alone and gives False; nothing is raised.
bool DeleteRelationship(Catalog& cat, const std::string& strPrimaryTable, const std::string& strForeignTable,
                        const std::string& strRelationshipName, std::string& strErrorMsg);

}  // namespace zef
