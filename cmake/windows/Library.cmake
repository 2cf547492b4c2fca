# What only a library for Windows needs: the compiled type library and further resources, its exports, and a file name
# without the prefix of other systems.

find_program(ZEF_WIDL x86_64-w64-mingw32-widl REQUIRED)
find_path(ZEF_IDL_INCLUDE oaidl.idl PATHS /usr/include/wine/wine/windows NO_CMAKE_FIND_ROOT_PATH REQUIRED)
find_path(ZEF_TYPES_OF_OLE stdole2.tlb PATHS /usr/lib/x86_64-linux-gnu/wine/x86_64-windows NO_CMAKE_FIND_ROOT_PATH REQUIRED)
set(widl "${ZEF_WIDL}" --win64 -I "${ZEF_IDL_INCLUDE}" -L "${ZEF_TYPES_OF_OLE}")
add_custom_command(
  OUTPUT "${ZEF_TYPES}" COMMAND ${widl} -t -o "${ZEF_TYPES}" "${ZEF_IDL}" DEPENDS "${ZEF_IDL}"
  COMMENT "Compiling the type library" VERBATIM)

set(exports "${CMAKE_CURRENT_LIST_DIR}/exports.def")
enable_language(RC)
set_source_files_properties("${ZEF_RESOURCES}" PROPERTIES OBJECT_DEPENDS "${ZEF_TYPES}")
target_sources(ZEFComponents PRIVATE "${ZEF_RESOURCES}" "${exports}")
set_target_properties(ZEFComponents PROPERTIES PREFIX "" LINK_DEPENDS "${exports}")
