# The component surface: the library that clients load, and what is made from the description of its classes.

file(GLOB component_sources CONFIGURE_DEPENDS
  "${PROJECT_SOURCE_DIR}/component/*.cpp" "${PROJECT_SOURCE_DIR}/component/*.h" "${PROJECT_SOURCE_DIR}/component/classes/*.cpp"
  "${PROJECT_SOURCE_DIR}/component/${ZEF_SYSTEM}/*.cpp" "${PROJECT_SOURCE_DIR}/component/${ZEF_SYSTEM}/*.S")
set(component_exports "${PROJECT_SOURCE_DIR}/component/exports.cpp")
list(REMOVE_ITEM component_sources "${component_exports}")
add_library(zefcomponent STATIC ${component_sources})
target_link_libraries(zefcomponent PUBLIC zefcore PRIVATE ${ZEF_SYSTEM_LIBRARIES} zef_warnings)

# Type library, resources and client header come from the same tables as late binding.
file(GLOB describe_sources CONFIGURE_DEPENDS
  "${PROJECT_SOURCE_DIR}/component/describe/*.cpp" "${PROJECT_SOURCE_DIR}/component/describe/${ZEF_SYSTEM}/*.cpp")
add_executable(zef_describe ${describe_sources})
target_link_libraries(zef_describe PRIVATE zefcomponent zef_warnings)
set(ZEF_IDL "${PROJECT_BINARY_DIR}/generated/ZEFComponents.idl")
set(ZEF_TYPES "${PROJECT_BINARY_DIR}/generated/ZEFComponents.${ZEF_TYPES_LANGUAGE}")
set(ZEF_RESOURCES "${PROJECT_BINARY_DIR}/generated/resources.${ZEF_RESOURCES_LANGUAGE}")
set(ZEF_INCLUDE "${PROJECT_BINARY_DIR}/include")
set(ZEF_HEADER "${ZEF_INCLUDE}/ZEFComponents.hpp")
file(MAKE_DIRECTORY "${ZEF_INCLUDE}")
add_custom_command(
  OUTPUT "${ZEF_IDL}" "${ZEF_RESOURCES}" "${ZEF_HEADER}"
  COMMAND zef_describe "${ZEF_IDL}" "${ZEF_RESOURCES}" "${ZEF_HEADER}" "${ZEF_TYPES}"
  DEPENDS zef_describe
  COMMENT "Describing the classes" VERBATIM)
file(GLOB client_headers CONFIGURE_DEPENDS
  "${PROJECT_SOURCE_DIR}/component/automation.h" "${PROJECT_SOURCE_DIR}/component/client/*.h"
  "${PROJECT_SOURCE_DIR}/component/client/${ZEF_SYSTEM}/*.h" "${PROJECT_SOURCE_DIR}/platform/moment_text.h")
foreach(header IN LISTS client_headers)
  cmake_path(GET header FILENAME name)
  configure_file("${header}" "${ZEF_INCLUDE}/ZEFComponents/${name}" COPYONLY)
endforeach()

# Of what is visible, the list of exports lets out four functions.
add_library(ZEFComponents SHARED "${component_exports}")
target_link_libraries(ZEFComponents PRIVATE zefcomponent zef_warnings)
set_target_properties(ZEFComponents PROPERTIES
  CXX_VISIBILITY_PRESET default
  LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}" RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}")
include(${ZEF_SYSTEM}/Library)

# What a client in C++ includes; it links nothing, the library is loaded when the first object is created.
add_library(zefheader INTERFACE)
add_custom_target(zef_header DEPENDS "${ZEF_HEADER}")
add_dependencies(zefheader zef_header)
target_include_directories(zefheader INTERFACE "${ZEF_INCLUDE}")
target_link_libraries(zefheader INTERFACE ${ZEF_SYSTEM_LIBRARIES})
