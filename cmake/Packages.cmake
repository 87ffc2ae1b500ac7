# Debian packages by `cpack --preset release` or `cmake --build ... --target package`: liborvik2 with the shared libraries, liborvik-dev with what
# programs are built with, python3-orvik with the Python package where it is built. Their layout is Debian's whatever the build tree's own prefix is, so that one tree serves both.
set(ORVIK_PACKAGES OFF CACHE INTERNAL "Whether Debian packages can be made")
foreach(tool dpkg dpkg-shlibdeps file gzip)
  find_program(ORVIK_PACKAGES_${tool} ${tool})
  mark_as_advanced(ORVIK_PACKAGES_${tool})
  if(NOT ORVIK_PACKAGES_${tool} OR NOT CMAKE_LIBRARY_ARCHITECTURE)
    message(STATUS "No Debian packages here: ${tool} or Debian's layout is missing")
    return()
  endif()
endforeach()
set(ORVIK_PACKAGES ON CACHE INTERNAL "Whether Debian packages can be made")  # for the Python package and the tests

set(ORVIK_PACKAGE_RELEASE 1 CACHE STRING "Debian's revision of the packages")
set(ORVIK_PACKAGE_MAINTAINER "orvik-kernel maintainers <maintainers@orvik-kernel.example>" CACHE STRING
  "Maintainer of the Debian packages, as in Name <address>")

set(soversion ${PROJECT_VERSION_MAJOR})
set(debian_packages debian_runtime liborvik${soversion} debian_development liborvik-dev)
if(ORVIK_PYTHON_FOUND)
  list(APPEND debian_packages debian_python python3-orvik)
endif()

orvik_install_layout(debian lib/${CMAKE_LIBRARY_ARCHITECTURE} include debian_runtime debian_development EXCLUDE_FROM_ALL)
orvik_install_pages(share/doc/liborvik-dev COMPONENT debian_development EXCLUDE_FROM_ALL)

# Both change logs in every package: the project's, and the packages' own.
set(scratch ${PROJECT_BINARY_DIR}/install/debian)
set(orvik_debian_version ${PROJECT_VERSION}-${ORVIK_PACKAGE_RELEASE})
configure_file(${PROJECT_SOURCE_DIR}/cmake/debian/changelog.in ${scratch}/changelog.Debian @ONLY)
configure_file(${PROJECT_SOURCE_DIR}/CHANGELOG.md ${scratch}/changelog COPYONLY)
foreach(log changelog changelog.Debian)
  execute_process(COMMAND ${ORVIK_PACKAGES_gzip} -9nc ${scratch}/${log} OUTPUT_FILE ${scratch}/${log}.gz COMMAND_ERROR_IS_FATAL ANY)
endforeach()
# The licence under the name that the pages link to.
file(CREATE_LINK copyright ${scratch}/LICENSE SYMBOLIC)
install(FILES ${scratch}/LICENSE DESTINATION share/doc/liborvik-dev COMPONENT debian_development EXCLUDE_FROM_ALL)
while(debian_packages)
  list(POP_FRONT debian_packages component package)
  install(FILES ${scratch}/changelog.gz ${scratch}/changelog.Debian.gz ${PROJECT_SOURCE_DIR}/cmake/debian/copyright
    DESTINATION share/doc/${package} COMPONENT ${component} EXCLUDE_FROM_ALL)
  install(FILES ${PROJECT_SOURCE_DIR}/cmake/debian/${package}.overrides DESTINATION share/lintian/overrides RENAME ${package}
    COMPONENT ${component} EXCLUDE_FROM_ALL)
  string(TOUPPER ${component} upper)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${package})
endwhile()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orvik)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each package has its own
set(CPACK_PACKAGE_VENDOR "the orvik-kernel authors")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL debian_runtime debian_development)
if(ORVIK_PYTHON_FOUND)
  list(APPEND CPACK_COMPONENTS_ALL debian_python)
endif()
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_SOURCE_DIR}/cmake/CPackProject.cmake)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE orvik)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${ORVIK_PACKAGE_RELEASE})
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${ORVIK_PACKAGE_MAINTAINER})
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# Which packages the libraries that ours need come from; what packages that use ours must name (shlibs); and that the loader's cache
# is to be made anew (triggers).
set(CPACK_DEBIAN_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS "libblas3 | libblas.so.3, liblapack3 | liblapack.so.3")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers)
set(CPACK_DEBIAN_DEBIAN_RUNTIME_DESCRIPTION "numeric kernels over arrays: shared libraries
Vector mathematics at three levels of accuracy, random streams and
distributions, summary statistics, and data fitting with splines, for
processors with AVX2 and FMA.
.
This package has the shared libraries.")

set(CPACK_DEBIAN_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "liborvik${soversion} (= ${orvik_debian_version})")
set(CPACK_DEBIAN_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "pkg-config, cmake")
set(CPACK_DEBIAN_DEBIAN_DEVELOPMENT_DESCRIPTION "numeric kernels over arrays: headers and static libraries
Vector mathematics at three levels of accuracy, random streams and
distributions, summary statistics, and data fitting with splines, for
processors with AVX2 and FMA.
.
This package has the headers, the static libraries, the files for CMake and
pkg-config, and the user's pages.")

# One series of Python, whose number the extensions' names have; the versions of libraries that the extensions need are found in them.
if(ORVIK_PYTHON_FOUND)
  execute_process(COMMAND ${ORVIK_PYTHON} -c "import sys; print(f'python3 (>= 3.{sys.version_info.minor}~), python3 (<< 3.{sys.version_info.minor + 1})', end='')"
    OUTPUT_VARIABLE python COMMAND_ERROR_IS_FATAL ANY)
  set(CPACK_DEBIAN_DEBIAN_PYTHON_PACKAGE_SECTION python)
  set(CPACK_DEBIAN_DEBIAN_PYTHON_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/lib)
  set(CPACK_DEBIAN_DEBIAN_PYTHON_PACKAGE_DEPENDS
    "liborvik${soversion} (= ${orvik_debian_version}), ${python}, python3-numpy (>= 1:1.22), python3-numpy-abi9")
  set(CPACK_DEBIAN_DEBIAN_PYTHON_PACKAGE_SUGGESTS "python3-dask")
  set(CPACK_DEBIAN_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA
    "${PROJECT_SOURCE_DIR}/cmake/debian/python/postinst;${PROJECT_SOURCE_DIR}/cmake/debian/python/prerm")
  set(CPACK_DEBIAN_DEBIAN_PYTHON_DESCRIPTION "numeric kernels over arrays: Python package
Vector mathematics as ufuncs of NumPy at three levels of accuracy, random
generators and distributions, summary statistics, and splines, for
processors with AVX2 and FMA.
.
This package has the Python package orvik.")
endif()

include(CPack)
