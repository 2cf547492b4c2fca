#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace zef::bench {

/// The library as a client outside reaches it, through the typed header and by names. A class of its own unit, since
/// the typed classes bear the names of the library's.
class ComponentSide {
 public:
  explicit ComponentSide(const std::string& database);
  ~ComponentSide();

  /// Reads one property of a contact so many times; what they add up to.
  std::uint64_t ReadNumber(int times) const;
  std::uint64_t ReadText(int times) const;
  /// Loads all contacts and reads one property of each; what they add up to.
  std::uint64_t LoadAndRead() const;
  /// The same, each member looked up by its name at each call.
  std::uint64_t LoadAndReadByName() const;

 private:
  struct Objects;
  std::unique_ptr<Objects> objects_;
};

}  // namespace zef::bench
