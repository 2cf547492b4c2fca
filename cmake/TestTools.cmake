# What tests and fuzzers both use. It knows nothing of GoogleTest.

file(GLOB_RECURSE tool_sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tests/support/random/*.cpp")
list(APPEND tool_sources
  "${PROJECT_SOURCE_DIR}/tests/support/automation_client.cpp" "${PROJECT_SOURCE_DIR}/tests/support/database.cpp"
  "${PROJECT_SOURCE_DIR}/tests/support/plain_occurrence.cpp" "${PROJECT_SOURCE_DIR}/tests/support/server.cpp")
add_library(zef_test_tools STATIC ${tool_sources})
# Fuzzers without tests know no server.
target_link_libraries(zef_test_tools
  PUBLIC zefcomponent zefschema $<TARGET_NAME_IF_EXISTS:zef_test_server> PRIVATE zef_warnings)
