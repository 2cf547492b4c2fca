#include "client/database_place.h"

#include <string_view>

#include "client/text.h"

namespace zef::client {

void DatabasePlace::PointTo(const std::string& word) {
  constexpr std::string_view kBeginning = "provider=";
  const bool connects = LowerAscii(word.substr(0, kBeginning.size())) == kBeginning;
  (connects ? connection : file) = word;
}

bool DatabasePlace::IsOnServer() const {
  std::string text = LowerAscii(connection);
  std::erase(text, ' ');
  return text.find("provider=postgresql") != std::string::npos;
}

std::string DatabasePlace::ConnectionString() const {
  std::string text = IsFile() ? "Provider=SQLite;Data Source=" + Quoted(file, '"') : connection;
  if (!password.empty()) text += ";Password=" + Quoted(password, '"');
  return text;
}

}  // namespace zef::client
