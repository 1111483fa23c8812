find_package(GTest REQUIRED)

# Paths of this build, in one source file.
set(places_source ${PROJECT_SOURCE_DIR}/test_support/places.cpp)
set(places LUMO_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
if(LUMOSEMINAR_WITH_ODBC)
    list(APPEND places LUMO_SCRIPTED_DRIVER="$<TARGET_FILE:lumo_odbc_scripted_driver>")
endif()
if(LUMOSEMINAR_FRONTEND)
    list(APPEND places LUMO_PROGRAM="$<TARGET_FILE:lumoseminar>")
endif()
set_source_files_properties(${places_source} PROPERTIES COMPILE_DEFINITIONS "${places}" SKIP_PRECOMPILE_HEADERS ON)

# Optimised, the tests themselves take twice as long to build and run no faster for it.
function(lumo_test_code target)
    target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR})
    target_compile_options(${target} PRIVATE $<$<CONFIG:Sanitized,Release>:-O0>)
    target_link_libraries(${target} PRIVATE lumo_warnings)
endfunction()

file(GLOB_RECURSE test_sources CONFIGURE_DEPENDS LumoSeminar/*_test.cpp LumoConnection/*_test.cpp)
# Puts failures between SQLite and the system, for a whole process.
set(faults_source ${PROJECT_SOURCE_DIR}/LumoConnection/embedded/faults_test.cpp)
list(REMOVE_ITEM test_sources ${faults_source})
add_executable(lumo_fault_tests ${faults_source})
lumo_test_code(lumo_fault_tests)
target_link_libraries(lumo_fault_tests PRIVATE LumoConnectionStatic SQLite::SQLite3 GTest::gtest)
foreach(share 0 1)
    add_test(NAME lumo_fault_tests_${share} COMMAND lumo_fault_tests --gtest_brief=1)
    set_tests_properties(
        lumo_fault_tests_${share}
        PROPERTIES ENVIRONMENT "GTEST_TOTAL_SHARDS=2;GTEST_SHARD_INDEX=${share}" TIMEOUT 600
    )
endforeach()

# Eight threads at once; the preset tsan builds this one under ThreadSanitizer.
set(threads_source ${PROJECT_SOURCE_DIR}/LumoSeminar/threads_test.cpp)
list(REMOVE_ITEM test_sources ${threads_source})
add_executable(lumo_thread_tests ${threads_source} ${places_source})
lumo_test_code(lumo_thread_tests)
target_link_libraries(lumo_thread_tests PRIVATE LumoConnectionStatic GTest::gtest_main)
add_test(NAME lumo_thread_tests COMMAND lumo_thread_tests --gtest_brief=1)

if(NOT LUMOSEMINAR_WITH_ODBC)
    list(FILTER test_sources EXCLUDE REGEX "/LumoConnection/odbc/")
endif()
add_executable(lumo_tests ${test_sources} ${places_source})
lumo_test_code(lumo_tests)
target_link_libraries(lumo_tests PRIVATE LumoConnectionStatic SQLite::SQLite3 GTest::gmock_main)
if(LUMOSEMINAR_WITH_ODBC)
    # Drivers that the driver manager loads: one plays a script, one runs its texts on the embedded database.
    foreach(server scripted engine)
        set(driver lumo_odbc_${server}_driver)
        add_library(${driver} MODULE test_support/odbc_driver/driver.cpp test_support/odbc_driver/${server}.cpp)
        lumo_test_code(${driver})
        target_include_directories(${driver} PRIVATE ${ODBC_INCLUDE_DIRS})
        target_link_options(${driver} PRIVATE LINKER:-Bsymbolic LINKER:--exclude-libs,ALL)
        add_dependencies(lumo_tests ${driver})
    endforeach()
    target_link_libraries(lumo_odbc_engine_driver PRIVATE LumoConnectionStatic)
    target_link_libraries(lumo_tests PRIVATE ODBC::ODBC ${CMAKE_DL_LIBS})
endif()
target_precompile_headers(lumo_tests PRIVATE <gmock/gmock.h> <gtest/gtest.h>)

if(LUMOSEMINAR_FRONTEND)
    file(GLOB_RECURSE frontend_test_sources CONFIGURE_DEPENDS frontend/*_test.cpp)
    if(NOT LUMOSEMINAR_WITH_ODBC)
        list(FILTER frontend_test_sources EXCLUDE REGEX "/server_test\\.cpp$")
    endif()
    target_sources(lumo_tests PRIVATE ${frontend_test_sources})
    target_link_libraries(lumo_tests PRIVATE frontend)
    add_dependencies(lumo_tests lumoseminar)
endif()

# A process for each test costs more than most tests do: the tests run in shares, one process a share.
# One test alone: lumo_tests --gtest_filter=NAME
set(shares 4)
math(EXPR last "${shares} - 1")
foreach(share RANGE ${last})
    add_test(NAME lumo_tests_${share} COMMAND lumo_tests --gtest_brief=1)
    set_tests_properties(
        lumo_tests_${share}
        PROPERTIES ENVIRONMENT "GTEST_TOTAL_SHARDS=${shares};GTEST_SHARD_INDEX=${share}" TIMEOUT 600
    )
endforeach()

if(LUMOSEMINAR_WITH_ODBC)
    # What runs on a server where LUMOSEMINAR_TEST_ODBC names one, through the driver manager to the embedded database.
    set(by_odbc "Driver=$<TARGET_FILE:lumo_odbc_engine_driver>\\;Database")
    add_test(
        NAME lumo_tests_by_odbc
        COMMAND
            lumo_tests --gtest_brief=1
            --gtest_filter=*ForReal*:*Contract*:RequestRoad.*:EnrolmentChecksOf*:LifeOf*:Process*:Sample.*:-*/Embedded*
    )
    set_tests_properties(
        lumo_tests_by_odbc PROPERTIES ENVIRONMENT "LUMOSEMINAR_TEST_ODBC=${by_odbc}=:memory:" TIMEOUT 600
    )
    add_test(NAME lumo_thread_tests_by_odbc COMMAND lumo_thread_tests --gtest_brief=1)
    set_tests_properties(
        lumo_thread_tests_by_odbc
        PROPERTIES ENVIRONMENT "LUMOSEMINAR_TEST_ODBC=${by_odbc}=${PROJECT_BINARY_DIR}/threads_by_odbc.db"
    )
    if(LUMOSEMINAR_FRONTEND)
        add_test(
            NAME tour_by_odbc
            COMMAND
                ${PROJECT_SOURCE_DIR}/tools/tour $<TARGET_FILE:lumoseminar> ${PROJECT_BINARY_DIR}/tour_by_odbc.db
                $<TARGET_FILE:lumo_odbc_engine_driver>
        )
    endif()
endif()

find_program(CLANG_FORMAT clang-format)
if(CLANG_FORMAT)
    add_test(NAME format COMMAND ${PROJECT_SOURCE_DIR}/tools/format --check)
endif()
add_test(NAME headers COMMAND ${PROJECT_SOURCE_DIR}/tools/check_headers)
add_test(NAME headers_checker COMMAND ${PROJECT_SOURCE_DIR}/tools/check_headers --self-test)

if(LUMOSEMINAR_FRONTEND)
    add_test(
        NAME tour
        COMMAND ${PROJECT_SOURCE_DIR}/tools/tour $<TARGET_FILE:lumoseminar> ${PROJECT_BINARY_DIR}/tour.db
    )
endif()

# Installs into the build folder and uses the library from there, as another project would.
add_test(
    NAME package
    COMMAND
        ${CMAKE_COMMAND} -DBUILD=${PROJECT_BINARY_DIR} -DSOURCE=${PROJECT_SOURCE_DIR} -DCXX=${CMAKE_CXX_COMPILER}
        "-DFLAGS=${CMAKE_CXX_FLAGS}" -DCONFIG=${CMAKE_BUILD_TYPE} -P ${PROJECT_SOURCE_DIR}/cmake/PackageTest.cmake
)
