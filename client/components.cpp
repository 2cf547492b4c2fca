#include "client/components.h"

#include "client/library.h"

namespace zef::client {

const Library& Components() {
  static const Library library(LibraryFile());
  return library;
}

}  // namespace zef::client
