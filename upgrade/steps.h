#pragma once

#include <cstdint>
#include <string>

#include "session/session.h"

/// What the upgrade steps share. These raise, and leave the error record alone except as told.
namespace zef {

/// A protected folder of the system that a step makes if it is missing.
struct SystemFolder {
  const char* name;
  const char* parent;     ///< name of the protected folder that it lies under
  std::int32_t type;      ///< a `FolderType`
  const char* no_parent;  ///< what to tell if that one is missing
};

/// Makes the folder unless a protected one has its name. False if its parent is missing, with the sentence in
/// `strErrorMsg`, and if it cannot be saved, with the reason in the error record.
bool EnsureFolder(CSession& session, const SystemFolder& folder, std::string& strErrorMsg);

/// Stamps the database with a version and hands it to the client; always True.
bool StampVersion(CSession& session, const char* version, std::string& strVersion);

}  // namespace zef
