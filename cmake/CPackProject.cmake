# Read by cpack for each generator. Extensions of Python have no soname, which CPack tells developers of each time that it makes a package.
set(CMAKE_SUPPRESS_DEVELOPER_WARNINGS ON)
