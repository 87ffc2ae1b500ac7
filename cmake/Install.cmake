# What `cmake --install` puts where: headers, libraries, the CMake package and the pkg-config file. All of it finds its way
# from its own place, so that the prefix may be chosen at installation and moved later.
include(CMakePackageConfigHelpers)

set(orvik_cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/orvik)

install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/orvik DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h" PATTERN "*.hpp")
install(TARGETS orvik_kernel orvik_front EXPORT orvikTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
if(ORVIK_BUILD_STATIC)
  install(TARGETS orvik_kernel_static orvik_front_static EXPORT orvikTargets
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
endif()
install(EXPORT orvikTargets NAMESPACE orvik:: DESTINATION ${orvik_cmake_dir})

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/orvikConfig.cmake.in ${PROJECT_BINARY_DIR}/orvikConfig.cmake
  INSTALL_DESTINATION ${orvik_cmake_dir} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/orvikConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/orvikConfig.cmake ${PROJECT_BINARY_DIR}/orvikConfigVersion.cmake
  DESTINATION ${orvik_cmake_dir})

# Directories relative to the place of the .pc file.
set(orvik_pc_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH orvik_pc_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" orvik_pc_prefix "\${pcfiledir}/${orvik_pc_prefix}")
file(RELATIVE_PATH orvik_pc_libdir ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_LIBDIR})
file(RELATIVE_PATH orvik_pc_includedir ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
set(orvik_pc_private "")
foreach(library IN LISTS ORVIK_STATIC_DEPENDENCIES)
  if(IS_ABSOLUTE ${library})
    string(APPEND orvik_pc_private " ${library}")
  else()
    string(APPEND orvik_pc_private " -l${library}")
  endif()
endforeach()
foreach(symbol IN LISTS ORVIK_STATIC_SYMBOLS)
  string(APPEND orvik_pc_private " -Wl,-u,${symbol}")
endforeach()
string(STRIP "${orvik_pc_private}" orvik_pc_private)
configure_file(${PROJECT_SOURCE_DIR}/cmake/orvik.pc.in ${PROJECT_BINARY_DIR}/orvik.pc @ONLY)
configure_file(${PROJECT_SOURCE_DIR}/cmake/orvik-front.pc.in ${PROJECT_BINARY_DIR}/orvik-front.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/orvik.pc ${PROJECT_BINARY_DIR}/orvik-front.pc DESTINATION ${orvik_pc_dir})
