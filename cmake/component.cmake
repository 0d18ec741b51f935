# The component: the module with its contract, models and both engines as one shared library, for hosts of others.
# `cmake --install` gives library, headers, a CMake package and a pkg-config file.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(EXPORT_MAP ${CMAKE_SOURCE_DIR}/cmake/component.map)
file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/component.cpp CONTENT "// Holds nothing: the rooms hold it all.\n")
add_library(zorCrmParvel SHARED ${CMAKE_CURRENT_BINARY_DIR}/component.cpp)
target_link_libraries(zorCrmParvel PRIVATE sistema embedded sqlserver)
set_property(TARGET zorCrmParvel PROPERTY LINK_LIBRARY_OVERRIDE
  WHOLE_ARCHIVE,platform,host_contract,sistema,embedded,sqlserver)
target_link_options(zorCrmParvel PRIVATE -Wl,--version-script=${EXPORT_MAP} -Wl,-Bsymbolic-functions)
set_target_properties(zorCrmParvel PROPERTIES
  VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR} LINK_DEPENDS ${EXPORT_MAP})
target_compile_features(zorCrmParvel INTERFACE cxx_std_20)

set(HEADERS_DIR ${CMAKE_INSTALL_INCLUDEDIR}/zorCrmParvel)
target_include_directories(zorCrmParvel INTERFACE $<INSTALL_INTERFACE:${HEADERS_DIR}>)

function(install_headers room)
  list(TRANSFORM ARGN PREPEND ${CMAKE_SOURCE_DIR}/src/${room}/)
  list(TRANSFORM ARGN APPEND .h)
  install(FILES ${ARGN} DESTINATION ${HEADERS_DIR}/${room} COMPONENT component)
endfunction()
install(DIRECTORY ${CMAKE_SOURCE_DIR}/src/platform DESTINATION ${HEADERS_DIR} COMPONENT component
        FILES_MATCHING PATTERN *.h)
install_headers(host calendario data_access error_text ficha form_catalog list_view sistema statement)
install_headers(store store)
install_headers(embedded database database_check)
install_headers(sqlserver database limits)

set(PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/zorCrmParvel)
install(TARGETS zorCrmParvel EXPORT zorCrmParvel
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT component-run NAMELINK_COMPONENT component)
install(EXPORT zorCrmParvel NAMESPACE zorCrmParvel:: FILE zorCrmParvelConfig.cmake DESTINATION ${PACKAGE_DIR}
        COMPONENT component)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/zorCrmParvelConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
configure_file(${CMAKE_SOURCE_DIR}/cmake/zorCrmParvel.pc.in ${CMAKE_CURRENT_BINARY_DIR}/zorCrmParvel.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/zorCrmParvelConfigVersion.cmake DESTINATION ${PACKAGE_DIR}
        COMPONENT component)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/zorCrmParvel.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
        COMPONENT component)
