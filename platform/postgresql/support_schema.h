#pragma once

#include <string>
#include <string_view>

/// What a database needs on the server beside its tables: schema `zef` with the collation of the dialect, the types of
/// columns that the server lacks, and the dialect's functions.
namespace zef {

/// Raised with every change of the statements below. A database whose support is older is brought up to it when
/// somebody connects who may do so.
constexpr int kSupportVersion = 2;

/// The statements that make all of it, or bring an older one up to date.
std::string SupportStatements();

std::string_view SupportOfTexts();
std::string_view SupportOfNumbers();
std::string_view SupportOfDates();
std::string_view SupportOfStorage();

}  // namespace zef
