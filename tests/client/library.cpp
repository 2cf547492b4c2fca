#include "client/library.h"

namespace {

/// The units of the client find the library that was built with them.
[[maybe_unused]] const bool kNamed = [] {
  zef::client::UseLibrary(ZEF_LIBRARY);
  return true;
}();

}  // namespace
