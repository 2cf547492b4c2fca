#include "client/upgrade_view.h"

#include <fmt/format.h>

#include "client/printable.h"
#include "client/views.h"

namespace zef::client {
namespace {

Json::Array ArrayOf(const std::vector<std::string>& texts) { return {texts.begin(), texts.end()}; }

std::string Versions(const DatabasePlace& place, const UpgradeInfo& info) {
  if (info.steps.empty()) {
    return fmt::format("{} has version {} already.\n", place.IsFile() ? Printable(place.file) : "The database",
                       info.to);
  }
  return fmt::format("Upgraded {} from version {} to {}. Steps: {}.\n", Printable(place.Name()), Printable(info.from),
                     info.to, fmt::join(info.steps, ", "));
}

}  // namespace

std::string UpgradeText(const DatabasePlace& place, const UpgradeInfo& info) {
  std::string text = Versions(place, info);
  if (!info.indexes.empty()) {
    text += fmt::format("Added {} that it lacked: {}.\n", info.indexes.size() == 1 ? "an index" : "indexes",
                        fmt::join(info.indexes, ", "));
  }
  if (!info.backup.empty()) text += fmt::format("As it was before it stands in {}.\n", Printable(info.backup));
  return text;
}

std::string UpgradeJson(const DatabasePlace& place, const UpgradeInfo& info) {
  return JsonLine({{"file", JsonOf(place)},
                   {"from", info.from},
                   {"to", info.to},
                   {"steps", ArrayOf(info.steps)},
                   {"indexes", ArrayOf(info.indexes)},
                   {"backup", info.backup.empty() ? Json(nullptr) : Json(info.backup)}});
}

}  // namespace zef::client
