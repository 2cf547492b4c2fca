#include "bench/world.h"

#include <stdlib.h>

#include <stdexcept>

namespace zef::bench {

TemporaryFolder::TemporaryFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "zef-bench-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
  path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

const std::string& World::Made(const std::string& name, const Sizes& sizes) {
  const auto [entry, fresh] = paths_.try_emplace(name, (folder_.path() / (name + ".db")).string());
  if (fresh) MakeDatabase(entry->second, sizes);
  return entry->second;
}

Ref<CSession> OpenSession(const std::string& path) {
  auto session = MakeRef<CSession>();
  session->Connect2Database(path, "", "");
  return session;
}

}  // namespace zef::bench
