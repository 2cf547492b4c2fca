#include "client/copy_view.h"

#include <fmt/format.h>

#include "client/printable.h"
#include "client/table.h"
#include "client/views.h"

namespace zef::client {

std::string CopiedText(const DatabasePlace& copy, const std::vector<CopiedTable>& tables, const Screen& screen) {
  Table table({{"Table"}, {"Rows", Table::Align::Right}});
  for (const CopiedTable& copied : tables) table.Add({copied.name, std::to_string(copied.rows)});
  return table.Text(screen) +
         fmt::format("Copied to {}; every value was compared and is the same.\n", Printable(copy.Name()));
}

std::string CopiedJson(const DatabasePlace& copy, const std::vector<CopiedTable>& tables) {
  Json::Object rows;
  for (const CopiedTable& copied : tables) rows.emplace_back(copied.name, copied.rows);
  return JsonLine({{"file", JsonOf(copy)}, {"tables", std::move(rows)}});
}

}  // namespace zef::client
