#include <gmock/gmock.h>

#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

#include "tests/component/elf_file.h"
#include "tests/component/library.h"

namespace zef::test {
namespace {

using testing::HasSubstr;

/// A class and the last byte of its identifiers, which registered clients keep: they never change.
struct Expected {
  const char* name;
  unsigned char last;
};
constexpr Expected kExpected[] = {
    {"CSession", 0x01},    {"CAlarm", 0x02},    {"CAttachement", 0x03}, {"CCategory", 0x04},     {"CContact", 0x05},
    {"CEvent", 0x06},      {"CFolder", 0x07},   {"CNote", 0x08},        {"CNotification", 0x09}, {"CPhoneLog", 0x0A},
    {"CRecurrence", 0x0B}, {"CTask", 0x0C},     {"CUser", 0x0D},        {"CTag", 0x0E},          {"CAlarms", 0x0F},
    {"CCategories", 0x10}, {"CContacts", 0x11}, {"CEvents", 0x12},      {"CFolders", 0x13},      {"CNotes", 0x14},
    {"CPhoneLogs", 0x15},  {"CTags", 0x16},     {"CTasks", 0x17},       {"CUsers", 0x18},        {"Connection", 0x65},
    {"Errors", 0x66},      {"Error", 0x67},     {"Recordset", 0x68},    {"Fields", 0x69},        {"Field", 0x6A},
};
constexpr std::size_t kCreatable = 24;
constexpr Expected kEnumerations[] = {{"FolderType", 1},         {"FieldType", 2},     {"NotificationType", 3},
                                      {"NotificationStatus", 4}, {"CallDirection", 5}, {"RecurrenceType", 6}};

const ElfFile& File() {
  static const ElfFile file(LibraryPath());
  return file;
}
const std::string& TypeLibrary() {
  static const std::string text = File().Section("TYPELIB").value_or("");
  return text;
}

std::string Uuid(const char* series, unsigned char last) {
  char text[48];
  std::snprintf(text, sizeof text, "[uuid(%s-5A1E-4D3B-9C42-7E15B06F00%02X)", series, last);
  return text;
}

/// How the type library begins what it tells of a class: its identifier, then its name.
class ClassInTheTypeLibrary : public testing::TestWithParam<Expected> {};

TEST_P(ClassInTheTypeLibrary, HasItsIdentifier) {
  const std::string end = GetParam().last <= kCreatable ? "]" : ", noncreatable]";
  EXPECT_THAT(TypeLibrary(),
              HasSubstr(Uuid("2B7C9E41", GetParam().last) + end + "\n    coclass " + GetParam().name + " {"));
}
TEST_P(ClassInTheTypeLibrary, HasTheIdentifierOfItsInterface) {
  EXPECT_THAT(TypeLibrary(), HasSubstr(Uuid("2B7C9E42", GetParam().last) + ", nonextensible]\n    dispinterface _" +
                                       GetParam().name + " {"));
}
INSTANTIATE_TEST_SUITE_P(Every, ClassInTheTypeLibrary, testing::ValuesIn(kExpected),
                         [](const auto& test) { return test.param.name; });

/// A class that clients can create, by its identifier in numbers.
class ClassOfTheLibrary : public testing::TestWithParam<Expected> {
 protected:
  static GUID Identifier(std::uint32_t series) {
    return {series, 0x5A1E, 0x4D3B, {0x9C, 0x42, 0x7E, 0x15, 0xB0, 0x6F, 0x00, GetParam().last}};
  }
};

TEST_P(ClassOfTheLibrary, IsCreatedByItsIdentifier) {
  void* factory = nullptr;
  ASSERT_EQ(Library::Shared().GetClassObject(Identifier(0x2B7C9E41), IID_IClassFactory, &factory), S_OK);
  void* object = nullptr;
  EXPECT_EQ(static_cast<IClassFactory*>(factory)->CreateInstance(nullptr, Identifier(0x2B7C9E42), &object), S_OK);
  static_cast<IClassFactory*>(factory)->Release();
  if (object != nullptr) static_cast<IUnknown*>(object)->Release();
}
TEST_P(ClassOfTheLibrary, HasItsInterfaceInASection) {
  const std::string series("\x42\x9E\x7C\x2B\x1E\x5A\x3B\x4D\x9C\x42\x7E\x15\xB0\x6F\0", 15);
  std::string name = std::string("_IID_") + GetParam().name;
  for (char& letter : name) letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
  EXPECT_EQ(File().Section(name), series + static_cast<char>(GetParam().last));
}
INSTANTIATE_TEST_SUITE_P(Every, ClassOfTheLibrary, testing::ValuesIn(kExpected, kExpected + kCreatable),
                         [](const auto& test) { return test.param.name; });

TEST(TypeLibraryIdentifiers, OfEnumerationsAreTheirs) {
  for (const Expected& expected : kEnumerations) {
    EXPECT_THAT(TypeLibrary(), HasSubstr(Uuid("2B7C9E43", expected.last) + "] enum " + expected.name + " {"));
  }
}
TEST(TypeLibraryIdentifiers, OfTheLibraryIsItsOwn) {
  EXPECT_THAT(TypeLibrary(), testing::StartsWith(Uuid("2B7C9E40", 0) + ", version(9.2)"));
}

}  // namespace
}  // namespace zef::test
