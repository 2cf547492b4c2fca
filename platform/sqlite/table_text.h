#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zef {

/// The text of a CREATE TABLE statement taken apart at the commas between its columns and constraints, so that one of
/// them can be changed and the rest stays as it was written, by whichever program.
class TableText {
 public:
  explicit TableText(std::string_view text);
  /// The whole text again.
  std::string Text() const;

  /// Replaces the declared type of a column; false if there is no such column.
  bool ChangeType(std::string_view column, std::string_view type);
  /// The names of the constraints that refer to other tables.
  std::vector<std::string> Relationships() const;
  void AddConstraint(std::string_view text);
  /// Removes the constraint of that name, letter case ignored; false if the table has none.
  bool RemoveConstraint(std::string_view name);

 private:
  std::string head_;  ///< up to and with the opening bracket
  std::vector<std::string> items_;
  std::string tail_;  ///< from the closing bracket on
};

}  // namespace zef
