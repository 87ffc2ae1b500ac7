# A project that has the library as a subdirectory installs its own files alone, and the library too where it asks for that.
# Arguments: -DBUILD= that project's build directory, built.
function(install_with option)
  set(prefix ${BUILD}/installed)
  file(REMOVE_RECURSE ${prefix})
  execute_process(COMMAND ${CMAKE_COMMAND} ${option} ${BUILD} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  file(GLOB_RECURSE files RELATIVE ${prefix} ${prefix}/*)
  set(files ${files} PARENT_SCOPE)
endfunction()

install_with(-DORVIK_INSTALL=ON)
foreach(wanted bin/c include/orvik/orvik.h lib[^;]*/liborvik_kernel.so lib[^;]*/liborvik_kernel.a
               lib[^;]*/cmake/orvik/orvikConfig.cmake lib[^;]*/pkgconfig/orvik.pc
               include/orvik/front.hpp lib[^;]*/liborvik_front.so lib[^;]*/liborvik_front.a lib[^;]*/pkgconfig/orvik-front.pc)
  if(NOT files MATCHES "(^|;)${wanted}(;|$)")
    message(FATAL_ERROR "asked for, not installed: ${wanted} among ${files}")
  endif()
endforeach()

install_with(-UORVIK_INSTALL)  # nobody says anything
if(NOT files STREQUAL bin/c)
  message(FATAL_ERROR "installed besides the project's program: ${files}")
endif()
