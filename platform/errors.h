#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/run_time_error.h"

namespace zef {

/// One failure that the provider reported.
struct Error {
  std::int32_t Number = 0;
  std::string Description;
};

/// The provider's list of failures. A new failure replaces the old ones; a call that succeeds leaves them.
class Errors {
 public:
  std::int32_t Count() const { return static_cast<std::int32_t>(entries_.size()); }
  /// An entry by position from 0; raises 3265 beyond them.
  const Error& Item(std::int32_t index) const;
  void Clear() { entries_.clear(); }
  void Replace(const RunTimeError& failure) { entries_.assign(1, {failure.number(), failure.description()}); }

 private:
  std::vector<Error> entries_;
};

}  // namespace zef
