#pragma once

#include <string>

namespace zef {

/// The connection string of a database file. Both texts stand in it as they come: a name or password with a `;`, or a
/// password with blanks at its ends, must bring its own quotation marks.
inline std::string FileConnectionString(const std::string& database, const std::string& password) {
  std::string text = "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + database + ";User ID=Admin";
  if (!password.empty()) text += ";Jet OLEDB:Database Password=" + password;
  return text;
}

}  // namespace zef
