# Each file of examples/ is a program that a reader can copy; it is built and run with the tests, on a new database.

if(NOT EXISTS "${PROJECT_SOURCE_DIR}/session/session.h" OR NOT EXISTS "${PROJECT_SOURCE_DIR}/tasks/task.h" OR NOT TARGET zef)
  return()
endif()

set(example_folder "${PROJECT_BINARY_DIR}/examples")
file(MAKE_DIRECTORY "${example_folder}")
add_test(NAME examples.clean COMMAND "${CMAKE_COMMAND}" -E rm -f people.db people.db-wal people.db-shm)
add_test(NAME examples.database COMMAND zef create people.db)
set_tests_properties(examples.clean PROPERTIES FIXTURES_SETUP example_clean WORKING_DIRECTORY "${example_folder}")
set_tests_properties(examples.database PROPERTIES
  FIXTURES_REQUIRED example_clean FIXTURES_SETUP example_database WORKING_DIRECTORY "${example_folder}")

file(GLOB examples CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/examples/*.cpp")
foreach(example IN LISTS examples)
  cmake_path(GET example STEM name)
  add_executable(example_${name} "${example}")
  target_link_libraries(example_${name} PRIVATE zefcore zef_warnings)
  set_target_properties(example_${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${example_folder}")
  add_test(NAME examples.${name} COMMAND example_${name} WORKING_DIRECTORY "${example_folder}")
  set_tests_properties(examples.${name} PROPERTIES FIXTURES_REQUIRED example_database)
endforeach()

add_test(NAME examples.first_program_stands_in_readme
  COMMAND "${CMAKE_COMMAND}" "-DPROGRAM=${PROJECT_SOURCE_DIR}/examples/first_program.cpp"
    "-DDOCUMENT=${PROJECT_SOURCE_DIR}/README.md" -P "${PROJECT_SOURCE_DIR}/cmake/CheckSnippet.cmake")

# Without a database the program tells what is missing and ends with 1.
set(empty_folder "${example_folder}/empty")
file(MAKE_DIRECTORY "${empty_folder}")
add_test(NAME examples.first_program_tells_a_missing_file COMMAND example_first_program WORKING_DIRECTORY "${empty_folder}")
set_tests_properties(examples.first_program_tells_a_missing_file PROPERTIES
  PASS_REGULAR_EXPRESSION "The database file 'people.db' does not exist.")
