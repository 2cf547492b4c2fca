# The same names as packages of this system's distribution give them, for the cross compiler: of those libraries only
# headers are used there. They are reached through a folder that holds nothing else, since the folder that they stand in
# has the headers of another system beside them. Order and letter case of texts are the system's own.

set(headers "${PROJECT_BINARY_DIR}/headers")
file(MAKE_DIRECTORY "${headers}")
foreach(folder IN ITEMS boost fmt CLI unicode)
  if(NOT EXISTS "/usr/include/${folder}")
    message(FATAL_ERROR "The headers in /usr/include/${folder} are missing: ./setup.sh windows installs them.")
  endif()
  file(CREATE_LINK "/usr/include/${folder}" "${headers}/${folder}" SYMBOLIC)
endforeach()

foreach(library IN ITEMS ICU::uc ICU::i18n Boost::headers fmt::fmt CLI11::CLI11)
  add_library(${library} INTERFACE IMPORTED)
  target_include_directories(${library} SYSTEM INTERFACE "${headers}")
endforeach()
target_compile_definitions(fmt::fmt INTERFACE FMT_HEADER_ONLY)
