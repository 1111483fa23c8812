# Compiles by way of ccache where it is installed, unless another launcher is chosen.
find_program(CCACHE ccache)
if(CCACHE AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER AND NOT DEFINED ENV{CMAKE_CXX_COMPILER_LAUNCHER})
    set(CMAKE_CXX_COMPILER_LAUNCHER ${PROJECT_SOURCE_DIR}/tools/compile_cached)
endif()
