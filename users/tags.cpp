#include "users/tags.h"

namespace zef {
namespace {

/// Converts the value of a column, and names that column in a failure.
template <class Convert>
auto Converted(Recordset& rs, int position, std::string_view column, Convert&& convert) {
  try {
    if (position < 0) throw RunTimeError(FailureNumber::ItemNotFound);
    return convert(rs.ValueAt(position));
  } catch (const RunTimeError& failure) {
    throw InColumn(failure, column);
  }
}

}  // namespace

Ref<CTag> ReadTag(Recordset& rs, const TagColumns& columns) {
  const Positions positions = rs.Positions(columns);
  auto tag = MakeRef<CTag>();
  tag->ID = Converted(rs, positions[0], columns[0], [](Value&& id) { return ToLong(id); });
  tag->Text = Converted(rs, positions[1], columns[1], [](Value&& text) { return ToText(std::move(text)); });
  return tag;
}

}  // namespace zef
