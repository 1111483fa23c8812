# What makes the build quicker where it is installed.

# Unless another launcher is chosen.
find_program(CCACHE ccache)
if(CCACHE AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER AND NOT DEFINED ENV{CMAKE_CXX_COMPILER_LAUNCHER})
    set(CMAKE_CXX_COMPILER_LAUNCHER ${PROJECT_SOURCE_DIR}/tools/compile_cached)
endif()

# Links the tests with the sanitizers in a fifth of the time.
find_program(LLD ld.lld)
if(LLD AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    add_link_options($<$<CONFIG:Sanitized>:-fuse-ld=lld>)
endif()
