#include "tests/component/expected_members.h"

#include <fstream>
#include <map>
#include <regex>
#include <stdexcept>

namespace zef::test {
namespace {

std::vector<ExpectedClass> Read(const std::string& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error(path + " cannot be read");
  std::vector<ExpectedClass> classes;
  for (std::string line; std::getline(file, line);) {
    if (line.empty()) continue;
    if (line.front() == '[') {
      classes.push_back({line.substr(1, line.size() - 2), {}});
    } else {
      classes.back().members.push_back(line);
    }
  }
  return classes;
}

std::string KindIn(const std::string& line) { return line.substr(0, line.find(' ')); }

}  // namespace

const std::vector<ExpectedClass>& ExpectedClasses() {
  static const std::vector<ExpectedClass> classes = Read("tests/component/members.txt");
  return classes;
}

std::string NameIn(const std::string& line) {
  const std::size_t begin = line.find(' ') + 1;
  return line.substr(begin, line.find_first_of("(:", begin) - begin);
}

DISPID NumberOf(const std::string& line, std::size_t place) {
  static const std::map<std::string, DISPID> first = {
      {"field", 0x40030000}, {"property", 0x68030000}, {"read", 0x68030000}, {"function", 0x60030000}};
  const std::string kind = KindIn(line);
  return kind == "enumerator" ? -4 : first.at(kind) + static_cast<DISPID>(place);
}

std::vector<std::string> ArgumentsIn(const std::string& line) {
  const std::size_t open = line.find('(');
  if (open == std::string::npos) return {};
  const std::string inside = line.substr(open, line.find(')') - open);
  static const std::regex name(R"((\w+):)");
  std::vector<std::string> names;
  for (std::sregex_iterator at(inside.begin(), inside.end(), name), end; at != end; ++at) names.push_back((*at)[1]);
  return names;
}

}  // namespace zef::test
