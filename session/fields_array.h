#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/run_time_error.h"

namespace zef {

/// What `GetFieldsArray` delivers: column names with values in SQL form, or labels with values for people.
enum FieldType : std::int32_t { FN_DATABASE = 1, FN_SERIALIZE = 2 };

/// A table of texts; both indexes run from 0 up to and with their bound.
class FieldsArray {
 public:
  FieldsArray() = default;
  FieldsArray(std::int32_t last_row, std::int32_t last_column)
      : last_row_(last_row),
        last_column_(last_column),
        texts_(static_cast<std::size_t>((last_row + 1) * (last_column + 1))) {}

  std::int32_t LastRow() const { return last_row_; }
  std::int32_t LastColumn() const { return last_column_; }

  /// Raises 9 outside the bounds.
  std::string& operator()(std::int32_t row, std::int32_t column) { return texts_[Index(row, column)]; }
  const std::string& operator()(std::int32_t row, std::int32_t column) const { return texts_[Index(row, column)]; }

 private:
  std::size_t Index(std::int32_t row, std::int32_t column) const {
    const bool inside = row >= 0 && row <= last_row_ && column >= 0 && column <= last_column_;
    if (!inside) throw RunTimeError(FailureNumber::SubscriptOutOfRange);
    return static_cast<std::size_t>(row * (last_column_ + 1) + column);
  }

  std::int32_t last_row_ = -1;
  std::int32_t last_column_ = -1;
  std::vector<std::string> texts_;
};

}  // namespace zef
