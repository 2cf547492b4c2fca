#pragma once

#include <functional>
#include <string>

namespace zef::client {

/// Makes a new file beside a database, whole or not at all, and gives its name: the first of "people.db.backup",
/// "people.db.backup.2" and so on that is free. `write` copies the database to the temporary name that it gets. Raises
/// what that does, and a `Failure` if the file cannot be made.
std::string BackUpBeside(const std::string& file, const std::function<void(const std::string& temporary)>& write);

}  // namespace zef::client
