#include <ZEFComponents.hpp>
#include <iostream>

/// Lists the folders at the root of a database, by names alone.
int main(int count, char** words) try {
  if (count != 2) return 2;
  const zef::Object session = zef::CreateObject("ZEFComponents.CSession");
  session.Call("Connect2Database", words[1], "", "");
  const zef::Object folders = zef::CreateObject("ZEFComponents.CFolders");
  if (!session.Call<bool>("LoadRootFolders", folders)) {
    throw std::runtime_error(session.Call<std::string>("GetErrorDescription"));
  }
  for (const zef::Object& folder : folders) std::cout << folder.Get<std::string>("Name") << '\n';
} catch (const std::exception& failure) {
  std::cerr << failure.what() << '\n';
  return 1;
}
