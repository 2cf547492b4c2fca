# The embedded database engine under the name zef::engine, whichever one it is.

if(ZEF_SYSTEM_SQLITE)
  find_package(SQLite3 REQUIRED)
  add_library(zef::engine ALIAS SQLite::SQLite3)
else()
  include(SqliteMultipleCiphers)
  add_library(zef::engine ALIAS sqlite3mc)
endif()
