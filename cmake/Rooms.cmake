# The library: the sources of all rooms, from the ground up. A room that does not exist yet adds nothing.

set(ZEF_ROOMS platform session calendar folders tasks addressbook notes users textviews upgrade)

set(sources)
foreach(room IN LISTS ZEF_ROOMS)
  file(GLOB_RECURSE room_sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${room}/*.cpp" "${PROJECT_SOURCE_DIR}/${room}/*.h")
  list(APPEND sources ${room_sources})
endforeach()
# What touches the system has a face for each, under the same file names.
list(FILTER sources EXCLUDE REGEX "/platform/${ZEF_OTHER_SYSTEM}/")
if(NOT ZEF_POSTGRESQL)
  list(FILTER sources EXCLUDE REGEX "/platform/postgresql/")
endif()

configure_file("${PROJECT_SOURCE_DIR}/cmake/version.h.in" "${PROJECT_BINARY_DIR}/generated/version.h" @ONLY)

add_library(zefcore STATIC ${sources})
target_include_directories(zefcore PUBLIC "${PROJECT_SOURCE_DIR}" "${PROJECT_BINARY_DIR}/generated")
target_compile_features(zefcore PUBLIC cxx_std_20)
target_link_libraries(zefcore
  PUBLIC ICU::uc ICU::i18n Boost::headers fmt::fmt
  PRIVATE zef::engine zef_warnings)
if(ZEF_POSTGRESQL)
  # Its header alone: the library is loaded when a server is first connected to.
  target_include_directories(zefcore SYSTEM PRIVATE ${PostgreSQL_INCLUDE_DIRS})
  target_link_libraries(zefcore PRIVATE ${CMAKE_DL_LIBS})
  target_compile_definitions(zefcore PUBLIC ZEF_POSTGRESQL)
endif()
if(ZEF_SYSTEM_SQLITE)
  target_compile_definitions(zefcore PUBLIC ZEF_SYSTEM_SQLITE)
endif()
