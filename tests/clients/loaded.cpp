#include "tests/clients/loaded.h"

#include <dlfcn.h>

#include <cstdlib>
#include <stdexcept>

namespace zef::test {

std::string BuiltPath() { return ZEF_LIBRARY; }

const Library& Built() {
  static const Library library(BuiltPath());
  return library;
}

bool NothingLives() {
  void* const handle = dlopen(BuiltPath().c_str(), RTLD_NOW);
  const bool nothing = reinterpret_cast<LibraryFunction*>(dlsym(handle, "DllCanUnloadNow"))() == S_OK;
  dlclose(handle);
  return nothing;
}

FolderTest::FolderTest() {
  std::string pattern = (std::filesystem::temp_directory_path() / "zef-clients-XXXXXX").string();
  folder_ = mkdtemp(pattern.data());
}
FolderTest::~FolderTest() { std::filesystem::remove_all(folder_); }

DatabaseTest::DatabaseTest() {
  const std::string file = (folder_ / "people.db").string();
  const std::string create = "'" ZEF_PROGRAM "' create '" + file + "' >/dev/null";
  if (std::system(create.c_str()) != 0) throw std::runtime_error("no database could be made");
  session_.Connect2Database(file, "", "");
}

CFolders DatabaseTest::RootFolders() const {
  auto folders = Built().Create<CFolders>();
  EXPECT_TRUE(session_.LoadRootFolders(folders));
  return folders;
}

Recordset DatabaseTest::NewRow(const std::string& columns) const {
  const Connection connection = session_.conDBConnection;
  connection.Execute("CREATE TABLE T (" + columns + ")");
  Recordset records = connection.Execute("SELECT * FROM T");
  records.Close();
  records.Open("SELECT * FROM T", connection, 1, 3);
  records.AddNew();
  return records;
}

Value DatabaseTest::Selected(const std::string& select) const {
  const CSession session = session_;
  return session.conDBConnection->Execute(select).Fields->Item(0).Value;
}

}  // namespace zef::test
