# One translation unit for each header: it must compile alone, stand a second inclusion, and keep the engine's header
# out. Headers of the engines' own folders are private. Those for clients are found where clients find them.

set(header_checks)

function(zef_check_header header)
  set(unit "${PROJECT_BINARY_DIR}/header_check/${header}.cpp")
  file(CONFIGURE OUTPUT "${unit}" @ONLY CONTENT [=[
#include "@header@"
#include "@header@"
#if defined(SQLITE_VERSION) || defined(LIBPQ_FE_H)
#error "a public header includes an engine's header"
#endif
]=])
  set(header_checks ${header_checks} "${unit}" PARENT_SCOPE)
endfunction()

foreach(room IN LISTS ZEF_ROOMS ITEMS schema component)
  file(GLOB_RECURSE headers RELATIVE "${PROJECT_SOURCE_DIR}" CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${room}/*.h")
  list(FILTER headers EXCLUDE REGEX "^platform/(sqlite|postgresql)/|^component/client/|/${ZEF_OTHER_SYSTEM}/")
  foreach(header IN LISTS headers)
    zef_check_header("${header}")
  endforeach()
endforeach()
foreach(header IN LISTS client_headers)
  cmake_path(GET header FILENAME name)
  zef_check_header("ZEFComponents/${name}")
endforeach()

add_library(zef_header_check OBJECT ${header_checks})
target_include_directories(zef_header_check PRIVATE "${PROJECT_SOURCE_DIR}" "${ZEF_INCLUDE}")
target_link_libraries(zef_header_check PRIVATE ICU::uc ICU::i18n Boost::headers zef_warnings)
