#include "users/tags.h"

namespace zef {
namespace {

/// Converts the value of a column, and names that column in a failure.
template <class Convert>
auto Converted(int position, Value&& value, std::string_view column, Convert&& convert) {
  try {
    if (position < 0) throw RunTimeError(FailureNumber::ItemNotFound);
    return convert(std::move(value));
  } catch (const RunTimeError& failure) {
    throw InColumn(failure, column);
  }
}

}  // namespace

Ref<CTag> ReadTag(Recordset& rs, const TagColumns& columns) {
  const Positions positions = rs.Positions(columns);
  std::array<Value, std::tuple_size_v<TagColumns>> values;
  rs.Read(positions, values);
  auto tag = MakeRef<CTag>();
  tag->ID = Converted(positions[0], std::move(values[0]), columns[0], [](Value&& id) { return ToLong(id); });
  tag->Text =
      Converted(positions[1], std::move(values[1]), columns[1], [](Value&& text) { return ToText(std::move(text)); });
  return tag;
}

}  // namespace zef
