# One test executable for each folder under tests/, made of every source in it. tests/support/ is shared by all.
# Tests run in the root of the checkout, so that a data file is named as in "tests/calendar/cases.txt".

enable_testing()
include(GoogleTest)
include(${ZEF_SYSTEM}/TestSources)

file(GLOB_RECURSE support_sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tests/support/*.cpp")
list(REMOVE_ITEM support_sources ${tool_sources})
zef_keep_tests_of_this_system(support_sources)
add_library(zef_test_base INTERFACE)
target_link_libraries(zef_test_base INTERFACE zefcore zefschema GTest::gmock zef_warnings)
include(TestServer)
if(support_sources)
  add_library(zef_test_support STATIC ${support_sources})
  target_link_libraries(zef_test_support PUBLIC zef_test_base zef_test_tools)
endif()

file(GLOB folders LIST_DIRECTORIES TRUE RELATIVE "${PROJECT_SOURCE_DIR}/tests" CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tests/*")
# Tests of clients link nothing of the library, rows are only compiled, and some are for one system alone: see
# ClientTests.cmake of each system.
list(REMOVE_ITEM folders support clients rows windows ${ZEF_FOLDERS_OF_OTHER_SYSTEMS})
foreach(folder IN LISTS folders)
  file(GLOB_RECURSE test_sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tests/${folder}/*.cpp" "${PROJECT_SOURCE_DIR}/tests/${folder}/*.c")
  if(NOT ZEF_TEST_SERVER)
    list(FILTER test_sources EXCLUDE REGEX "/postgresql/")
  endif()
  zef_keep_tests_of_this_system(test_sources)
  if(NOT test_sources)
    continue()
  endif()
  set(target zef_test_${folder})
  add_executable(${target} ${test_sources})
  # The engine's own header is for tests that look into a file from outside.
  target_link_libraries(${target} PRIVATE $<TARGET_NAME_IF_EXISTS:zef_test_support> zef_test_base zef::engine GTest::gmock_main)
  if(folder STREQUAL "client")
    target_link_libraries(${target} PRIVATE $<TARGET_NAME_IF_EXISTS:zefclient>)
  endif()
  if(folder STREQUAL "client" AND TARGET zef)
    add_dependencies(${target} zef)
    target_compile_definitions(${target} PRIVATE
      "ZEF_BINARY=\"$<TARGET_FILE:zef>\"" "ZEF_LIBRARY=\"$<TARGET_FILE:ZEFComponents>\"")
  endif()
  if(folder STREQUAL "component")
    add_dependencies(${target} ZEFComponents)
    target_link_libraries(${target} PRIVATE zefcomponent ${CMAKE_DL_LIBS})
    target_compile_definitions(${target} PRIVATE "ZEF_LIBRARY=\"$<TARGET_FILE:ZEFComponents>\"")
  endif()
  set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/tests")
  gtest_discover_tests(${target}
    TEST_PREFIX "${folder}." TEST_FILTER "-*PostgreSQL*"
    WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}" DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 300 ENVIRONMENT "ZEF_PROGRAM=${PROJECT_BINARY_DIR}/zef")
  zef_discover_server_tests(${target} ${folder})
endforeach()
