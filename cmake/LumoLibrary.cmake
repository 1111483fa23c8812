# Gives in `result` those of the headers that are public by internal_headers.txt.
function(lumo_public_headers result)
    set(list_file ${PROJECT_SOURCE_DIR}/cmake/internal_headers.txt)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list_file})
    file(STRINGS ${list_file} patterns REGEX "^[^#]")
    foreach(header IN LISTS ARGN)
        set(public ON)
        foreach(pattern IN LISTS patterns)
            string(REGEX REPLACE "^!" "" glob "${pattern}")
            string(REPLACE "." "\\." regex "${glob}")
            string(REPLACE "*" ".*" regex "${regex}")
            if(header MATCHES "^${regex}$")
                string(FIND "${pattern}" "!" mark)
                if(mark EQUAL 0)
                    set(public ON)
                else()
                    set(public OFF)
                endif()
            endif()
        endforeach()
        if(public)
            list(APPEND public_headers ${header})
        endif()
    endforeach()
    set(${result} ${public_headers} PARENT_SCOPE)
endfunction()

# Makes the targets <name> (shared) and <name>Static of the sources in the folder <name>, compiled once, with their
# public headers. SHARED_LINKS and STATIC_LINKS are seen by users of the library, PRIVATE_LINKS are not. Sources that match
# EXCLUDE_SOURCES are left out. Most of the time that a source takes goes into the same few headers: those of PRECOMPILED are
# read once.
function(lumo_library name)
    cmake_parse_arguments(arg "" "EXCLUDE_SOURCES" "SHARED_LINKS;STATIC_LINKS;PRIVATE_LINKS;PRECOMPILED" ${ARGN})

    file(GLOB_RECURSE sources CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR} ${name}/*.cpp)
    file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR} ${name}/*.h)
    list(FILTER sources EXCLUDE REGEX "_test\\.cpp$")
    if(arg_EXCLUDE_SOURCES)
        list(FILTER sources EXCLUDE REGEX "${arg_EXCLUDE_SOURCES}")
    endif()
    list(FILTER headers EXCLUDE REGEX "_test\\.h$")
    lumo_public_headers(public_headers ${headers})

    add_library(${name}Objects OBJECT ${sources})
    set_target_properties(${name}Objects PROPERTIES POSITION_INDEPENDENT_CODE ON)
    target_include_directories(${name}Objects PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name}Objects PRIVATE lumo_warnings ${arg_PRIVATE_LINKS})

    target_precompile_headers(${name}Objects PRIVATE ${arg_PRECOMPILED})

    add_library(${name} SHARED $<TARGET_OBJECTS:${name}Objects>)
    add_library(${name}Static STATIC $<TARGET_OBJECTS:${name}Objects>)
    target_link_libraries(${name} PUBLIC ${arg_SHARED_LINKS} PRIVATE ${arg_PRIVATE_LINKS})
    target_link_libraries(${name}Static PUBLIC ${arg_STATIC_LINKS} PRIVATE ${arg_PRIVATE_LINKS})
    # The version stands in the file name as well: libraries of two versions can be installed side by side.
    set_target_properties(${name} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})

    foreach(library ${name} ${name}Static)
        add_library(LumoSeminar::${library} ALIAS ${library})
        set_target_properties(${library} PROPERTIES OUTPUT_NAME ${name}091 LINKER_LANGUAGE CXX)
        target_compile_features(${library} PUBLIC cxx_std_20)
        target_sources(${library} PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${public_headers})
    endforeach()
    # The target all_verify_interface_header_sets compiles each public header alone.
    set_target_properties(${name} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
endfunction()
