# One translation unit for each public header: it must compile alone, stand a second inclusion, and keep the engine's
# header out. Headers of the engines' own folders are private.

set(header_checks)
foreach(room IN LISTS ZEF_ROOMS ITEMS schema)
  file(GLOB_RECURSE headers RELATIVE "${PROJECT_SOURCE_DIR}" CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${room}/*.h")
  list(FILTER headers EXCLUDE REGEX "^platform/(sqlite|postgresql)/")
  foreach(header IN LISTS headers)
    set(unit "${PROJECT_BINARY_DIR}/header_check/${header}.cpp")
    file(CONFIGURE OUTPUT "${unit}" @ONLY CONTENT [=[
#include "@header@"
#include "@header@"
#if defined(SQLITE_VERSION) || defined(LIBPQ_FE_H)
#error "a public header includes an engine's header"
#endif
]=])
    list(APPEND header_checks "${unit}")
  endforeach()
endforeach()

add_library(zef_header_check OBJECT ${header_checks})
target_include_directories(zef_header_check PRIVATE "${PROJECT_SOURCE_DIR}")
target_link_libraries(zef_header_check PRIVATE ICU::uc ICU::i18n Boost::headers zef_warnings)
