# The command-line client: everything but its main file is a library, so that its tests can link it.

file(GLOB_RECURSE client_sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/client/*.cpp" "${PROJECT_SOURCE_DIR}/client/*.h")
set(client_main "${PROJECT_SOURCE_DIR}/client/main.cpp")
list(REMOVE_ITEM client_sources "${client_main}")
set(client_units ${client_sources})
list(FILTER client_units INCLUDE REGEX "\\.cpp$")

if(client_units)
  find_package(CLI11 REQUIRED)
  add_library(zefclient STATIC ${client_sources})
  target_link_libraries(zefclient PUBLIC zefcore zefschema CLI11::CLI11 PRIVATE zefheader zef_warnings)
  cmake_path(RELATIVE_PATH CMAKE_INSTALL_FULL_LIBDIR BASE_DIRECTORY "${CMAKE_INSTALL_FULL_BINDIR}" OUTPUT_VARIABLE libraries)
  target_compile_definitions(zefclient PRIVATE "ZEF_LIBRARY_FOLDER=\"${libraries}\"")
endif()
if(EXISTS "${client_main}")
  find_package(CLI11 REQUIRED)
  add_executable(zef "${client_main}")
  target_link_libraries(zef PRIVATE $<TARGET_NAME_IF_EXISTS:zefclient> zefcore zefschema CLI11::CLI11 zef_warnings)
  add_dependencies(zef ZEFComponents)  # looked for beside it
  set_target_properties(zef PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}")
endif()
