# cpack -G DEB: a package for each component. A distributor gives address and, once it is chosen, the licence.
set(NOLSCHED_MAINTAINER "NolSchedCtls developers <nolsched@localhost>" CACHE STRING "Whom the packages name")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME nolschedctls)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)  # of exactly the same version
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${NOLSCHED_MAINTAINER})
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libnolschedctls${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "editor controls for schedule entries, shared library
Two data classes and six editor controls for the schedule entries of a
cellular-network performance client, without a toolkit: a host shows them.
This package is what programs need that have been linked with it.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libnolschedctls-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "editor controls for schedule entries, for developers
Two data classes and six editor controls for the schedule entries of a
cellular-network performance client, and the outlook that tells when an entry
runs.
This package is for writing hosts: headers, static archives, the files for
find_package and pkg-config, the guide and its examples.")

if(NOLSCHED_HOST)
    list(APPEND CPACK_COMPONENTS_ALL hosts)
    set(CPACK_DEBIAN_HOSTS_PACKAGE_NAME nolsched)
    set(CPACK_DEBIAN_HOSTS_PACKAGE_SECTION utils)
    set(CPACK_DEBIAN_HOSTS_PACKAGE_SHLIBDEPS ON)
    # They are loaded when they are needed, so that nothing links them.
    set(CPACK_DEBIAN_HOSTS_PACKAGE_RECOMMENDS "libpq5, libical3, libedit2")
    set(CPACK_DEBIAN_HOSTS_DESCRIPTION "editor of schedule entries, as a window and for scripts
Lists, edits and checks the schedule entries of a cellular-network
performance client, on SQLite or PostgreSQL: nolsched-editor is a window,
nolsched takes commands and scripts.")
endif()
include(CPack)
