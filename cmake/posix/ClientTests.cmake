# Tests of the ways into the built library from outside. They load it as any client does and link nothing of it.

include(Examples)
include(RowTests)

set(client_environment
  "ZEF_LIBRARY=$<TARGET_FILE:ZEFComponents>" "ZEF_PROGRAM=${PROJECT_BINARY_DIR}/zef"
  "PYTHONPATH=${PROJECT_SOURCE_DIR}/python" PYTHONDONTWRITEBYTECODE=1)

# Sanitizers want to be loaded before Python, which is not built with them.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
if(NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
  file(GLOB python_tests CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tests/python/test_*.py")
  foreach(python_test IN LISTS python_tests)
    cmake_path(GET python_test STEM name)
    add_test(NAME python.${name} COMMAND Python3::Interpreter -m unittest ${name}
      WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}/tests/python")
    set_tests_properties(python.${name} PROPERTIES ENVIRONMENT "${client_environment}" TIMEOUT 300)
  endforeach()
endif()

# Programs in C++ over the typed header.
file(GLOB header_tests CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tests/clients/*.cpp")
add_executable(zef_test_clients ${header_tests})
target_include_directories(zef_test_clients PRIVATE "${PROJECT_SOURCE_DIR}")
target_link_libraries(zef_test_clients PRIVATE zefheader GTest::gmock_main zef_warnings)
add_dependencies(zef_test_clients ZEFComponents zef)
target_compile_definitions(zef_test_clients PRIVATE
  "ZEF_LIBRARY=\"$<TARGET_FILE:ZEFComponents>\"" "ZEF_PROGRAM=\"$<TARGET_FILE:zef>\"")
set_target_properties(zef_test_clients PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/tests")
gtest_discover_tests(zef_test_clients
  TEST_PREFIX "clients." DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)

if(NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
  add_test(NAME clients.installed COMMAND "${PROJECT_SOURCE_DIR}/tests/clients/install_test.sh"
    "${PROJECT_SOURCE_DIR}" "${PROJECT_BINARY_DIR}" "${CMAKE_COMMAND}" "${CMAKE_CXX_COMPILER}")
  set_tests_properties(clients.installed PROPERTIES TIMEOUT 300)
endif()

if(NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
  add_test(NAME valgrind.boundary COMMAND "${PROJECT_SOURCE_DIR}/tests/component/valgrind.sh" "${PROJECT_BINARY_DIR}" quick)
  set_tests_properties(valgrind.boundary PROPERTIES LABELS valgrind SKIP_RETURN_CODE 77 TIMEOUT 900 COST 1000)
endif()

foreach(program IN ITEMS main by_name)
  add_test(NAME clients.program_of_the_outside_stands_in_document.${program}
    COMMAND "${CMAKE_COMMAND}" "-DPROGRAM=${PROJECT_SOURCE_DIR}/tests/clients/outside/${program}.cpp"
      "-DDOCUMENT=${PROJECT_SOURCE_DIR}/docs/component.md" -P "${PROJECT_SOURCE_DIR}/cmake/CheckSnippet.cmake")
endforeach()

# The same boundary in plain C, on the database of the examples.
add_executable(example_folders "${PROJECT_SOURCE_DIR}/examples/folders.c")
set_target_properties(example_folders PROPERTIES
  C_STANDARD 11 RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/examples")
target_link_libraries(example_folders PRIVATE ${CMAKE_DL_LIBS} zef_warnings)
add_dependencies(example_folders ZEFComponents)
add_test(NAME examples.folders COMMAND example_folders $<TARGET_FILE:ZEFComponents> people.db
  WORKING_DIRECTORY "${PROJECT_BINARY_DIR}/examples")
set_tests_properties(examples.folders PROPERTIES
  FIXTURES_REQUIRED example_database PASS_REGULAR_EXPRESSION "Alarms\nCalendar\nContacts\nNotes\nTasks\n")
add_test(NAME examples.folders_tells_a_missing_file
  COMMAND example_folders $<TARGET_FILE:ZEFComponents> none.db WORKING_DIRECTORY "${PROJECT_BINARY_DIR}/examples")
set_tests_properties(examples.folders_tells_a_missing_file PROPERTIES
  FIXTURES_REQUIRED example_database PASS_REGULAR_EXPRESSION "Connect2Database: result 80020009, number -2147467259: .*none.db")
