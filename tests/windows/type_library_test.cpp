#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "component/automation.h"
#include "component/classes.h"
#include "component/identifiers.h"
#include "component/windows/early_binding.h"
#include "platform/windows/wide_text.h"

namespace zef::test {
namespace {

using component::Class;
using component::EarlyEntry;

constexpr std::size_t kDispatchEntries = 7;

std::vector<const Class*> AllClasses() {
  std::vector<const Class*> all(component::PublicClasses().begin(), component::PublicClasses().end());
  all.insert(all.end(), component::ReachedClasses().begin(), component::ReachedClasses().end());
  return all;
}

ITypeLib* Types() {
  ITypeLib* types = nullptr;
  LoadTypeLibEx(ToWide(ZEF_LIBRARY).c_str(), REGKIND_NONE, &types);
  return types;
}

/// The table of a dual interface, behind its description for late calls.
ITypeInfo* TableOf(ITypeLib& types, const Class& described) {
  ITypeInfo* late = nullptr;
  ITypeInfo* table = nullptr;
  HREFTYPE reference = 0;
  if (FAILED(types.GetTypeInfoOfGuid(component::InterfaceOf(described), &late))) return nullptr;
  late->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference);
  late->GetRefTypeInfo(reference, &table);
  late->Release();
  return table;
}

DISPID NumberOf(const Class& described, const EarlyEntry& entry) {
  return component::MemberNumber(*entry.member, static_cast<std::size_t>(entry.member - described.members.data()));
}

/// How many entries the compiled table of a class has; each must be the one that a call of its place leads to.
std::size_t CheckedEntries(ITypeInfo& table, const Class& described) {
  std::size_t place = 0;
  FUNCDESC* function = nullptr;
  for (UINT i = 0; SUCCEEDED(table.GetFuncDesc(i, &function)); ++i, ++place) {
    const EarlyEntry entry = EarlyEntryOf(described, place);
    const bool puts = (function->invkind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF)) != 0;
    EXPECT_EQ(static_cast<std::size_t>(function->oVft) / sizeof(void*), kDispatchEntries + place) << described.name;
    EXPECT_NE(entry.member, nullptr) << described.name << ' ' << place;
    if (entry.member != nullptr) {
      EXPECT_EQ(function->memid, NumberOf(described, entry)) << described.name << ' ' << entry.member->name;
      EXPECT_EQ(puts, entry.puts) << described.name << ' ' << entry.member->name;
    }
    table.ReleaseFuncDesc(function);
  }
  return place;
}

TEST(TypeLibrary, HasTheMembersOfEveryClassInTheOrderOfItsTable) {
  ITypeLib* const types = Types();
  ASSERT_NE(types, nullptr);
  for (const Class* described : AllClasses()) {
    ITypeInfo* const table = TableOf(*types, *described);
    ASSERT_NE(table, nullptr) << described->name;
    const std::size_t entries = CheckedEntries(*table, *described);
    EXPECT_GE(entries, described->members.size()) << described->name;
    EXPECT_EQ(EarlyEntryOf(*described, entries).member, nullptr) << described->name;
    table->Release();
  }
  types->Release();
}

TEST(TypeLibrary, NoClassHasMoreEntriesThanThereAre) {
  for (const Class* described : AllClasses()) {
    EXPECT_EQ(EarlyEntryOf(*described, component::kMostEarlyEntries).member, nullptr) << described->name;
  }
}

}  // namespace
}  // namespace zef::test
