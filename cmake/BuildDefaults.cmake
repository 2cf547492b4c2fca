# What holds for every target: build type, language, visibility, compiler cache, warnings.

get_property(multi_config GLOBAL PROPERTY GENERATOR_IS_MULTI_CONFIG)
if(NOT CMAKE_BUILD_TYPE AND NOT multi_config)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Kind of build" FORCE)
endif()

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_C_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# Build trees at the same depth of the checkout share what the cache holds: paths are hashed relative to it.
find_program(ZEF_CCACHE ccache)
if(ZEF_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(launcher "${CMAKE_COMMAND}" -E env "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}" CCACHE_NOHASHDIR=1 "${ZEF_CCACHE}")
  set(CMAKE_C_COMPILER_LAUNCHER ${launcher})
  set(CMAKE_CXX_COMPILER_LAUNCHER ${launcher})
endif()

add_library(zef_warnings INTERFACE)
target_compile_options(zef_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow
  # GCC 12 reports an overlap in std::string's own operator+ that cannot happen.
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>
  $<$<BOOL:${ZEF_WERROR}>:-Werror>)
