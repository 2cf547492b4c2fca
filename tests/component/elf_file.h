#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zef::test {

/// A shared library as it stands on the disk, for 64 bits.
class ElfFile {
 public:
  explicit ElfFile(const std::string& path);

  /// The bytes of a section; nothing if there is none of that name.
  std::optional<std::string> Section(const std::string& name) const;
  std::vector<std::string> SectionNames() const;
  /// Names of the symbols that other files can use, sorted.
  std::vector<std::string> Exported() const;
  std::string Soname() const;
  /// Files that it needs, in order.
  std::vector<std::string> Needed() const;
  /// Names of the functions that run when it is loaded, in order; "?" for one without a symbol.
  std::vector<std::string> StartUp() const;

 private:
  template <class T>
  std::vector<T> Table(const std::string& section) const;
  std::string NameAt(const std::string& strings, std::size_t offset) const;
  std::string FunctionAt(std::uint64_t address) const;
  std::vector<std::string> DynamicTexts(std::int64_t tag) const;

  std::string bytes_;
};

}  // namespace zef::test
