# The benchmarks: the library against the same work written by hand over the engine, and the recurrence rules against
# an independent calendar library.

file(GLOB_RECURSE bench_sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/bench/*.cpp")
list(FILTER bench_sources EXCLUDE REGEX "/bench/client/")
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
# A client on its own, since what a process has loaded once is not loaded anew.
add_executable(zef_come_and_go "${PROJECT_SOURCE_DIR}/bench/client/come_and_go.cpp")
target_link_libraries(zef_come_and_go PRIVATE zefheader zef_warnings)
foreach(program IN ITEMS zef_bench zef_come_and_go)
  add_dependencies(${program} ZEFComponents)
  target_compile_definitions(${program} PRIVATE "ZEF_LIBRARY=\"$<TARGET_FILE:ZEFComponents>\"")
endforeach()
add_dependencies(zef_bench zef_come_and_go)
target_compile_definitions(zef_bench PRIVATE "ZEF_COME_AND_GO=\"$<TARGET_FILE:zef_come_and_go>\"")
set_target_properties(zef_bench zef_come_and_go PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}")
if(ZEF_POSTGRESQL)
  target_link_libraries(zef_bench PRIVATE PostgreSQL::PostgreSQL)
  target_compile_definitions(zef_bench PRIVATE ZEF_BENCH_SERVER)
endif()
