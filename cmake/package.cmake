# What a system gets: the programs with their manual pages, completion, icon and entries, and the packages of them.
include(GNUInstallDirs)
set(PARVEL_RELEASE_DATE "2026-11-25")
set(PACKAGING ${CMAKE_SOURCE_DIR}/packaging)
set(MADE ${CMAKE_CURRENT_BINARY_DIR}/packaging)
file(MAKE_DIRECTORY ${MADE}/man ${MADE}/window)

# Made by the programs themselves, so that they say what these do.
add_custom_command(OUTPUT ${MADE}/man.stamp
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${MADE}/man ${MADE}/shell
  COMMAND ${CMAKE_COMMAND} -E make_directory ${MADE}/man ${MADE}/shell
  COMMAND parvel manual ${MADE}/man
  COMMAND ${CMAKE_COMMAND} -E rename ${MADE}/man/parvel.bash ${MADE}/shell/parvel
  COMMAND ${CMAKE_COMMAND} -E rename ${MADE}/man/_parvel ${MADE}/shell/_parvel
  COMMAND sh -c "gzip -9n man/*.1"
  COMMAND ${CMAKE_COMMAND} -E touch ${MADE}/man.stamp
  DEPENDS parvel WORKING_DIRECTORY ${MADE} VERBATIM)
set(PAGES ${MADE}/man.stamp)
install(TARGETS parvel RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT parvel)
install(DIRECTORY ${MADE}/man/ DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT parvel)
install(FILES ${MADE}/shell/parvel DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT parvel)
install(FILES ${MADE}/shell/_parvel DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions COMPONENT parvel)

set(PARTS parvel component-run component)
if(PARVEL_DESKTOP)
  list(APPEND PARTS parvel-desktop)
  add_custom_command(OUTPUT ${MADE}/window/parvel-desktop.1.gz
    COMMAND ${CMAKE_COMMAND} -DPROGRAM=$<TARGET_FILE:parvel-desktop> -DTEMPLATE=${PACKAGING}/parvel-desktop.1.in
            -DPAGE=${MADE}/window/parvel-desktop.1 -DPROJECT_VERSION=${PROJECT_VERSION}
            -P ${CMAKE_SOURCE_DIR}/cmake/window_page.cmake
    COMMAND gzip -9nf window/parvel-desktop.1
    DEPENDS parvel-desktop ${PACKAGING}/parvel-desktop.1.in WORKING_DIRECTORY ${MADE} VERBATIM)
  list(APPEND PAGES ${MADE}/window/parvel-desktop.1.gz)
  configure_file(${PACKAGING}/pt.parvel.Parvel.metainfo.xml.in ${MADE}/window/pt.parvel.Parvel.metainfo.xml @ONLY)
  install(TARGETS parvel-desktop RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT parvel-desktop)
  install(FILES ${MADE}/window/parvel-desktop.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT parvel-desktop)
  install(FILES ${PACKAGING}/pt.parvel.Parvel.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications
          COMPONENT parvel-desktop)
  install(FILES ${MADE}/window/pt.parvel.Parvel.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo
          COMPONENT parvel-desktop)
  install(FILES ${PACKAGING}/parvel-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME parvel.xml
          COMPONENT parvel-desktop)
  install(FILES ${PACKAGING}/parvel.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps
          COMPONENT parvel-desktop)
  foreach(size 16 32 48 128 256)
    install(FILES ${PACKAGING}/icons/${size}.png DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps
            RENAME parvel.png COMPONENT parvel-desktop)
  endforeach()
endif()
add_custom_target(manual_pages ALL DEPENDS ${PAGES})

# The packages. Their names, by what a system calls such things.
set(NAME_parvel parvel)
set(NAME_parvel-desktop parvel-desktop)
set(NAME_component-run libzorcrmparvel${PROJECT_VERSION_MAJOR})
set(NAME_component libzorcrmparvel-dev)
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME parvel)
set(CPACK_PACKAGE_VENDOR Parvel)
set(CPACK_PACKAGE_CONTACT "Parvel <parvel@localhost.localdomain>")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL ${PARTS})
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# Linkers, and so dpkg-shlibdeps, do not see what is loaded when it is wanted.
get_property(FILES GLOBAL PROPERTY LATE_FILES)
execute_process(COMMAND dpkg-query -S ${FILES} OUTPUT_VARIABLE OWNERS ERROR_QUIET)
string(REGEX REPLACE ":[^\n]*\n" ", " LATE_PACKAGES "${OWNERS}")
string(REGEX REPLACE ", $" "" LATE_PACKAGES "${LATE_PACKAGES}")

