#pragma once

#include <libpq-fe.h>

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "platform/slot.h"
#include "platform/sql/compile.h"
#include "platform/value.h"

/// Values on their way between the library and the server, in the server's binary form.
namespace zef {

/// The parameters of one run of a statement.
class WireParameters {
 public:
  explicit WireParameters(const std::vector<sql::ParameterPlan>& plans);

  /// Puts a value in place. Texts and bytes are not copied: the value must stay until the statement has been sent.
  void Set(std::size_t i, const Value& value);

  int count() const { return static_cast<int>(plans_.size()); }
  const char* const* values() const { return values_.data(); }
  const int* lengths() const { return lengths_.data(); }
  const int* formats() const { return formats_.data(); }

 private:
  template <class Number>
  void SetNumber(std::size_t i, Number number);
  void SetText(std::size_t i, std::string text);

  const std::vector<sql::ParameterPlan>& plans_;
  std::vector<const char*> values_;
  std::vector<int> lengths_;
  std::vector<int> formats_;
  std::vector<std::array<char, 8>> numbers_;
  std::vector<std::string> texts_;
};

/// Reads a value of row 0, as a value of the column's type.
void ReadWireValue(const PGresult* row, int column, sql::Type type, Value& value);
/// Reads a value of row 0 straight into where it belongs; false, and nothing happens, for all that takes a conversion.
bool FillWireValue(const PGresult* row, int column, sql::Type type, const Slot& slot);

}  // namespace zef
