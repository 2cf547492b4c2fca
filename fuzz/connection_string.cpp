/// Connection strings: what is read can be written and is read as the same again.

#include <string>

#include "fuzz/support/input.h"
#include "platform/connection_string.h"
#include "platform/run_time_error.h"

namespace zef::fuzz {
namespace {

std::string Written(const ConnectionString& connection) {
  std::string text;
  for (const auto& [key, value] : connection.parts) text += key + "=" + QuotedConnectionValue(value) + ";";
  return text;
}

void Read(std::string_view text) {
  const ConnectionString connection = ParseConnectionString(text);
  const std::string written = Written(connection);
  if (ParseConnectionString(written).parts != connection.parts) Report("not read again: " + written);
  for (const auto& [key, value] : connection.parts) connection.Get(key);
  connection.Require({"Provider", "Data Source", "Password"});
}

}  // namespace
}  // namespace zef::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    zef::fuzz::Read({reinterpret_cast<const char*>(data), size});
  } catch (const zef::RunTimeError&) {  // a refusal is an answer
  }
  return 0;
}
