# The tests' own library from the sources that the distribution packages, and which tests are for this system: those
# that need no call of another one, as forking or limits of a process are.

set(googletest /usr/src/googletest)
if(NOT EXISTS "${googletest}/CMakeLists.txt")
  message(FATAL_ERROR "The sources in ${googletest} are missing: ./setup.sh windows installs them.")
endif()
set(INSTALL_GTEST OFF)
add_subdirectory("${googletest}" "${PROJECT_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)

# What tests of other systems include: headers of these, and helpers that stand on them.
set(foreign_includes
  "#include [<\"](unistd\\.h|fcntl\\.h|dlfcn\\.h|elf\\.h|sys/|unicode/ucol|tests/support/(process|open_file)|tests/notes/attachement_fixture|tests/client/run_zef)")

function(zef_keep_tests_of_this_system list)
  set(kept)
  foreach(source IN LISTS ${list})
    file(STRINGS "${source}" foreign REGEX "${foreign_includes}")
    if(NOT foreign)
      list(APPEND kept "${source}")
    endif()
  endforeach()
  set(${list} "${kept}" PARENT_SCOPE)
endfunction()

# Rooms whose tests stand on such helpers as a whole.
set(ZEF_FOLDERS_OF_OTHER_SYSTEMS client component faults many_clients)
