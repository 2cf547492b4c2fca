# The engine on a server: option ZEF_POSTGRESQL, on where libpq is found.

find_package(PostgreSQL QUIET)
option(ZEF_POSTGRESQL "The engine on a PostgreSQL server" ${PostgreSQL_FOUND})
if(ZEF_POSTGRESQL)
  find_package(PostgreSQL REQUIRED)
endif()
