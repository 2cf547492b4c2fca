# The server that the tests run on, as fixture `server` of ctest: tests/support/server.sh makes it before the first test
# that needs it and ends it behind the last. Without its programs the tests on it are left out, and one entry says so.

find_program(ZEF_POSTGRES postgres
  PATHS /usr/lib/postgresql/17/bin /usr/lib/postgresql/16/bin /usr/lib/postgresql/15/bin DOC "The server's program")
add_library(zef_test_server INTERFACE)
if(ZEF_POSTGRESQL AND ZEF_POSTGRES)
  set(ZEF_TEST_SERVER TRUE)
  cmake_path(GET ZEF_POSTGRES PARENT_PATH programs)
  set(script "${PROJECT_SOURCE_DIR}/tests/support/server.sh")
  # The path of a socket is short, so that the build tree cannot hold it.
  string(MD5 tree "${PROJECT_BINARY_DIR}")
  string(SUBSTRING "${tree}" 0 12 tree)
  set(ZEF_TEST_SERVER_FOLDER "/tmp/zef-server-${tree}")
  target_link_libraries(zef_test_server INTERFACE PostgreSQL::PostgreSQL)
  target_compile_definitions(zef_test_server INTERFACE
    "ZEF_TEST_SERVER_PROGRAMS=\"${programs}\"" "ZEF_TEST_SERVER_SCRIPT=\"${script}\"")
  add_test(NAME server.start COMMAND "${script}" start "${ZEF_TEST_SERVER_FOLDER}" parent)
  add_test(NAME server.stop COMMAND "${script}" stop "${ZEF_TEST_SERVER_FOLDER}")
  set_tests_properties(server.start PROPERTIES FIXTURES_SETUP server ENVIRONMENT "ZEF_POSTGRESQL_BIN=${programs}")
  set_tests_properties(server.stop PROPERTIES FIXTURES_CLEANUP server)
else()
  add_test(NAME server.tests_are_left_out_without_postgresql COMMAND "${CMAKE_COMMAND}" -E false)
  set_tests_properties(server.tests_are_left_out_without_postgresql PROPERTIES SKIP_RETURN_CODE 1)
endif()

# What the rooms above show of files, of the plans for them and of one right to write for all, is not run on the server.
set(ZEF_FILE_TESTS
  # Connecting to a file, and what is wrong with files.
  Connecting.* ConnectFailure.* ConnectPassword.* *FailedConnect* FileConnectionString.* *ConnectingToAFile*
  # Whoever has opened a transaction keeps all others from writing.
  Transaction.WaitsForAnotherClientsOnlySoLong LockedTree.*
  # A file is copied, looked into or written by another program.
  ForeignDates.* Chain.MakesTheTablesAndIndexesOfANewDatabase Chain.LeavesASoundFile *ChainFault.*
  # How the embedded engine goes about a statement.
  *ScansNoTable* SentStatements.* *IsToldToScan* *GoesThroughTheIndex* PhoneNumber.IsSearchedThroughTheIndexesOfAllFourColumns
  # Characters U+0000, and names beyond 63 bytes.
  *ZeroCharacter* NoteFile.EveryByteValueCanBeSavedAndComesBack
  Relationship.OfSeventyCharactersIsSoughtByItsFirst64 Relationship.OfLongTableNamesIsSoughtByTheFirst64CharactersOfBoth)
list(JOIN ZEF_FILE_TESTS ":" ZEF_FILE_TESTS)
# Those that reach the database through the library; the platform has a suite of its own for both engines.
set(ZEF_ROOMS_ON_SERVER
  addressbook calendar folders many_clients notes schema session tasks textviews upgrade users)
# What a room does on the server is the engine's part, and sanitizers see that in the tests of the platform.
if(CMAKE_CXX_FLAGS MATCHES "-fsanitize")
  set(ZEF_ROOMS_ON_SERVER)
endif()

# The tests of a room once more on the server, and those that are on it whatever the environment says: these bear its
# name.
function(zef_discover_server_tests target folder)
  if(NOT ZEF_TEST_SERVER)
    return()
  endif()
  gtest_discover_tests(${target}
    TEST_PREFIX "${folder}." TEST_FILTER "*PostgreSQL*" TEST_LIST ${target}_on_server
    WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}" DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 300 FIXTURES_REQUIRED server ENVIRONMENT "ZEF_TEST_SERVER=${ZEF_TEST_SERVER_FOLDER}")
  if(folder IN_LIST ZEF_ROOMS_ON_SERVER)
    # One process for the room: to start one for each test would take longer than the tests.
    add_test(NAME postgresql.${folder}
      COMMAND ${target} "--gtest_filter=-*PostgreSQL*:${ZEF_FILE_TESTS}" --gtest_brief=1
      WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}")
    set_tests_properties(postgresql.${folder} PROPERTIES
      TIMEOUT 900 COST 500 FIXTURES_REQUIRED server ENVIRONMENT "ZEF_TEST_ON_SERVER=${ZEF_TEST_SERVER_FOLDER}")
  endif()
endfunction()
