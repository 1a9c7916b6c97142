# cmake --install: headers under include/NolSchedCtls and include/outlook, the libraries, the package for
# find_package, and .pc files: of the shared library, and of the outlook beside it.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS NolSchedCtls NolSchedCtlsShared NolSchedOutlook EXPORT NolSchedCtls
    ARCHIVE COMPONENT development
    LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
    RUNTIME COMPONENT runtime
    FILE_SET HEADERS COMPONENT development)
install(EXPORT NolSchedCtls
    NAMESPACE NolSchedCtls::
    FILE NolSchedCtlsTargets.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/NolSchedCtls
    COMPONENT development)

configure_package_config_file(cmake/NolSchedCtlsConfig.cmake.in NolSchedCtlsConfig.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/NolSchedCtls)
write_basic_package_version_file(NolSchedCtlsConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(
    FILES ${PROJECT_BINARY_DIR}/NolSchedCtlsConfig.cmake ${PROJECT_BINARY_DIR}/NolSchedCtlsConfigVersion.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/NolSchedCtls
    COMPONENT development)

file(RELATIVE_PATH prefix_from_pc /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)  # the package may be moved as a whole
foreach(part NolSchedCtls NolSchedOutlook)
    configure_file(cmake/${part}.pc.in ${part}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${part}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endforeach()
install(
    FILES docs/embedding.md
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libnolschedctls-dev
    COMPONENT development)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libnolschedctls-dev COMPONENT development)
