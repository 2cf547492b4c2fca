#include "client/registry_commands.h"

#include <fmt/format.h>

#include "client/json.h"
#include "client/printable.h"
#include "client/registry.h"
#include "client/views.h"

namespace zef::client {
namespace {

/// How a change is told.
struct Wording {
  const char* done;
  const char* verb;
};
constexpr Wording kEntered{"Registered", "are"};
constexpr Wording kRemoved{"Unregistered", "were"};

std::string Told(const Arguments& arguments, const RegistryChange& change, const Wording& wording) {
  if (arguments.json) {
    Json::Array classes(change.classes.begin(), change.classes.end());
    return JsonLine({{"library", change.library}, {"folder", change.folder}, {"classes", std::move(classes)}});
  }
  if (change.classes.empty()) return fmt::format("There was no entry in {}.\n", Printable(change.folder));
  return fmt::format("{} {} classes of {}.\nThe entries {} in {}.\n", wording.done, change.classes.size(),
                     Printable(change.library), wording.verb, Printable(change.folder));
}

}  // namespace

std::string Register(const Arguments& arguments, const Screen& /*screen*/) {
  return Told(arguments, EnterClasses(), kEntered);
}

std::string Unregister(const Arguments& arguments, const Screen& /*screen*/) {
  return Told(arguments, RemoveClasses(), kRemoved);
}

}  // namespace zef::client
