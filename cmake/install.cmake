# cmake --install: headers under include/NolSchedCtls and include/outlook, the libraries, the package for
# find_package, and a .pc file of the shared library.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS NolSchedCtls NolSchedCtlsShared NolSchedOutlook EXPORT NolSchedCtls COMPONENT library)
install(EXPORT NolSchedCtls
    NAMESPACE NolSchedCtls::
    FILE NolSchedCtlsTargets.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/NolSchedCtls
    COMPONENT library)

# Headers that a host includes, with what they include; the others stay inside.
set(private_headers
    records/sql.h
    tabs/override/numeric_text.h
    tabs/override/override_kind.h
    tabs/schedule/exclusions.h
    tabs/schedule/load_step.h
    tabs/schedule/schedule_texts.h
    toolkit/date_text.h)
list(TRANSFORM private_headers PREPEND NolSchedCtls/)
file(GLOB_RECURSE headers RELATIVE ${PROJECT_SOURCE_DIR} CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/NolSchedCtls/*.h ${PROJECT_SOURCE_DIR}/outlook/*.h)
list(REMOVE_ITEM headers ${private_headers})
foreach(header ${headers})
    cmake_path(GET header PARENT_PATH folder)
    install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${folder} COMPONENT library)
endforeach()

configure_package_config_file(cmake/NolSchedCtlsConfig.cmake.in NolSchedCtlsConfig.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/NolSchedCtls)
write_basic_package_version_file(NolSchedCtlsConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(
    FILES ${PROJECT_BINARY_DIR}/NolSchedCtlsConfig.cmake ${PROJECT_BINARY_DIR}/NolSchedCtlsConfigVersion.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/NolSchedCtls
    COMPONENT library)

file(RELATIVE_PATH prefix_from_pc /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)  # the package may be moved as a whole
configure_file(cmake/NolSchedCtls.pc.in NolSchedCtls.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/NolSchedCtls.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT library)
