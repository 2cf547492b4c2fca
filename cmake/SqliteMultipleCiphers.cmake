# Fetches the amalgamation of SQLite with encryption, pinned by version and hash, and builds it as library `sqlite3mc`.
# The package is kept in ZEF_DOWNLOAD_CACHE, so further build trees, and configuring without a network, use that copy.

set(package better-sqlite3-multiple-ciphers)
set(package_version 12.11.1)
string(CONCAT package_sha512
  a46ef6fb7564522a67998c782f042aa0e5cd1b6089d479660eb96faa0afbc501
  e0b04f9ccf9ac064489a2479d42931da19f1a27e0800fc2d12bfda99954adfa3)

if(DEFINED ENV{XDG_CACHE_HOME})
  set(cache_home "$ENV{XDG_CACHE_HOME}")
elseif(DEFINED ENV{HOME})
  set(cache_home "$ENV{HOME}/.cache")
else()
  set(cache_home "${PROJECT_BINARY_DIR}")
endif()
set(ZEF_DOWNLOAD_CACHE "${cache_home}/zefcomponents" CACHE PATH "Folder in which downloads are kept")

function(zef_is_genuine file result)
  set(${result} FALSE PARENT_SCOPE)
  if(EXISTS "${file}")
    file(SHA512 "${file}" hash)
    if(hash STREQUAL package_sha512)
      set(${result} TRUE PARENT_SCOPE)
    endif()
  endif()
endfunction()

# Downloads beside the final place and moves only what has the right hash, so a broken download never stays.
function(zef_fetch_package archive)
  find_program(ZEF_NPM npm REQUIRED)
  cmake_path(GET archive FILENAME name)
  set(folder "${PROJECT_BINARY_DIR}/download")
  file(MAKE_DIRECTORY "${folder}")
  message(STATUS "Fetching ${package} ${package_version}")
  execute_process(
    COMMAND "${ZEF_NPM}" pack "${package}@${package_version}" --ignore-scripts --loglevel=error --pack-destination "${folder}"
    WORKING_DIRECTORY "${folder}" RESULT_VARIABLE status OUTPUT_QUIET ERROR_VARIABLE message)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "npm could not fetch ${package} ${package_version}: ${message}\n"
      "Put ${name} into ${ZEF_DOWNLOAD_CACHE}, or configure with -DZEF_SYSTEM_SQLITE=ON.")
  endif()
  zef_is_genuine("${folder}/${name}" genuine)
  if(NOT genuine)
    file(REMOVE "${folder}/${name}")
    message(FATAL_ERROR "${name} as fetched does not have the expected SHA-512 and was removed")
  endif()
  file(COPY_FILE "${folder}/${name}" "${archive}.part")
  file(RENAME "${archive}.part" "${archive}")
  file(REMOVE "${folder}/${name}")
endfunction()

# The layer of encryption forgets that a read has failed, and takes whatever stands in the buffer for the page.
function(zef_mend_reads source)
  set(wrong "pFile), buffer, count, offset);\n  if (rc == SQLITE_IOERR_SHORT_READ)\n")
  set(right "pFile), buffer, count, offset);\n  if (rc != SQLITE_OK)\n")
  file(READ "${source}" text)
  string(FIND "${text}" "${wrong}" place)
  if(place EQUAL -1)
    message(FATAL_ERROR "${source} no longer has the place where failed reads are forgotten: see whether it is mended")
  endif()
  string(REPLACE "${wrong}" "${right}" text "${text}")
  file(WRITE "${source}" "${text}")
endfunction()

set(archive "${ZEF_DOWNLOAD_CACHE}/${package}-${package_version}.tgz")
set(unpacked "${PROJECT_BINARY_DIR}/engine/${package_version}-mended")
set(engine_source "${unpacked}/package/deps/sqlite3")

file(MAKE_DIRECTORY "${ZEF_DOWNLOAD_CACHE}")
file(LOCK "${ZEF_DOWNLOAD_CACHE}" DIRECTORY GUARD FILE TIMEOUT 300)
zef_is_genuine("${archive}" genuine)
if(NOT genuine)
  zef_fetch_package("${archive}")
endif()
if(NOT EXISTS "${unpacked}/complete")
  file(ARCHIVE_EXTRACT INPUT "${archive}" DESTINATION "${unpacked}" PATTERNS "package/deps/sqlite3/*")
  zef_mend_reads("${engine_source}/sqlite3.c")
  file(TOUCH "${unpacked}/complete")
endif()
file(LOCK "${ZEF_DOWNLOAD_CACHE}" DIRECTORY RELEASE)

find_package(Threads REQUIRED)
add_library(sqlite3mc STATIC "${engine_source}/sqlite3.c")
target_include_directories(sqlite3mc SYSTEM INTERFACE "${engine_source}")
target_compile_definitions(sqlite3mc PRIVATE
  HAVE_USLEEP=1
  SQLITE_DEFAULT_FOREIGN_KEYS=0
  SQLITE_DEFAULT_MEMSTATUS=0
  SQLITE_DQS=0
  SQLITE_LIKE_DOESNT_MATCH_BLOBS
  SQLITE_MAX_EXPR_DEPTH=4000
  SQLITE_MAX_VARIABLE_NUMBER=32766
  SQLITE_OMIT_LOAD_EXTENSION
  SQLITE_OMIT_SHARED_CACHE
  SQLITE_TEMP_STORE=2
  SQLITE_THREADSAFE=2
  SQLITE_USE_ALLOCA
  SQLITE_USE_URI=0)
# The same flags in every build type: the tests spend most of their time in here, nobody debugs it, and all build trees
# then share one object in the compiler cache.
foreach(build_type IN ITEMS DEBUG RELEASE RELWITHDEBINFO MINSIZEREL)
  set(CMAKE_C_FLAGS_${build_type} "-O2 -DNDEBUG")
endforeach()
target_compile_options(sqlite3mc PRIVATE -w)
target_link_libraries(sqlite3mc PRIVATE Threads::Threads m)
