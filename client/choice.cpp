#include "client/choice.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>

#include "client/failure.h"
#include "client/views.h"

namespace zef::client {
namespace {

std::array<int, 3> VersionNumbers(std::string_view version) {
  std::array<int, 3> numbers{};
  for (int& number : numbers) {
    const std::size_t dot = std::min(version.find('.'), version.size());
    std::from_chars(version.data(), version.data() + dot, number);
    version.remove_prefix(std::min(dot + 1, version.size()));
  }
  return numbers;
}

[[noreturn]] void RefuseAmbiguous(const std::vector<FolderInfo>& found, const std::string& name) {
  std::vector<std::int32_t> ids;
  for (const FolderInfo& folder : found) ids.push_back(folder.id);
  throw Failure(kRefused, fmt::format("Several folders are called '{}'; give one by its identifier: {}.", name,
                                      fmt::join(ids, ", ")));
}

}  // namespace

std::optional<std::int32_t> IdentifierIn(std::string_view text) {
  std::int32_t id = 0;
  const char* const end = text.data() + text.size();
  const auto [stopped, error] = std::from_chars(text.data(), end, id);
  if (error != std::errc() || stopped != end) return std::nullopt;
  return id;
}

FolderInfo ChooseFolder(std::vector<FolderInfo> found, const std::string& name, std::optional<FolderKind> kind) {
  const auto differs = [&](const FolderInfo& folder) { return kind && folder.kind != *kind; };
  if (found.empty()) throw Failure(kRefused, fmt::format("There is no folder '{}'.", name));
  if (std::all_of(found.begin(), found.end(), differs)) {
    throw Failure(kRefused, fmt::format("The folder '{}' does not hold {}.", found[0].name, KindName(*kind)));
  }
  std::erase_if(found, differs);
  if (found.size() > 1) RefuseAmbiguous(found, name);
  return found[0];
}

bool IsOlderVersion(std::string_view version, std::string_view than) {
  return VersionNumbers(version) < VersionNumbers(than);
}

}  // namespace zef::client
