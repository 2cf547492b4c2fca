#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "client/store.h"

namespace zef::client {

/// The identifier that a text is, if it is a whole number.
std::optional<std::int32_t> IdentifierIn(std::string_view text);

/// The one folder that was meant by `name` among those found by it; the kind, if given, narrows several down and must
/// fit. None, several, or one of another kind raise a `Failure` that tells so.
FolderInfo ChooseFolder(std::vector<FolderInfo> found, const std::string& name,
                        std::optional<FolderKind> kind = std::nullopt);

/// True if a version such as "9.1.0" comes before another one; missing numbers count as 0.
bool IsOlderVersion(std::string_view version, std::string_view than);

}  // namespace zef::client
