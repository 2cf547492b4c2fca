#include "client/record_views.h"

#include <fmt/format.h>

#include <algorithm>

#include "client/date_option.h"
#include "client/number_words.h"
#include "client/rule_text.h"
#include "client/table.h"
#include "client/views.h"

namespace zef::client {
namespace {

struct ToText {
  std::string operator()(std::int32_t number) const { return std::to_string(number); }
  std::string operator()(bool flag) const { return flag ? "yes" : "no"; }
  std::string operator()(Date date) const { return DateText(date); }
  std::string operator()(const std::string& text) const { return text; }
  std::string operator()(const RuleSpec& rule) const { return RuleInWords(rule); }
};

struct ToJson {
  Json operator()(Date date) const { return JsonOf(date); }
  Json operator()(const RuleSpec& rule) const { return JsonOf(rule); }
  template <class Plain>
  Json operator()(const Plain& value) const {
    return value;
  }
};

/// A value of a property: the words for its number, if it has some.
std::string PropertyText(RecordType type, std::string_view property, const PropertyValue& value) {
  const NumberWords* const known = WordsOf(type, property);
  const std::optional<std::string> words = known ? WordsFor(*known, std::get<std::int32_t>(value)) : std::nullopt;
  return words ? *words : ValueText(value);
}

/// The property's name in front of the first line.
void AddLines(Table& table, std::string_view name, std::string_view text) {
  std::string label(name);
  for (std::size_t at = 0; at <= text.size(); label.clear()) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    table.Add({label, std::string(text.substr(at, end - at))});
    at = end + 1;
  }
}

/// 0 and -1 are references to nothing, unless they stand for words.
bool SaysNothing(const PropertyValue& value, const std::string& text) {
  const auto* const number = std::get_if<std::int32_t>(&value);
  return text.empty() || (number != nullptr && (text == "0" || text == "-1"));
}

}  // namespace

std::string ValueText(const PropertyValue& value) { return std::visit(ToText(), value); }

Json::Object JsonOf(const RecordValues& record) {
  Json::Object object;
  for (const auto& [name, value] : record.properties) object.emplace_back(JsonName(name), std::visit(ToJson(), value));
  return object;
}

std::string RecordTable(const RecordKind& kind, const std::vector<RecordValues>& records, const Screen& screen) {
  if (records.empty()) return fmt::format("No {}.\n", kind.plural);
  std::vector<Table::Column> columns;
  for (const ListColumn& column : kind.columns) {
    const bool is_number = WordsOf(kind.type, column.property) == nullptr &&
                           std::holds_alternative<std::int32_t>(records[0][column.property]);
    columns.push_back({column.heading, is_number ? Table::Align::Right : Table::Align::Left, column.may_be_cut});
  }
  Table table(columns);
  for (const RecordValues& record : records) {
    std::vector<std::string> cells;
    for (const ListColumn& column : kind.columns)
      cells.push_back(PropertyText(kind.type, column.property, record[column.property]));
    table.Add(cells);
  }
  return table.Text(screen);
}

std::string RecordText(const RecordValues& record, const Screen& screen) {
  Table table({{""}, {""}});
  for (const auto& [name, value] : record.properties) {
    const std::string text = PropertyText(record.type, name, value);
    if (!SaysNothing(value, text)) AddLines(table, name, text);
  }
  return table.Text(screen);
}

}  // namespace zef::client
