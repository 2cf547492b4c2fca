#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>
#include <string>
#include <vector>

#include "component/classes.h"
#include "component/identifiers.h"
#include "platform/text.h"
#include "platform/windows/wide_text.h"

namespace zef::test {
namespace {

/// The library as a file that a host looks into; it stays loaded.
HMODULE Library() {
  static const HMODULE library = LoadLibraryW(ToWide(ZEF_LIBRARY).c_str());
  return library;
}

template <class T>
const T* At(DWORD place) {
  return reinterpret_cast<const T*>(reinterpret_cast<const char*>(Library()) + place);
}

std::vector<std::string> Exports() {
  const auto* const headers = At<IMAGE_NT_HEADERS64>(static_cast<DWORD>(At<IMAGE_DOS_HEADER>(0)->e_lfanew));
  const auto& place = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
  const auto* const exports = At<IMAGE_EXPORT_DIRECTORY>(place.VirtualAddress);
  std::vector<std::string> names;
  for (DWORD i = 0; i < exports->NumberOfNames; ++i) {
    names.emplace_back(At<char>(At<DWORD>(exports->AddressOfNames)[i]));
  }
  return names;
}

std::string Resource(const wchar_t* name, const wchar_t* type) {
  const HRSRC found = FindResourceW(Library(), name, type);
  if (found == nullptr) return {};
  return {static_cast<const char*>(LockResource(LoadResource(Library(), found))), SizeofResource(Library(), found)};
}

/// A value of the version block; "none" if it is not there.
std::string VersionValue(const wchar_t* name) {
  std::string block = Resource(MAKEINTRESOURCEW(VS_VERSION_INFO), MAKEINTRESOURCEW(16));
  void* value = nullptr;
  UINT units = 0;
  const std::wstring key = std::wstring(L"\\StringFileInfo\\040904B0\\") + name;
  if (VerQueryValueW(block.data(), key.c_str(), &value, &units) == 0) return "none";
  return FromWide(static_cast<const wchar_t*>(value));
}

TEST(LibraryFile, LetsOutFourFunctionsAndNoOthers) {
  EXPECT_THAT(Exports(), testing::UnorderedElementsAre("DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer",
                                                       "DllUnregisterServer"));
}

TEST(LibraryFile, HoldsACompiledTypeLibrary) {
  EXPECT_THAT(Resource(MAKEINTRESOURCEW(1), L"TYPELIB"), testing::StartsWith("MSFT"));
}

TEST(LibraryFile, HoldsTheIdentifierOfEachDefaultInterface) {
  for (const component::Class* described : component::PublicClasses()) {
    const std::string name = "_IID_" + text::UpperCase(described->name);
    const IID expected = component::InterfaceOf(*described);
    const std::string found = Resource(ToWide(name).c_str(), MAKEINTRESOURCEW(10));
    ASSERT_EQ(found.size(), sizeof expected) << name;
    EXPECT_EQ(std::memcmp(found.data(), &expected, sizeof expected), 0) << name;
  }
}

TEST(LibraryFile, ItsVersionBlockSaysThatItRegistersItself) {
  EXPECT_EQ(VersionValue(L"OLESelfRegister"), "");
  EXPECT_EQ(VersionValue(L"FileVersion"), "9.02.0001");
  EXPECT_EQ(VersionValue(L"ProductVersion"), "9.02.0001");
  EXPECT_EQ(VersionValue(L"ProductName"), "ZEFComponents");
  EXPECT_EQ(VersionValue(L"InternalName"), "ZEFComponents");
}

}  // namespace
}  // namespace zef::test
