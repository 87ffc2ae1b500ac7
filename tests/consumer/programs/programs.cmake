# The programs of a user and their tests, in a project that has the library: consumer_programs(LIBRARY SUFFIX).
#
# All are linked as distributions do, without libraries that nothing needs by name. The tables are reached from a program, from
# a static and from a shared library of the user's, since the way that flags take differs.
set(CMAKE_CXX_STANDARD 20)
string(APPEND CMAKE_EXE_LINKER_FLAGS " -Wl,--as-needed")
string(APPEND CMAKE_SHARED_LINKER_FLAGS " -Wl,--as-needed")

function(consumer_programs library suffix)
  set(programs ${CMAKE_CURRENT_FUNCTION_LIST_DIR})
  add_executable(c${suffix} ${programs}/consumer.c)
  target_link_libraries(c${suffix} PRIVATE ${library} m)
  add_executable(cxx${suffix} ${programs}/consumer.cc)
  target_link_libraries(cxx${suffix} PRIVATE ${library})

  add_executable(tables${suffix} ${programs}/tables_main.c ${programs}/tables.c)
  target_link_libraries(tables${suffix} PRIVATE ${library})
  foreach(kind STATIC SHARED)
    string(TOLOWER ${kind} word)
    add_library(user_${word}${suffix} ${kind} ${programs}/tables.c)
    set_target_properties(user_${word}${suffix} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    target_link_libraries(user_${word}${suffix} PRIVATE ${library})
    add_executable(tables_in_${word}${suffix} ${programs}/tables_main.c)
    target_link_libraries(tables_in_${word}${suffix} PRIVATE user_${word}${suffix})
  endforeach()

  foreach(program c cxx tables tables_in_static tables_in_shared)
    add_test(NAME ${program}${suffix} COMMAND ${program}${suffix})
  endforeach()
endfunction()

# The same over the front.
function(consumer_front_programs library suffix)
  foreach(language c cc)
    add_executable(front_${language}${suffix} ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/front.${language})
    target_link_libraries(front_${language}${suffix} PRIVATE ${library})
    add_test(NAME front_${language}${suffix} COMMAND front_${language}${suffix})
  endforeach()
endfunction()
