#include <fmt/format.h>
#include <fmt/ranges.h>
#include <gmock/gmock.h>

#include <algorithm>

#include "component/classes.h"
#include "component/identifiers.h"
#include "platform/text.h"
#include "tests/component/expected_members.h"
#include "tests/component/library.h"

namespace zef::test {
namespace {

using component::Argument;
using component::Class;
using component::Kind;
using component::Member;

std::string TypeText(const component::Type& type) {
  if (!type.name.empty()) return std::string(type.name);
  switch (type.kind) {
    case VT_I4: return "Long";
    case VT_BOOL: return "Boolean";
    case VT_DATE: return "Date";
    case VT_BSTR: return "Text";
    case VT_VARIANT: return "Variant";
    case VT_ARRAY | VT_BSTR: return "Rows";
    default: return "unknown";
  }
}

std::string ArgumentText(const Argument& argument) {
  const bool has_default = argument.optional && argument.type.kind == VT_I4;
  return fmt::format("{}{}{}: {}{}", argument.optional ? "optional " : "", argument.type.by_reference ? "ref " : "",
                     argument.name, TypeText(argument.type),
                     has_default ? fmt::format(" = {}", argument.default_number) : "");
}

std::string KindText(const Member& member) {
  switch (member.kind) {
    case Kind::Field: return member.put == nullptr ? "a field that cannot be written" : "field";
    case Kind::Property: return member.put == nullptr ? "read" : "property";
    case Kind::Function: return "function";
    case Kind::Enumerator: return "enumerator";
  }
  return "unknown";
}

std::string LineOf(const Member& member) {
  std::vector<std::string> arguments;
  for (const Argument& argument : member.Arguments()) arguments.push_back(ArgumentText(argument));
  const bool parentheses = member.kind == Kind::Function || !arguments.empty();
  return fmt::format("{} {}{}{}", KindText(member), member.name,
                     parentheses ? fmt::format("({})", fmt::join(arguments, ", ")) : "",
                     member.type.kind == VT_EMPTY ? "" : ": " + TypeText(member.type));
}

const Class* Described(const std::string& name) {
  for (const auto& list : {component::PublicClasses(), component::ReachedClasses()}) {
    const auto found = std::ranges::find(list, name, &Class::name);
    if (found != list.end()) return *found;
  }
  return nullptr;
}

class Members : public testing::TestWithParam<ExpectedClass> {};

TEST_P(Members, AreDescribedInTheOrderOfTheInterface) {
  const Class* const described = Described(GetParam().name);
  ASSERT_NE(described, nullptr);
  std::vector<std::string> lines;
  for (const Member& member : described->members) lines.push_back(LineOf(member));
  EXPECT_EQ(lines, GetParam().members);
}

std::string NameOfCase(const testing::TestParamInfo<ExpectedClass>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(EveryClass, Members, testing::ValuesIn(ExpectedClasses()), NameOfCase);

/// The first 24 classes of the list, which clients create.
std::vector<ExpectedClass> CreatableClasses() {
  const auto& classes = ExpectedClasses();
  return {classes.begin(), std::ranges::find(classes, std::string("Connection"), &ExpectedClass::name)};
}

class CreatedObject : public ComponentTest, public testing::WithParamInterface<ExpectedClass> {
 protected:
  const Object object = Create(GetParam().name);
};

TEST_P(CreatedObject, KnowsEveryMemberUnderItsNumber) {
  const auto& members = GetParam().members;
  for (std::size_t i = 0; i < members.size(); ++i) {
    EXPECT_EQ(object.Number(NameIn(members[i])), NumberOf(members[i], i)) << members[i];
  }
}

TEST_P(CreatedObject, IgnoresTheLetterCaseOfEveryMember) {
  const auto& members = GetParam().members;
  for (std::size_t i = 0; i < members.size(); ++i) {
    EXPECT_EQ(object.Number(text::UpperCase(NameIn(members[i]))), NumberOf(members[i], i)) << members[i];
  }
}

TEST_P(CreatedObject, KnowsEveryArgumentByItsPlace) {
  for (const std::string& line : GetParam().members) {
    std::vector<std::u16string> names{text::ToUtf16(NameIn(line))};
    for (const std::string& argument : ArgumentsIn(line)) names.push_back(text::ToUtf16(argument));
    std::vector<LPOLESTR> pointers;
    for (std::u16string& name : names) pointers.push_back(name.data());
    std::vector<DISPID> numbers(names.size());
    EXPECT_EQ(object->GetIDsOfNames(IID_NULL, pointers.data(), static_cast<UINT>(names.size()), 0, numbers.data()),
              S_OK)
        << line;
    for (std::size_t i = 1; i < numbers.size(); ++i) EXPECT_EQ(numbers[i], static_cast<DISPID>(i - 1)) << line;
  }
}

TEST_P(CreatedObject, DoesNotShowTheHelpersInside) {
  for (const char* helper : {"Nz", "GetDayName", "GetMonthName", "DeleteRelationship", "CopyFolderRecursive",
                             "DeleteFolderRecursive", "ConnectionString", "TransactionFlag"}) {
    EXPECT_EQ(object.Number(helper), DISPID_UNKNOWN) << helper;
  }
}

TEST_P(CreatedObject, AnswersToTheIdentifierOfItsDefaultInterface) {
  void* same = nullptr;
  EXPECT_EQ(object->QueryInterface(component::InterfaceOf(*Described(GetParam().name)), &same), S_OK);
  EXPECT_EQ(Object(static_cast<IDispatch*>(same)), object);
}

TEST_P(CreatedObject, StartsWithOneReference) { EXPECT_EQ(object.References(), 1u); }

INSTANTIATE_TEST_SUITE_P(EveryClass, CreatedObject, testing::ValuesIn(CreatableClasses()), NameOfCase);

TEST(PublicClasses, AreTwentyFourInTheirOrder) {
  std::vector<std::string> names;
  for (const Class* described : component::PublicClasses()) names.emplace_back(described->name);
  EXPECT_THAT(names, testing::ElementsAre("CSession", "CAlarm", "CAttachement", "CCategory", "CContact", "CEvent",
                                          "CFolder", "CNote", "CNotification", "CPhoneLog", "CRecurrence", "CTask",
                                          "CUser", "CTag", "CAlarms", "CCategories", "CContacts", "CEvents", "CFolders",
                                          "CNotes", "CPhoneLogs", "CTags", "CTasks", "CUsers"));
}

std::string EnumerationText(const component::Enumeration& enumeration) {
  std::vector<std::string> members;
  for (const auto& member : enumeration.members) members.push_back(fmt::format("{}={}", member.name, member.value));
  return fmt::format("{}: {}", enumeration.name, fmt::join(members, " "));
}

TEST(PublicEnumerations, HaveTheirMembersAndStoredValues) {
  std::vector<std::string> lines;
  for (const auto& enumeration : component::PublicEnumerations()) lines.push_back(EnumerationText(enumeration));
  EXPECT_THAT(lines,
              testing::ElementsAre("FolderType: FT_CONTACTS=1 FT_TASKS=2 FT_Notes=3 FT_EVENTS=4 FT_ALARMS=6",
                                   "FieldType: FN_DATABASE=1 FN_SERIALIZE=2",
                                   "NotificationType: NT_EMPTY=0 NT_EVENTS=1 NT_TASKS=2 NT_ALARMS=3",
                                   "NotificationStatus: NS_NOTSENT=0 NS_SENTOK=1 NS_ERRORS=2 NS_INACTIVE=3",
                                   "CallDirection: DIR_INCOMING=0 DIR_OUTGOING=1",
                                   "RecurrenceType: REC_EMPTY=0 REC_DAILY=1 REC_WEEKLY=2 REC_MONTHLY=3 REC_YEARLY=4"));
}

}  // namespace
}  // namespace zef::test
