# The command-line client: everything but its main file is a library, so that its tests can link it. It knows the
# components by their header alone and loads their library when it makes the first object.

file(GLOB_RECURSE client_sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/client/*.cpp" "${PROJECT_SOURCE_DIR}/client/*.h")
list(FILTER client_sources EXCLUDE REGEX "/client/${ZEF_OTHER_SYSTEM}/")
set(client_main "${PROJECT_SOURCE_DIR}/client/main.cpp")
list(REMOVE_ITEM client_sources "${client_main}")
set(client_units ${client_sources})
list(FILTER client_units INCLUDE REGEX "\\.cpp$")

if(client_units)
  add_library(zefclient STATIC ${client_sources})
  target_include_directories(zefclient PUBLIC "${PROJECT_SOURCE_DIR}" PRIVATE "${PROJECT_BINARY_DIR}/generated")
  target_compile_features(zefclient PUBLIC cxx_std_20)
  target_link_libraries(zefclient PUBLIC zefheader fmt::fmt CLI11::CLI11 PRIVATE zefschema zef_warnings)
  cmake_path(RELATIVE_PATH CMAKE_INSTALL_FULL_LIBDIR BASE_DIRECTORY "${CMAKE_INSTALL_FULL_BINDIR}" OUTPUT_VARIABLE libraries)
  target_compile_definitions(zefclient PRIVATE "ZEF_LIBRARY_FOLDER=\"${libraries}\"")
endif()
if(EXISTS "${client_main}")
  add_executable(zef "${client_main}")
  target_link_libraries(zef PRIVATE $<TARGET_NAME_IF_EXISTS:zefclient> zef_warnings)
  add_dependencies(zef ZEFComponents)  # looked for beside it
  set_target_properties(zef PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}")
endif()
