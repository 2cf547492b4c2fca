# What only a library for this system needs: sections by which a host looks at it without running it, its exports, and
# the version in its file name.

set(exports "${CMAKE_CURRENT_LIST_DIR}/exports.map")
enable_language(ASM)
set_source_files_properties("${ZEF_RESOURCES}" PROPERTIES OBJECT_DEPENDS "${ZEF_TYPES}")
target_sources(ZEFComponents PRIVATE "${ZEF_RESOURCES}")
target_link_options(ZEFComponents PRIVATE "-Wl,--version-script=${exports}"
  $<$<NOT:$<BOOL:${ZEF_FUZZ}>>:-Wl,--no-undefined>)
set_target_properties(ZEFComponents PROPERTIES
  VERSION "${ZEF_FILE_VERSION}" SOVERSION "${ZEF_FILE_VERSION}" LINK_DEPENDS "${exports}")
