#include <ZEFComponents.hpp>
#include <iostream>

/// Lists the folders at the root of a database.
int main(int count, char** words) try {
  if (count != 2) return 2;
  const auto session = zef::CreateObject<zef::CSession>();
  session.Connect2Database(words[1], "", "");
  const auto folders = zef::CreateObject<zef::CFolders>();
  if (!session.LoadRootFolders(folders)) throw std::runtime_error(session.GetErrorDescription());
  for (auto folder : folders) std::cout << folder.Name << '\n';
} catch (const std::exception& failure) {
  std::cerr << failure.what() << '\n';
  return 1;
}
