#include "component/binding.h"
#include "folders/folder.h"
#include "session/session.h"

namespace zef::component {

/// Members with which a row can be wrong in ways that no class of the library has.
struct Odd {
  Long One() const { return 0; }
  void SetTwo(Long) {}
  void ChangeAny(Value&) {}
  void Take(const Text&) {}
};

/// A row of a class's table, given to the compiler as a definition.
constexpr Member kRow = ROW;

}  // namespace zef::component
