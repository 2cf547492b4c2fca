#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/database.h"

namespace zef::test {

/// How a run of the program ended.
struct Ended {
  int status = -1;  ///< the exit status; -1 if it did not end by itself
  std::string out;
  std::string err;
};

/// Runs the built client in a folder, without a terminal.
Ended RunZef(const std::filesystem::path& folder, const std::vector<std::string>& arguments);

/// Runs any program, by its path or a name to be looked for, in the same way.
Ended RunProgram(const std::filesystem::path& folder, const std::string& program,
                 const std::vector<std::string>& arguments);

/// What a run shows on a terminal with so many characters in a line; 0 for one that does not tell.
std::string ShownOnTerminal(const std::filesystem::path& folder, const std::vector<std::string>& arguments,
                            unsigned short width = 0);

/// A folder of its own for each test, with a new database "people.db" in it.
class ZefTest : public testing::Test {
 protected:
  ZefTest() { Zef({"create", "people.db"}); }

  Ended Zef(const std::vector<std::string>& arguments) const { return RunZef(folder(), arguments); }
  /// What a run that must succeed prints.
  std::string Printed(const std::vector<std::string>& arguments) const;
  /// What a run that must be refused with an exit status complains of.
  std::string Complaint(int status, const std::vector<std::string>& arguments) const;

  const std::filesystem::path& folder() const { return folder_.path(); }
  std::filesystem::path File(const char* name) const { return folder() / name; }
  /// The first value of a select on the database, as text.
  std::string Stored(const std::string& select) const;

 private:
  TemporaryFolder folder_;
};

}  // namespace zef::test
