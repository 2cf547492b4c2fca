#include "client/backup.h"

#include "client/place_file.h"

namespace zef::client {
namespace {

std::string FreeNameFor(const std::string& file) {
  const std::string first = file + ".backup";
  std::string name = first;
  for (int number = 2; NameIsTaken(name); ++number) name = first + "." + std::to_string(number);
  return name;
}

}  // namespace

std::string BackUpBeside(const std::string& file, const std::function<void(const std::string& temporary)>& write) {
  const std::string place = FreeNameFor(file);
  MakeNewFile(place, write);
  return place;
}

}  // namespace zef::client
