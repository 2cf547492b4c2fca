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

Ref<CSession> OpenSession(const std::string& place) {
  auto session = MakeRef<CSession>();
  const bool on_server = place.starts_with("Provider=");
  on_server ? session->Connect2DatabaseCS(place) : session->Connect2Database(place, "", "");
  return session;
}

}  // namespace zef::bench
