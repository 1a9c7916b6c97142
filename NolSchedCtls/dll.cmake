# The shared library as a DLL: its objects with the marks of what it shows, and the version resource that says that
# it registers itself.
enable_language(RC)
get_target_property(sources nolsched_objects SOURCES)
get_target_property(definitions nolsched_objects COMPILE_DEFINITIONS)
add_library(nolsched_dll_objects OBJECT ${sources} library/component.cpp)
target_compile_definitions(nolsched_dll_objects PRIVATE NOLSCHED_BUILDS_SHARED ${definitions})
set(objects_NolSchedCtlsShared nolsched_dll_objects)

configure_file(library/version.rc.in version.rc @ONLY)
target_sources(NolSchedCtlsShared PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/version.rc)
target_compile_definitions(NolSchedCtlsShared INTERFACE NOLSCHED_USES_SHARED)
set_target_properties(NolSchedCtlsShared PROPERTIES PREFIX "")
