#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "tests/support/database.h"
#include "tests/support/raised.h"

namespace zef::test {

constexpr auto kUnusable = static_cast<std::int32_t>(FailureNumber::FileUnusable);
constexpr auto kPassword = static_cast<std::int32_t>(FailureNumber::PasswordRefused);
constexpr auto kMalformed = static_cast<std::int32_t>(FailureNumber::StatementError);
constexpr char kSecret[] = "correct horse";

inline bool Contains(const std::string& text, std::string_view part) { return text.find(part) != std::string::npos; }

/// What connecting to a file raises.
inline std::optional<RunTimeError> Refusal(const std::string& path, const std::string& password = {}) {
  return Raised([&] { MakeRef<CSession>()->Connect2Database(path, "", password); });
}

inline std::int32_t NumberOf(const std::optional<RunTimeError>& failure) { return failure ? failure->number() : 0; }

}  // namespace zef::test
