#include "client/entries.h"

#include <fmt/format.h>

#include <ZEFComponents.hpp>

#include "client/failure.h"

namespace zef::client {

std::string EntriesPlace() { return "HKEY_CLASSES_ROOT"; }
bool IsEntered(const std::string& name) { return !EntryPath(name).empty(); }
void RequireNameable(const std::string&) {}

void TellObstacle(const char* what) {
  throw Failure(kRefused,
                fmt::format("Not every entry of the registry could be {}. Try it as an administrator.", what));
}

}  // namespace zef::client
