# Kernels are optimised where nobody asked for anything. A build type that was given stands, whatever it is.
#
# Alone the project then is a Release build. In a project that has it as a subdirectory and no build type, only the library's
# own files get the options of a Release build (ORVIK_OPTIMIZE), unless that project's flags name a level of optimisation.
set(ORVIK_OPTIMIZE "")
get_property(orvik_multi_config GLOBAL PROPERTY GENERATOR_IS_MULTI_CONFIG)
if(NOT orvik_multi_config AND NOT CMAKE_BUILD_TYPE)
  if(PROJECT_IS_TOP_LEVEL)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Debug, Release, RelWithDebInfo or MinSizeRel" FORCE)
  elseif(NOT CMAKE_CXX_FLAGS MATCHES "(^| )-O")
    separate_arguments(orvik_release_options NATIVE_COMMAND "${CMAKE_CXX_FLAGS_RELEASE}")
    set(ORVIK_OPTIMIZE $<$<COMPILE_LANGUAGE:CXX>:${orvik_release_options}>)
  endif()
endif()
