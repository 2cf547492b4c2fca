#include "client/entries.h"

#include <ZEFComponents.hpp>

namespace zef::client {

std::string EntriesPlace() { return "HKEY_CLASSES_ROOT"; }
bool IsEntered(const std::string& name) { return !EntryPath(name).empty(); }

}  // namespace zef::client
