#pragma once

#include <span>
#include <string>
#include <string_view>

#include "client/record_values.h"
#include "client/store.h"

namespace zef::client {

/// A column of a list for people.
struct ListColumn {
  const char* heading;
  std::string_view property;
  bool may_be_cut = false;
};

/// What `add` takes: an option, or an argument if the name has no hyphens; it fills a property.
struct AddOption {
  const char* name;
  std::string_view property;
  const char* help;
  const char* type = "TEXT";  ///< in the help; null for a flag that stands for the number 1
  bool required = false;
};

/// How the client deals with a type of record: everything in which the types differ and that is no step of their own.
struct RecordKind {
  RecordType type;
  const char* name;
  const char* plural;
  std::string_view title;                 ///< the property that tells people which one it is
  const char* root_folder = nullptr;      ///< where new ones go unless told otherwise; null without folders
  FolderKind holder = FolderKind{};       ///< the folders for it
  std::span<const ListColumn> columns{};  ///< of lists; empty for a kind that is listed and added in a way of its own
  std::span<const AddOption> options{};
};

std::span<const RecordKind> RecordKinds();
const RecordKind& KindOf(RecordType type);

/// The name of a property in JSON: "FolderID" is "folder", "BirthDate" is "birth_date".
std::string JsonName(std::string_view property);

}  // namespace zef::client
