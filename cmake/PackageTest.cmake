# cmake -DBUILD= -DSOURCE= -DCXX= -DFLAGS= -DCONFIG= -P PackageTest.cmake
# Installs a built tree, moves it, and builds and runs the examples from it: with find_package(), and all but
# examples/front_end with the flags of pkg-config as well.
cmake_minimum_required(VERSION 3.25)

set(work ${BUILD}/package_test)
set(prefix ${work}/moved)
file(REMOVE_RECURSE ${work})

function(check_run output)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE text ERROR_VARIABLE text)
    if(NOT result EQUAL 0)
        list(JOIN ARGN " " command)
        message(NOTICE "${text}")
        message(FATAL_ERROR "Failed (${result}): ${command}")
    endif()
    set(${output} "${text}" PARENT_SCOPE)
endfunction()

check_run(ignored ${CMAKE_COMMAND} --install ${BUILD} --prefix ${work}/installed)
file(RENAME ${work}/installed ${prefix})

include(${SOURCE}/cmake/LumoLibrary.cmake)
file(GLOB_RECURSE headers RELATIVE ${SOURCE} ${SOURCE}/LumoSeminar/*.h ${SOURCE}/LumoConnection/*.h)
list(FILTER headers EXCLUDE REGEX "_test\\.h$")
set(PROJECT_SOURCE_DIR ${SOURCE})
lumo_public_headers(expected_headers ${headers})
file(GLOB_RECURSE installed_headers RELATIVE ${prefix}/include ${prefix}/include/*)
list(SORT expected_headers)
list(SORT installed_headers)
if(NOT installed_headers STREQUAL expected_headers)
    message(NOTICE "Installed headers:\n  ${installed_headers}\nbut public are:\n  ${expected_headers}")
    message(FATAL_ERROR "Wrong headers are installed")
endif()

file(GLOB_RECURSE pkgconfig_file ${prefix}/LumoSeminar.pc)
cmake_path(GET pkgconfig_file PARENT_PATH pkgconfig_dir)
cmake_path(GET pkgconfig_dir PARENT_PATH library_dir)
foreach(file libLumoSeminar091.so libLumoSeminar091.a libLumoConnection091.so libLumoConnection091.a)
    if(NOT EXISTS ${library_dir}/${file})
        message(FATAL_ERROR "Not installed: ${file}")
    endif()
endforeach()
foreach(
    file lumoseminar/schema.sql lumoseminar/sample.sql lumoseminar/process.sql lumoseminar/process_sample.sql
         doc/lumoseminar/LICENSE
)
    if(NOT EXISTS ${prefix}/share/${file})
        message(FATAL_ERROR "Not installed: share/${file}")
    endif()
endforeach()
foreach(
    file
    bash-completion/completions/lumoseminar zsh/site-functions/_lumoseminar fish/vendor_completions.d/lumoseminar.fish
    man/man1/lumoseminar.1 man/man1/lumoseminar-seminars.1
)
    if(NOT EXISTS ${prefix}/share/${file})
        message(FATAL_ERROR "Not installed: share/${file}")
    endif()
endforeach()

function(build_example example folder)
    check_run(
        ignored ${CMAKE_COMMAND} -S ${SOURCE}/examples/${example} -B ${folder} -G Ninja -DCMAKE_PREFIX_PATH=${prefix}
        -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_CXX_FLAGS=${FLAGS} -DCMAKE_BUILD_TYPE=${CONFIG}
    )
    check_run(ignored ${CMAKE_COMMAND} --build ${folder})
endfunction()

# Runs a program in an empty folder of its own, far from the package.
function(expect_output example program)
    file(READ ${SOURCE}/examples/${example}/expected_output.txt expected)
    file(MAKE_DIRECTORY ${work}/elsewhere)
    check_run(output ${CMAKE_COMMAND} -E chdir ${work}/elsewhere ${program})
    if(NOT output STREQUAL expected)
        message(NOTICE "${program} printed:\n${output}\nbut was to print:\n${expected}")
        message(FATAL_ERROR "Wrong output")
    endif()
endfunction()

build_example(front_end ${work}/front_end)
expect_output(front_end ${work}/front_end/front_end_example)

build_example(package ${work}/consumer)

set(ENV{PKG_CONFIG_PATH} ${pkgconfig_dir})
check_run(pkgconfig_flags pkg-config --cflags --libs LumoConnection)
separate_arguments(pkgconfig_flags UNIX_COMMAND "${pkgconfig_flags}")
separate_arguments(compile_flags UNIX_COMMAND "${FLAGS}")
function(build_by_pkgconfig example program)
    check_run(ignored ${CXX} ${compile_flags} ${SOURCE}/examples/${example}/main.cpp -o ${program} ${pkgconfig_flags})
endfunction()
build_by_pkgconfig(package ${work}/by_pkgconfig)

# The tables' definitions are found from each kind of library, in a package that was moved. The programs lie too deep to
# find those of the source tree; beside them lies a folder of the same name that holds something else.
check_run(schema_dir pkg-config --variable=schemadir LumoConnection)
string(STRIP "${schema_dir}" schema_dir)
cmake_path(NORMAL_PATH schema_dir)
if(NOT EXISTS ${schema_dir}/schema.sql)
    message(FATAL_ERROR "pkg-config names ${schema_dir} as the folder of schema.sql")
endif()
set(planning ${work}/planning/far/away)
build_example(planning ${planning})
build_by_pkgconfig(planning ${planning}/planning_by_pkgconfig)
file(MAKE_DIRECTORY ${planning}/schema)
file(WRITE ${planning}/schema/schema.sql "CREATE TABLE Other (a int)")
set(ENV{LD_LIBRARY_PATH} ${library_dir})
unset(ENV{LUMOSEMINAR_SCHEMA})
foreach(program planning_example planning_example_static planning_by_pkgconfig)
    expect_output(planning ${planning}/${program})
endforeach()

# The program of the README, on a fresh sample database each time.
file(READ ${SOURCE}/README.md readme)
file(READ ${SOURCE}/examples/package/main.cpp program_text)
string(FIND "${readme}" "${program_text}" in_readme)
if(in_readme EQUAL -1)
    message(FATAL_ERROR "The program in README.md is not examples/package/main.cpp")
endif()

file(READ ${SOURCE}/examples/package/expected_output.txt expected)
set(ENV{LD_LIBRARY_PATH} ${library_dir})
set(database ${work}/run/seminar.db)
file(MAKE_DIRECTORY ${work}/run)
foreach(program ${work}/consumer/seminar_example ${work}/consumer/seminar_example_static ${work}/by_pkgconfig)
    file(REMOVE ${database})
    check_run(ignored ${prefix}/bin/lumoseminar --connect "Provider=Embedded\;Data Source=${database}" init --sample)
    check_run(output ${CMAKE_COMMAND} -E chdir ${work}/run ${program})
    if(NOT output MATCHES "${expected}")
        message(NOTICE "${program} printed:\n${output}\nbut was to print this among the rest:\n${expected}")
        message(FATAL_ERROR "Wrong output")
    endif()
endforeach()
