#include "tests/component/elf_file.h"

#include <elf.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace zef::test {
namespace {

std::string WholeFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error(path + " cannot be read");
  return {std::istreambuf_iterator<char>(file), {}};
}

template <class T>
std::vector<T> Copied(const std::string& bytes, std::size_t offset, std::size_t size) {
  std::vector<T> entries(size / sizeof(T));
  if (!entries.empty()) std::memcpy(entries.data(), bytes.data() + offset, entries.size() * sizeof(T));
  return entries;
}

std::vector<Elf64_Shdr> Headers(const std::string& bytes) {
  const auto head = Copied<Elf64_Ehdr>(bytes, 0, sizeof(Elf64_Ehdr)).front();
  return Copied<Elf64_Shdr>(bytes, head.e_shoff, head.e_shnum * sizeof(Elf64_Shdr));
}

/// Names of sections and their headers, in order.
std::vector<std::pair<std::string, Elf64_Shdr>> Sections(const std::string& bytes) {
  const auto head = Copied<Elf64_Ehdr>(bytes, 0, sizeof(Elf64_Ehdr)).front();
  const auto headers = Headers(bytes);
  std::vector<std::pair<std::string, Elf64_Shdr>> sections;
  for (const Elf64_Shdr& header : headers) {
    sections.emplace_back(bytes.data() + headers[head.e_shstrndx].sh_offset + header.sh_name, header);
  }
  return sections;
}

}  // namespace

ElfFile::ElfFile(const std::string& path) : bytes_(WholeFile(path)) {}

std::optional<std::string> ElfFile::Section(const std::string& name) const {
  for (const auto& [found, header] : Sections(bytes_)) {
    if (found == name) return bytes_.substr(header.sh_offset, header.sh_size);
  }
  return std::nullopt;
}

std::vector<std::string> ElfFile::SectionNames() const {
  std::vector<std::string> names;
  for (const auto& [name, header] : Sections(bytes_)) names.push_back(name);
  return names;
}

template <class T>
std::vector<T> ElfFile::Table(const std::string& section) const {
  const std::string bytes = Section(section).value_or("");
  return Copied<T>(bytes, 0, bytes.size());
}

std::string ElfFile::NameAt(const std::string& strings, std::size_t offset) const {
  return Section(strings).value_or("").substr(offset).c_str();
}

std::vector<std::string> ElfFile::Exported() const {
  std::vector<std::string> names;
  for (const auto& symbol : Table<Elf64_Sym>(".dynsym")) {
    if (symbol.st_shndx != SHN_UNDEF) names.push_back(NameAt(".dynstr", symbol.st_name));
  }
  std::ranges::sort(names);
  return names;
}

std::vector<std::string> ElfFile::DynamicTexts(std::int64_t tag) const {
  std::vector<std::string> texts;
  for (const auto& entry : Table<Elf64_Dyn>(".dynamic")) {
    if (entry.d_tag == tag) texts.push_back(NameAt(".dynstr", entry.d_un.d_val));
  }
  return texts;
}

std::string ElfFile::Soname() const {
  const auto names = DynamicTexts(DT_SONAME);
  return names.empty() ? "" : names.front();
}

std::vector<std::string> ElfFile::Needed() const { return DynamicTexts(DT_NEEDED); }

std::string ElfFile::FunctionAt(std::uint64_t address) const {
  for (const auto& symbol : Table<Elf64_Sym>(".symtab")) {
    if (ELF64_ST_TYPE(symbol.st_info) == STT_FUNC && symbol.st_value == address) {
      return NameAt(".strtab", symbol.st_name);
    }
  }
  return "?";
}

/// The array's entries are filled by relocations when the file is loaded.
std::vector<std::string> ElfFile::StartUp() const {
  std::vector<std::string> names;
  for (const auto& [name, header] : Sections(bytes_)) {
    if (header.sh_type != SHT_INIT_ARRAY && header.sh_type != SHT_PREINIT_ARRAY) continue;
    for (const auto& relocation : Table<Elf64_Rela>(".rela.dyn")) {
      const bool inside =
          relocation.r_offset >= header.sh_addr && relocation.r_offset < header.sh_addr + header.sh_size;
      if (inside) names.push_back(FunctionAt(static_cast<std::uint64_t>(relocation.r_addend)));
    }
  }
  return names;
}

}  // namespace zef::test
