#pragma once

#include <gtest/gtest.h>

#include <ZEFComponents.hpp>
#include <filesystem>
#include <string>

namespace zef::test {

/// The built library, loaded by its path.
const Library& Built();
std::string BuiltPath();

/// True if the library has no object left.
bool NothingLives();

/// What a call raises; a failure of the test if it raises nothing.
template <class Run>
Failure Raised(Run&& run) {
  try {
    run();
  } catch (const Failure& failure) {
    return failure;
  }
  ADD_FAILURE() << "nothing was raised";
  return Failure(0, "");
}

/// A folder of its own for each test, removed behind it.
class FolderTest : public testing::Test {
 protected:
  FolderTest();
  ~FolderTest() override;
  std::filesystem::path folder_;
};

/// A session on a new database.
class DatabaseTest : public FolderTest {
 protected:
  DatabaseTest();
  /// The folders at the root.
  CFolders RootFolders() const;
  /// A record set at a new row, to be filled, of a new table "T" with such columns.
  Recordset NewRow(const std::string& columns) const;
  /// The first value of a select.
  Value Selected(const std::string& select) const;

  CSession session_ = Built().Create<CSession>();
};

}  // namespace zef::test
