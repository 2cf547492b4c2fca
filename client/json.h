#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace zef::client {

/// A value of JSON. The members of an object keep the order in which they were given.
class Json {
 public:
  using Array = std::vector<Json>;
  using Object = std::vector<std::pair<std::string, Json>>;

  Json(std::nullptr_t = nullptr) {}
  Json(bool value) : value_(value) {}
  template <std::integral Number>
  Json(Number value) : value_(static_cast<std::int64_t>(value)) {}
  Json(std::string_view value) : value_(std::string(value)) {}
  Json(const std::string& value) : value_(value) {}
  Json(const char* value) : value_(std::string(value)) {}
  Json(Array value) : value_(std::move(value)) {}
  Json(Object value) : value_(std::move(value)) {}

  /// On one line. Quotes, backslashes and control characters are escaped; malformed UTF-8 becomes U+FFFD.
  std::string Text() const;

 private:
  void AppendTo(std::string& text) const;

  std::variant<std::nullptr_t, bool, std::int64_t, std::string, Array, Object> value_ = nullptr;
};

}  // namespace zef::client
