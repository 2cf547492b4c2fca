# What `cmake --install` puts in place: the library, the client, the headers and the Python module that reach it, and
# what lets CMake and pkg-config find them.

include(CMakePackageConfigHelpers)

set(ZEF_PYTHON_DIR "lib/python3/dist-packages" CACHE STRING "Where the Python module is installed, below the prefix")
set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/ZEFComponents")
set(generated "${PROJECT_BINARY_DIR}/install")

install(TARGETS ZEFComponents LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}")
if(TARGET zef)
  install(TARGETS zef RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
endif()
install(FILES "${ZEF_HEADER}" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(FILES ${client_headers} DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/ZEFComponents")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/python/zefcomponents" DESTINATION "${ZEF_PYTHON_DIR}"
  FILES_MATCHING PATTERN "*.py")

set(library_file "${CMAKE_INSTALL_LIBDIR}/libZEFComponents.so")
configure_package_config_file(cmake/ZEFComponentsConfig.cmake.in "${generated}/ZEFComponentsConfig.cmake"
  INSTALL_DESTINATION "${package_dir}" PATH_VARS CMAKE_INSTALL_INCLUDEDIR library_file)
write_basic_package_version_file("${generated}/ZEFComponentsConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${generated}/ZEFComponentsConfig.cmake" "${generated}/ZEFComponentsConfigVersion.cmake"
  DESTINATION "${package_dir}")

cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX
  BASE_DIRECTORY "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" OUTPUT_VARIABLE ZEF_PREFIX_FROM_PKGCONFIG)
configure_file(cmake/zefcomponents.pc.in "${generated}/zefcomponents.pc" @ONLY)
install(FILES "${generated}/zefcomponents.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
