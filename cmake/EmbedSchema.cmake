# The texts of schema/*.sql as a C++ source, each version followed by the first rows of all. Included, it adds library
# `zefschema`; run as a script with OUTPUT, FILES (separated by "|") and FIRST_ROWS given, it writes that source.

if(CMAKE_SCRIPT_MODE_FILE)
  set(entries)
  file(READ "${FIRST_ROWS}" first_rows)
  string(REPLACE "|" ";" FILES "${FILES}")
  foreach(file IN LISTS FILES)
    cmake_path(GET file STEM LAST_ONLY version)
    file(READ "${file}" text)
    string(APPEND entries "    {\"${version}\", R\"schema(${text}${first_rows})schema\"},\n")
  endforeach()
  file(CONFIGURE OUTPUT "${OUTPUT}" @ONLY NEWLINE_STYLE LF CONTENT [=[
#include "schema/schema_text.h"

namespace zef::schema {
namespace {

struct Entry {
  std::string_view version;
  std::string_view text;
};

constexpr Entry kEntries[] = {
@entries@};

}  // namespace

std::string_view Text(std::string_view version) {
  for (const Entry& entry : kEntries) {
    if (entry.version == version) return entry.text;
  }
  return {};
}

}  // namespace zef::schema
]=])
  return()
endif()

file(GLOB schema_files CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/schema/*.sql")
file(GLOB schema_sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/schema/*.cpp" "${PROJECT_SOURCE_DIR}/schema/*.h")
set(first_rows "${PROJECT_SOURCE_DIR}/schema/first_rows.sql")
list(REMOVE_ITEM schema_files "${first_rows}")
set(schema_output "${PROJECT_BINARY_DIR}/generated/schema_text.cpp")
list(JOIN schema_files "|" schema_list)
add_custom_command(
  OUTPUT "${schema_output}"
  COMMAND "${CMAKE_COMMAND}" "-DOUTPUT=${schema_output}" "-DFILES=${schema_list}" "-DFIRST_ROWS=${first_rows}"
    -P "${CMAKE_CURRENT_LIST_FILE}"
  DEPENDS ${schema_files} "${first_rows}" "${CMAKE_CURRENT_LIST_FILE}"
  COMMENT "Embedding the database schema"
  VERBATIM)

add_library(zefschema STATIC ${schema_sources} "${schema_output}")
target_include_directories(zefschema PUBLIC "${PROJECT_SOURCE_DIR}")
target_link_libraries(zefschema PRIVATE zef_warnings)
