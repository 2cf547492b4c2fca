#pragma once

#include <string>

namespace zef::test {

/// True if the tests were asked to run on the server's engine: ZEF_TEST_ON_SERVER holds a server's folder, or "own" for
/// one that is started for this process.
bool OnServer();

/// A database of its own on the tests' server, which goes away with it. The server is the one whose folder stands in
/// ZEF_TEST_ON_SERVER or ZEF_TEST_SERVER; without these, one is started for this process. Only where the server's
/// programs are known. With a folder in ZEF_TEST_POOLER connections go through the pooler there.
class ServerDatabase {
 public:
  /// With the tables and first rows of a schema version, or with none for the empty text.
  explicit ServerDatabase(const std::string& version);
  ~ServerDatabase();
  ServerDatabase(const ServerDatabase&) = delete;
  ServerDatabase& operator=(const ServerDatabase&) = delete;

  std::string ConnectionString() const;
  /// The same over the network, where the server talks encrypted only. The host is "localhost", for which its
  /// certificate is made out, or "127.0.0.1".
  std::string NetworkConnectionString(const std::string& host) const;
  /// The file of a certificate: "root.crt" of who has signed the server's, "stranger.crt" of who has not.
  static std::string Certificate(const std::string& name);
  /// The first value that a statement of the server's own language gives, as another program sees it.
  std::string Ask(const std::string& text) const;
  /// Ends all connections to the database from the server's side.
  void EndConnections() const;

 private:
  std::string name_;
};

}  // namespace zef::test
