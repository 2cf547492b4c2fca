#pragma once

#include <string>

namespace zef::client {

/// Where a database is: in a file, or where a connection string says.
struct DatabasePlace {
  std::string file{};        ///< empty for a connection string
  std::string connection{};  ///< as it was given
  std::string password{};    ///< empty for none; that of a connection string may also stand in it

  /// Takes a word that begins with "Provider=" as a connection string, any other one as a file.
  void PointTo(const std::string& word);

  bool IsFile() const { return connection.empty(); }
  bool IsOnServer() const;
  /// A password for a file without one is refused.
  bool IsEncrypted() const { return IsFile() && !password.empty(); }
  /// For the library.
  std::string ConnectionString() const;
  /// For people; a connection string is not shown, since it may hold a password.
  std::string Name() const { return IsFile() ? file : "the database"; }
};

}  // namespace zef::client
