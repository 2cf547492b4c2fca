# Tests of the ways into the built library from outside: scripts, which find it in the registry of an environment of
# Wine's own, and a client that binds early.

set(wine "${PROJECT_SOURCE_DIR}/cmake/wine.sh")
file(TO_NATIVE_PATH "${PROJECT_BINARY_DIR}/ZEFComponents.dll" library)
add_test(NAME windows.register COMMAND "${wine}" regsvr32.exe /s "${library}")
add_test(NAME windows.unregister COMMAND "${wine}" regsvr32.exe /s /u "${library}")
set_tests_properties(windows.register PROPERTIES FIXTURES_SETUP registered)
set_tests_properties(windows.unregister PROPERTIES FIXTURES_CLEANUP registered)

file(GLOB scripts CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tests/windows/scripts/*.vbs")
foreach(script IN LISTS scripts)
  cmake_path(GET script STEM name)
  add_test(NAME windows.script.${name}
    COMMAND "${PROJECT_SOURCE_DIR}/tests/windows/script.sh" "${PROJECT_BINARY_DIR}" "${script}")
  set_tests_properties(windows.script.${name} PROPERTIES FIXTURES_REQUIRED registered TIMEOUT 120)
endforeach()

# Files of one system on the other; the client of this one is what test.sh builds first.
set(ZEF_NATIVE "${PROJECT_SOURCE_DIR}/build/release/zef" CACHE FILEPATH "The client built for the system that builds")
add_test(NAME windows.exchange
  COMMAND "${PROJECT_SOURCE_DIR}/tests/windows/exchange.sh" "${ZEF_NATIVE}" "${PROJECT_BINARY_DIR}")
set_tests_properties(windows.exchange PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 300)

# The header that a client of the type library has from its compiler.
set(types_header "${PROJECT_BINARY_DIR}/types/ZEFComponentsTypes.h")
file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/types")
add_custom_command(
  OUTPUT "${types_header}" COMMAND ${widl} -h -o "${types_header}" "${ZEF_IDL}" DEPENDS "${ZEF_IDL}"
  COMMENT "Making the header of the type library" VERBATIM)
file(GLOB early_tests CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tests/windows/*.cpp")
add_executable(zef_test_windows ${early_tests} "${types_header}")
target_include_directories(zef_test_windows PRIVATE "${PROJECT_SOURCE_DIR}")
target_include_directories(zef_test_windows SYSTEM PRIVATE "${PROJECT_BINARY_DIR}/types")
target_link_libraries(zef_test_windows PRIVATE zef_test_support GTest::gmock_main ${ZEF_SYSTEM_LIBRARIES} version zef_warnings)
add_dependencies(zef_test_windows ZEFComponents zef)
target_compile_definitions(zef_test_windows PRIVATE "ZEF_LIBRARY=\"$<TARGET_FILE:ZEFComponents>\"")
set_target_properties(zef_test_windows PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/tests")
gtest_discover_tests(zef_test_windows TEST_PREFIX "windows." DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
