# What `cmake --install` puts where: libraries, headers, the CMake package, pkg-config files, licence and pages. All of it finds its
# way from its own place, so that the prefix may be chosen at installation and moved later.
#
# The same rules serve two layouts: the one that GNUInstallDirs and its user chose, and that of Debian packages
# (cmake/Packages.cmake), which no plain installation takes. Each has a component for running programs and one for building them.
include(CMakePackageConfigHelpers)

set(ORVIK_SHARED_LIBRARIES orvik_kernel)
set(ORVIK_STATIC_LIBRARIES orvik_kernel_static)
set(ORVIK_PC_FILES orvik)
if(TARGET orvik_front)
  list(APPEND ORVIK_SHARED_LIBRARIES orvik_front)
  list(APPEND ORVIK_STATIC_LIBRARIES orvik_front_static)
  list(APPEND ORVIK_PC_FILES orvik-front)
endif()

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

# The pages, with the folders that their links go by.
function(orvik_install_pages destination)
  install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md ${PROJECT_SOURCE_DIR}/SECURITY.md
    ${PROJECT_SOURCE_DIR}/CONTRIBUTING.md DESTINATION ${destination} ${ARGN})
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs DESTINATION ${destination} ${ARGN}
    FILES_MATCHING PATTERN "*.md" PATTERN "*.svg")
  # What the pages lead to: the programs to copy, how coefficients are made.
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples DESTINATION ${destination} ${ARGN}
    FILES_MATCHING PATTERN "*.c" PATTERN "*.cc" PATTERN "*.h" PATTERN "*.py" PATTERN "data/*" PATTERN "*_test.py" EXCLUDE PATTERN tour EXCLUDE)
  install(FILES ${PROJECT_SOURCE_DIR}/tools/approx/README.md DESTINATION ${destination}/tools/approx ${ARGN})
endfunction()

# orvik_install_layout(NAME LIBDIR INCLUDEDIR RUNTIME component DEVELOPMENT component [options of install]).
function(orvik_install_layout name libdir includedir runtime development)
  set(scratch ${PROJECT_BINARY_DIR}/install/${name})
  set(cmake_dir ${libdir}/cmake/orvik)
  set(run COMPONENT ${runtime} ${ARGN})
  set(develop COMPONENT ${development} ${ARGN})

  # Headers for C and C++.
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/orvik DESTINATION ${includedir} ${develop}
    FILES_MATCHING PATTERN "*.h" PATTERN "*.hpp")
  install(TARGETS ${ORVIK_SHARED_LIBRARIES} EXPORT orvik_${name}
    LIBRARY DESTINATION ${libdir} COMPONENT ${runtime} NAMELINK_COMPONENT ${development} ${ARGN}
    INCLUDES DESTINATION ${includedir})
  if(ORVIK_BUILD_STATIC)
    install(TARGETS ${ORVIK_STATIC_LIBRARIES} EXPORT orvik_${name}
      ARCHIVE DESTINATION ${libdir} ${develop}
      INCLUDES DESTINATION ${includedir})
  endif()
  install(EXPORT orvik_${name} FILE orvikTargets.cmake NAMESPACE orvik:: DESTINATION ${cmake_dir} ${develop})

  configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/orvikConfig.cmake.in ${scratch}/orvikConfig.cmake
    INSTALL_DESTINATION ${cmake_dir} NO_SET_AND_CHECK_MACRO)
  write_basic_package_version_file(${scratch}/orvikConfigVersion.cmake COMPATIBILITY SameMajorVersion)
  install(FILES ${scratch}/orvikConfig.cmake ${scratch}/orvikConfigVersion.cmake DESTINATION ${cmake_dir} ${develop})

  # Directories relative to the place of the .pc file.
  foreach(directory libdir includedir)
    cmake_path(ABSOLUTE_PATH ${directory} BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX} OUTPUT_VARIABLE full_${directory})
    file(RELATIVE_PATH orvik_pc_${directory} ${CMAKE_INSTALL_PREFIX} ${full_${directory}})
  endforeach()
  file(RELATIVE_PATH orvik_pc_prefix ${full_libdir}/pkgconfig ${CMAKE_INSTALL_PREFIX})
  string(REGEX REPLACE "/$" "" orvik_pc_prefix "\${pcfiledir}/${orvik_pc_prefix}")
  foreach(file IN LISTS ORVIK_PC_FILES)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/${file}.pc.in ${scratch}/${file}.pc @ONLY)
    install(FILES ${scratch}/${file}.pc DESTINATION ${libdir}/pkgconfig ${develop})
  endforeach()
endfunction()

orvik_install_layout(prefix ${CMAKE_INSTALL_LIBDIR} ${CMAKE_INSTALL_INCLUDEDIR} runtime development)
set(orvik_docdir ${CMAKE_INSTALL_DOCDIR})
if(NOT PROJECT_IS_TOP_LEVEL)  # where that is the other project's
  set(orvik_docdir ${CMAKE_INSTALL_DATAROOTDIR}/doc/orvik)
endif()
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${orvik_docdir} COMPONENT runtime)
orvik_install_pages(${orvik_docdir} COMPONENT development)

if(PROJECT_IS_TOP_LEVEL)
  include(${PROJECT_SOURCE_DIR}/cmake/Packages.cmake)
endif()
