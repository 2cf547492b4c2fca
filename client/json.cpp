#include "client/json.h"

#include <fmt/format.h>

#include <iterator>

#include "ZEFComponents/client.h"

namespace zef::client {
namespace {

/// Escapes more control characters than JSON asks for: some terminals also obey those from U+0080 to U+009F.
void AppendEscaped(std::string& text, char32_t c) {
  if (c == '"' || c == '\\') {
    text += '\\';
    text += static_cast<char>(c);
  } else if (c < 0x20 || (c >= 0x7F && c <= 0x9F)) {
    fmt::format_to(std::back_inserter(text), "\\u{:04x}", static_cast<unsigned>(c));
  } else {
    AppendUtf8(text, c);
  }
}

void AppendQuoted(std::string& text, std::string_view value) {
  text += '"';
  for (std::size_t at = 0; at < value.size();) AppendEscaped(text, NextPoint(value, at));
  text += '"';
}

}  // namespace

std::string Json::Text() const {
  std::string text;
  AppendTo(text);
  return text;
}

void Json::AppendTo(std::string& text) const {
  struct Writer {
    std::string& text;

    void operator()(std::nullptr_t) const { text += "null"; }
    void operator()(bool value) const { text += value ? "true" : "false"; }
    void operator()(std::int64_t value) const { text += std::to_string(value); }
    void operator()(const std::string& value) const { AppendQuoted(text, value); }
    void operator()(const Array& values) const {
      text += '[';
      const char* separator = "";
      for (const Json& value : values) {
        text += std::exchange(separator, ", ");
        value.AppendTo(text);
      }
      text += ']';
    }
    void operator()(const Object& members) const {
      text += '{';
      const char* separator = "";
      for (const auto& [name, value] : members) {
        text += std::exchange(separator, ", ");
        AppendQuoted(text, name);
        text += ": ";
        value.AppendTo(text);
      }
      text += '}';
    }
  };
  std::visit(Writer{text}, value_);
}

}  // namespace zef::client
