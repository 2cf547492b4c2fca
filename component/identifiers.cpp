#include "component/identifiers.h"

#include <fmt/format.h>

namespace zef::component {

std::string IdentifierText(REFGUID identifier) {
  const auto& tail = identifier.Data4;
  return fmt::format("{{{:08X}-{:04X}-{:04X}-{:02X}{:02X}-{:02X}{:02X}{:02X}{:02X}{:02X}{:02X}}}", identifier.Data1,
                     identifier.Data2, identifier.Data3, tail[0], tail[1], tail[2], tail[3], tail[4], tail[5], tail[6],
                     tail[7]);
}

}  // namespace zef::component
