#pragma once

#include <string>

#include "client/text.h"

namespace zef::client {

/// The connection string of a database file; an empty password means none.
inline std::string ConnectionString(const std::string& file, const std::string& password) {
  std::string text = "Provider=SQLite;Data Source=" + Quoted(file, '"');
  if (!password.empty()) text += ";Password=" + Quoted(password, '"');
  return text;
}

}  // namespace zef::client
