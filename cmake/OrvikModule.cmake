# Modules, tests: what every folder of the project builds with.

# Flags of all files.
add_library(orvik_common_flags INTERFACE)
target_include_directories(orvik_common_flags INTERFACE ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/src
                                                        ${PROJECT_BINARY_DIR}/generated)
target_compile_options(orvik_common_flags INTERFACE
  $<$<COMPILE_LANGUAGE:C,CXX>:-Wall -Wextra>
  $<$<AND:$<BOOL:${ORVIK_WERROR}>,$<COMPILE_LANGUAGE:C,CXX>>:-Werror>)
if(ORVIK_SANITIZE)
  target_compile_options(orvik_common_flags INTERFACE
    -fsanitize=${ORVIK_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(orvik_common_flags INTERFACE -fsanitize=${ORVIK_SANITIZE})
endif()

# The processor level. What is compiled for any x86-64 processor instead must say so against what stands in CMAKE_CXX_FLAGS.
set(ORVIK_INSTRUCTIONS avx2 fma bmi bmi2 lzcnt popcnt)
list(TRANSFORM ORVIK_INSTRUCTIONS PREPEND -m OUTPUT_VARIABLE ORVIK_LEVEL)
list(TRANSFORM ORVIK_INSTRUCTIONS PREPEND -mno- OUTPUT_VARIABLE ORVIK_ANY_PROCESSOR)
list(PREPEND ORVIK_ANY_PROCESSOR -march=x86-64 -mno-avx)

# Contraction, reassociation and folding at another rounding mode would change results.
add_library(orvik_flags INTERFACE)
target_link_libraries(orvik_flags INTERFACE orvik_common_flags)
target_compile_options(orvik_flags INTERFACE ${ORVIK_LEVEL} -ffp-contract=off -fno-math-errno)

# No exception crosses a boundary of the library and none is used inside.
set(ORVIK_LIBRARY_OPTIONS $<$<COMPILE_LANGUAGE:CXX>:-fno-exceptions -fno-rtti> -ftls-model=initial-exec ${ORVIK_OPTIMIZE})
add_library(orvik_library_flags INTERFACE)
target_link_libraries(orvik_library_flags INTERFACE orvik_flags)
target_compile_options(orvik_library_flags INTERFACE ${ORVIK_LIBRARY_OPTIONS})
add_library(orvik_any_processor_flags INTERFACE)
target_link_libraries(orvik_any_processor_flags INTERFACE orvik_common_flags)
target_compile_options(orvik_any_processor_flags INTERFACE ${ORVIK_LIBRARY_OPTIONS} ${ORVIK_ANY_PROCESSOR})

# Sources that are compiled a second time for registers of 512 bits (src/lanes).
set(ORVIK_WIDE_INSTRUCTIONS avx512f avx512dq avx512bw avx512vl)
list(TRANSFORM ORVIK_WIDE_INSTRUCTIONS PREPEND -m OUTPUT_VARIABLE ORVIK_WIDE_LEVEL)
add_library(orvik_wide_flags INTERFACE)
# g++ 12 takes the undefined sources of its own intrinsics for uninitialised variables; its unique symbols cannot be made local.
target_compile_options(orvik_wide_flags INTERFACE ${ORVIK_WIDE_LEVEL}
  $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique -Wno-uninitialized -Wno-maybe-uninitialized>)
target_compile_definitions(orvik_wide_flags INTERFACE ORVIK_REGISTER_BITS=512)

set_property(GLOBAL PROPERTY ORVIK_MODULES "")
set_property(GLOBAL PROPERTY ORVIK_JOINED "")
set_property(GLOBAL PROPERTY ORVIK_EXPORTS "")

# orvik_module(NAME SOURCES ... [EXPORTS exports.txt ...] [ANY_PROCESSOR]): one folder of the library as an object library.
# An exports file lists the exported names, one a line, '#' starts a comment. ANY_PROCESSOR: what runs before the processor has
# been asked.
function(orvik_module name)
  cmake_parse_arguments(arg "ANY_PROCESSOR" "" "SOURCES;EXPORTS" ${ARGN})
  add_library(orvik_${name} OBJECT ${arg_SOURCES})
  if(arg_ANY_PROCESSOR)
    target_link_libraries(orvik_${name} PRIVATE orvik_any_processor_flags)
  else()
    target_link_libraries(orvik_${name} PRIVATE orvik_library_flags)
  endif()
  set_property(GLOBAL APPEND PROPERTY ORVIK_MODULES orvik_${name})
  foreach(file IN LISTS arg_EXPORTS)
    cmake_path(ABSOLUTE_PATH file BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
    set_property(GLOBAL APPEND PROPERTY ORVIK_EXPORTS ${file})
    target_sources(orvik_${name} PRIVATE ${file})  # so that a list that is generated is made
  endforeach()
endfunction()

# orvik_join_objects(NAME TARGET objects SHOW pattern): all objects of an object library as one file of the library, in which every
# symbol is local but those of the pattern. What the compiler made for any file to share (inline functions, templates) thus stays
# with the files that have their instructions.
function(orvik_join_objects name)
  cmake_parse_arguments(arg "" "TARGET;SHOW" "" ${ARGN})
  set(joined ${PROJECT_BINARY_DIR}/joined/${name}.o)
  add_custom_command(OUTPUT ${joined}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/joined
    COMMAND ${CMAKE_CXX_COMPILER} -nostdlib -r -Wl,--force-group-allocation -o ${joined} $<TARGET_OBJECTS:${arg_TARGET}>
    COMMAND ${CMAKE_OBJCOPY} --wildcard "--keep-global-symbol=${arg_SHOW}" ${joined}
    DEPENDS ${arg_TARGET} $<TARGET_OBJECTS:${arg_TARGET}> COMMAND_EXPAND_LISTS VERBATIM)
  add_custom_target(orvik_${name} DEPENDS ${joined})
  set_property(GLOBAL APPEND PROPERTY ORVIK_JOINED orvik_${name})
  set_property(TARGET orvik_${name} PROPERTY ORVIK_OBJECT ${joined})
endfunction()

# orvik_test(NAME SOURCES ... [LABELS ...] [LIBRARIES ...] [TIMEOUT s] [LAUNCHER program]): one GoogleTest program and one CTest entry of
# its own. Tests link the library's objects statically, so that they reach internals as well as exports.
# The label "threads" marks what the thread sanitizer runs.
function(orvik_test name)
  cmake_parse_arguments(arg "" "TIMEOUT;SHARDS;LAUNCHER" "SOURCES;LABELS;LIBRARIES" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE orvik_flags orvik_internal GTest::gtest GTest::gmock ${arg_LIBRARIES}
                                        orvik_test_main)
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 300)
  endif()
  add_test(NAME ${name} COMMAND ${arg_LAUNCHER} $<TARGET_FILE:${name}> --gtest_brief=1)
  set(tests ${name})
  if(arg_SHARDS)  # one program, its cases dealt out to as many tests as may run side by side
    set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT GTEST_TOTAL_SHARDS=${arg_SHARDS} GTEST_SHARD_INDEX=0)
    math(EXPR last "${arg_SHARDS} - 1")
    foreach(shard RANGE 1 ${last})
      add_test(NAME ${name}_${shard} COMMAND ${name} --gtest_brief=1)
      set_property(TEST ${name}_${shard} APPEND PROPERTY ENVIRONMENT GTEST_TOTAL_SHARDS=${arg_SHARDS} GTEST_SHARD_INDEX=${shard})
      list(APPEND tests ${name}_${shard})
    endforeach()
  endif()
  set_tests_properties(${tests} PROPERTIES TIMEOUT ${arg_TIMEOUT} LABELS "${arg_LABELS}")
  # The thread sanitizer does not see how a BLAS package's own threads, which are not instrumented, hand over their work.
  if("thread" IN_LIST ORVIK_SANITIZE)
    set_property(TEST ${tests} APPEND PROPERTY ENVIRONMENT OPENBLAS_NUM_THREADS=1 BLIS_NUM_THREADS=1)
  endif()
  if(NOT TARGET tests_with_threads)
    add_custom_target(tests_with_threads)
  endif()
  if("threads" IN_LIST arg_LABELS)
    add_dependencies(tests_with_threads ${name})
  endif()
endfunction()
