#include "component/binding.h"
#include "folders/folder.h"
#include "session/session.h"

namespace zef::component {

/// A row of a class's table, given to the compiler as a definition.
constexpr Member kRow = ROW;

}  // namespace zef::component
