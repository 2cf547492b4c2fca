#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace zef {
inline namespace automation {

/// A call that failed: the number and the sentence that the library raised, or the result of a call that it refused.
class Failure : public std::runtime_error {
 public:
  Failure(std::int32_t number, const std::string& sentence) : std::runtime_error(sentence), number_(number) {}
  /// A number of the run time such as 91, the provider's own, which is negative, or a result such as
  /// DISP_E_TYPEMISMATCH.
  std::int32_t number() const noexcept { return number_; }

 private:
  std::int32_t number_;
};

}  // namespace automation
}  // namespace zef
