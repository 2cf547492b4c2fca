#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace zef::test {

/// Bytes that decide; zeros behind their end.
class Choices {
 public:
  explicit Choices(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  bool AtEnd() const { return bytes_.empty(); }
  template <class T>
  T Raw() {
    T value{};
    const std::size_t size = std::min(sizeof value, bytes_.size());
    if (size > 0) std::memcpy(&value, bytes_.data(), size);
    bytes_ = bytes_.subspan(size);
    return value;
  }
  std::size_t Below(std::size_t count) { return Raw<std::uint8_t>() % count; }
  bool OneIn(std::size_t count) { return Below(count) == 0; }
  template <class T, std::size_t Count>
  const T& Of(const T (&list)[Count]) {
    return list[Below(Count)];
  }

 private:
  std::span<const std::uint8_t> bytes_;
};

}  // namespace zef::test
