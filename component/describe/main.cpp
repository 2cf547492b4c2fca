#include <cstdio>
#include <exception>
#include <span>
#include <string>

#include "component/describe/client_header.h"
#include "component/describe/idl.h"
#include "component/describe/resources.h"
#include "platform/file.h"

namespace {

void Write(const std::string& path, const std::string& text) {
  zef::WriteWholeFile(path, std::as_bytes(std::span(text)));
}

}  // namespace

/// Writes what is made from the description of the classes: the type library's text, the resources of the library, and
/// the header for clients. TYPES names the file that the library shows as its type library.
int main(int argc, char** argv) {
  if (argc != 5) {
    std::fputs("Usage: zef_describe IDL RESOURCES HEADER TYPES\n", stderr);
    return 2;
  }
  try {
    Write(argv[1], zef::component::TypeLibraryText());
    Write(argv[2], zef::component::ResourcesText(argv[4]));
    Write(argv[3], zef::component::ClientHeaderText());
    return 0;
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "zef_describe: %s\n", failure.what());
    return 1;
  }
}