set(CPACK_DEBIAN_PARVEL_PACKAGE_SECTION database)
set(CPACK_DEBIAN_PARVEL_PACKAGE_DEPENDS "${LATE_PACKAGES}")
set(CPACK_DEBIAN_PARVEL_PACKAGE_SUGGESTS "parvel-desktop, tdsodbc")
set(CPACK_COMPONENT_PARVEL_DESCRIPTION "Fleet management in a terminal
Vehicles, drivers and the events of a vehicle's life: listed, imported,
reported on, and kept in one file or on an office's server.
The program speaks Portuguese.")
set(CPACK_DEBIAN_PARVEL-DESKTOP_PACKAGE_SECTION database)
set(CPACK_DEBIAN_PARVEL-DESKTOP_PACKAGE_DEPENDS "fonts-dejavu-core, hicolor-icon-theme, qt6-translations-l10n, ${LATE_PACKAGES}")
set(CPACK_DEBIAN_PARVEL-DESKTOP_PACKAGE_RECOMMENDS "parvel, qt6-wayland")
set(CPACK_COMPONENT_PARVEL-DESKTOP_DESCRIPTION "Fleet management in a window
Vehicles, drivers and the events of a vehicle's life, with what is about to
expire, reports over time, imports and a history.
The program speaks Portuguese.")
set(CPACK_DEBIAN_COMPONENT-RUN_PACKAGE_SECTION libs)
file(WRITE ${MADE}/library/shlibs
     "libzorCrmParvel ${PROJECT_VERSION_MAJOR} ${NAME_component-run} (>= ${PROJECT_VERSION})\n")
file(WRITE ${MADE}/library/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_COMPONENT-RUN_PACKAGE_CONTROL_EXTRA ${MADE}/library/shlibs ${MADE}/library/triggers)
set(CPACK_COMPONENT_COMPONENT-RUN_DESCRIPTION "Fleet management as a component: the library
The lists, record screens and alerts of a fleet, as models that a host
draws.")
set(CPACK_DEBIAN_COMPONENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_COMPONENT_PACKAGE_DEPENDS
    "${NAME_component-run} (= ${CPACK_DEBIAN_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
set(CPACK_COMPONENT_COMPONENT_DESCRIPTION "Fleet management as a component: headers
What a host needs to be built with the lists, record screens and alerts of
a fleet.")

set(PARVEL_RELEASE_STAMP "Wed, 25 Nov 2026 12:00:00 +0000")
foreach(part ${PARTS})
  set(PACKAGE ${NAME_${part}})
  string(TOUPPER ${part} PART)
  set(CPACK_DEBIAN_${PART}_PACKAGE_NAME ${PACKAGE})
  set(docs ${MADE}/doc/${PACKAGE})
  configure_file(${PACKAGING}/debian/changelog.in ${docs}/changelog.Debian @ONLY)
  file(COPY ${PACKAGING}/debian/copyright DESTINATION ${docs})
  file(COPY_FILE ${CMAKE_SOURCE_DIR}/CHANGELOG.md ${docs}/changelog ONLY_IF_DIFFERENT)
  execute_process(COMMAND gzip -9nf changelog changelog.Debian WORKING_DIRECTORY ${docs} COMMAND_ERROR_IS_FATAL ANY)
  install(DIRECTORY ${docs}/ DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${PACKAGE} COMPONENT ${part} EXCLUDE_FROM_ALL)
  configure_file(${PACKAGING}/debian/lintian-overrides.in ${MADE}/overrides/${PACKAGE} @ONLY)
  install(FILES ${MADE}/overrides/${PACKAGE} DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides COMPONENT ${part}
          EXCLUDE_FROM_ALL)
endforeach()
include(CPack)
