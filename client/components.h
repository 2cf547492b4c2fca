#pragma once

#include <cstdint>
#include <string>

#include "ZEFComponents.hpp"
#include "client/failure.h"

/// The library's objects, for the files that work with them.
namespace zef::client {

[[noreturn]] inline void Refuse(const std::string& sentence) { throw Failure(kRefused, sentence); }

// Numbers of the library's failures that are no end of the matter.
inline constexpr std::int32_t kItemNotFound = 3265;
inline constexpr std::int32_t kNoSuchTable = -2147217865;
inline constexpr std::int32_t kIndexExists = -2147217868;

/// Runs a step of the library; what it raises is told in its own words.
template <class Step>
auto Telling(Step&& step) -> decltype(step()) {
  try {
    return step();
  } catch (const automation::Failure& failure) {
    Refuse(failure.what());
  }
}

/// The library, loaded at the first call.
const Library& Components();

/// A new object of a class.
template <class C>
C Make() {
  return Telling([] { return Components().Create<C>(); });
}

}  // namespace zef::client
