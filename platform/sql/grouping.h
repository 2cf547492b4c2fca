#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/sql/schema.h"

namespace zef::sql {

struct FoundColumn;
struct ScopeSource;

/// What a select may name beside its groups. While it watches, it notes the columns that stand outside of aggregates;
/// in a select that turns out to be grouped, each of them must be a key of the groups or a part of one.
class Grouping {
 public:
  /// Groups have an expression as key, by its written text.
  void AddKey(std::string text) { keys_.push_back(std::move(text)); }
  void AddKey(const FoundColumn& column);
  bool has_keys() const { return !keys_.empty() || !columns_.empty(); }

  /// Notes columns from here on, or not; gives what it did before.
  bool Watch(bool watch) { return std::exchange(watching_, watch); }
  void Note(const FoundColumn& column, std::size_t place);
  std::size_t noted() const { return noted_.size(); }
  /// Forgets the columns noted since then if they belong to a key, which is then the expression of that text; false if
  /// there is no such key.
  bool Settle(std::size_t since, std::string_view text);
  /// Raises -2147217900, naming the place, at the first column that was noted.
  void RequireKeysOnly() const;

 private:
  struct Noted {
    const ColumnInfo* column;
    std::size_t place;
  };

  std::vector<std::string> keys_;
  std::vector<std::pair<const ScopeSource*, const ColumnInfo*>> columns_;
  std::vector<Noted> noted_;
  bool watching_ = false;
};

}  // namespace zef::sql
