# The benchmarks: the library against the same work written by hand over the engine, and the recurrence rules against
# an independent calendar library.

file(GLOB_RECURSE bench_sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/bench/*.cpp")
if(NOT ZEF_POSTGRESQL)
  list(FILTER bench_sources EXCLUDE REGEX "/postgresql/")
endif()
if(NOT bench_sources)
  message(FATAL_ERROR "ZEF_BENCH is on and bench/ holds no source")
endif()

find_package(benchmark REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(libical REQUIRED IMPORTED_TARGET libical)

add_executable(zef_bench ${bench_sources})
target_link_libraries(zef_bench PRIVATE
  zefcore zefschema zefheader zef::engine PkgConfig::libical benchmark::benchmark zef_warnings)
add_dependencies(zef_bench ZEFComponents)
target_compile_definitions(zef_bench PRIVATE "ZEF_LIBRARY=\"$<TARGET_FILE:ZEFComponents>\"")
set_target_properties(zef_bench PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}")
if(ZEF_POSTGRESQL)
  target_link_libraries(zef_bench PRIVATE PostgreSQL::PostgreSQL)
  target_compile_definitions(zef_bench PRIVATE ZEF_BENCH_SERVER)
endif()
