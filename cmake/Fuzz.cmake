# One fuzzer for each source in fuzz/, which stands beside its corpus. With ZEF_FUZZ it is a program of libFuzzer; without,
# it runs over its corpus, as a test.

file(GLOB fuzzers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/fuzz/*.cpp")
file(GLOB fuzz_support CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/fuzz/support/*.cpp")
set(replay "${PROJECT_SOURCE_DIR}/fuzz/support/replay.cpp")
list(REMOVE_ITEM fuzz_support "${replay}")
if(ZEF_FUZZ AND NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  message(FATAL_ERROR "ZEF_FUZZ needs Clang, as in the preset \"fuzz\"")
endif()

add_custom_target(fuzzers)
foreach(source IN LISTS fuzzers)
  cmake_path(GET source STEM name)
  set(target zef_fuzz_${name})
  add_executable(${target} "${source}" ${fuzz_support} $<$<NOT:$<BOOL:${ZEF_FUZZ}>>:${replay}>)
  target_link_libraries(${target} PRIVATE zef_test_tools zef_warnings $<$<BOOL:${ZEF_FUZZ}>:-fsanitize=fuzzer>)
  add_dependencies(fuzzers ${target})
  set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/fuzz")
  if(NOT ZEF_FUZZ)
    add_test(NAME fuzz.${name} COMMAND ${target} "${PROJECT_SOURCE_DIR}/fuzz/corpus/${name}")
    set_tests_properties(fuzz.${name} PROPERTIES TIMEOUT 300)
  endif()
endforeach()
