#pragma once

#include <exception>
#include <string>
#include <utility>

namespace zef::client {

/// Exit statuses of the program.
inline constexpr int kDone = 0;
inline constexpr int kRefused = 1;   ///< refused or failed
inline constexpr int kWrongUse = 2;  ///< the command line cannot be understood

/// Why a command did not do its work: a sentence for a person and the program's exit status.
class Failure : public std::exception {
 public:
  Failure(int status, std::string sentence) : status_(status), sentence_(std::move(sentence)) {}

  int status() const noexcept { return status_; }
  const char* what() const noexcept override { return sentence_.c_str(); }

 private:
  int status_;
  std::string sentence_;
};

}  // namespace zef::client
