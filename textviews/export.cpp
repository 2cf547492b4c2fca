#include "textviews/export.h"

namespace zef {

std::string Lines(const FieldsArray& rows) {
  std::string lines;
  for (std::int32_t row = 0; row <= rows.LastRow(); ++row) {
    if (rows(row, 0).empty()) continue;
    lines.append(rows(row, 0)).append(rows(row, 1)).append(kLineEnd);
  }
  return lines;
}

std::int32_t OpenExport(const std::string& path) {
  const std::int32_t file = FreeFile();
  OpenForOutput(path, file);
  return file;
}

void PrintHeading(std::int32_t file, std::string_view heading) { Print(file, std::string(heading) + kLineEnd); }

}  // namespace zef
