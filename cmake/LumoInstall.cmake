include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/LumoSeminar)

install(
    TARGETS LumoSeminar LumoSeminarStatic LumoConnection LumoConnectionStatic
    EXPORT LumoSeminarTargets
    FILE_SET HEADERS
)
install(EXPORT LumoSeminarTargets NAMESPACE LumoSeminar:: DESTINATION ${package_dir})
set(schema_dir ${CMAKE_INSTALL_DATADIR}/lumoseminar)
configure_package_config_file(
    cmake/LumoSeminarConfig.cmake.in cmake/LumoSeminarConfig.cmake
    INSTALL_DESTINATION ${package_dir}
    PATH_VARS schema_dir
)
write_basic_package_version_file(cmake/LumoSeminarConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(
    FILES
        ${PROJECT_BINARY_DIR}/cmake/LumoSeminarConfig.cmake
        ${PROJECT_BINARY_DIR}/cmake/LumoSeminarConfigVersion.cmake
    DESTINATION ${package_dir}
)

# The pkg-config files find the prefix from their own place, so that an installed tree can be moved.
file(RELATIVE_PATH prefix_from_pc /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
foreach(name LumoSeminar LumoConnection)
    configure_file(cmake/${name}.pc.in pkgconfig/${name}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/pkgconfig/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()

install(
    FILES schema/schema.sql schema/sample.sql schema/process.sql schema/process_sample.sql
    DESTINATION ${schema_dir}
)
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/lumoseminar)
if(LUMOSEMINAR_FRONTEND)
    install(TARGETS lumoseminar)
endif()
if(LUMOSEMINAR_FRONTEND AND NOT CMAKE_CROSSCOMPILING)
    set(frontend_share ${PROJECT_BINARY_DIR}/frontend/share)
    install(FILES ${frontend_share}/lumoseminar DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
    install(FILES ${frontend_share}/_lumoseminar DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
    install(FILES ${frontend_share}/lumoseminar.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
    install(DIRECTORY ${frontend_share}/man1 DESTINATION ${CMAKE_INSTALL_MANDIR})
endif()
