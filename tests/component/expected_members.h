#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "component/automation.h"

namespace zef::test {

/// A class as clients know it: its members in order, each in one line as
/// "function GetUniqueIDFromSeq(lngSeqID: Long, ref lngID: Long, optional lngBatchSize: Long = 1): Long".
struct ExpectedClass {
  std::string name;
  std::vector<std::string> members;

  friend void PrintTo(const ExpectedClass& expected, std::ostream* out) { *out << expected.name; }
};

/// The classes of "tests/component/members.txt", which is written by hand.
const std::vector<ExpectedClass>& ExpectedClasses();

/// The name of a member's line.
std::string NameIn(const std::string& line);
/// The number that a member has by its line and its place in the class.
DISPID NumberOf(const std::string& line, std::size_t place);
/// Names of the arguments of a member's line.
std::vector<std::string> ArgumentsIn(const std::string& line);

}  // namespace zef::test
