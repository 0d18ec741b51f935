# The manual as pages for a browser, in build/.../manual, where the machine has cmark-gfm.
include(GNUInstallDirs)
find_program(CMARK_GFM cmark-gfm)
if(CMARK_GFM)
  set(MANUAL_SOURCE ${CMAKE_SOURCE_DIR}/docs/manual)
  set(MANUAL_HTML ${CMAKE_BINARY_DIR}/manual)
  file(GLOB MANUAL_SOURCES CONFIGURE_DEPENDS ${MANUAL_SOURCE}/*.md ${MANUAL_SOURCE}/*.png)
  add_custom_command(
    OUTPUT ${MANUAL_HTML}/index.html
    COMMAND ${CMAKE_COMMAND} -DCMARK_GFM=${CMARK_GFM} -DFROM=${MANUAL_SOURCE} -DTO=${MANUAL_HTML}
            -P ${CMAKE_SOURCE_DIR}/cmake/write_manual_html.cmake
    DEPENDS ${MANUAL_SOURCES} ${CMAKE_SOURCE_DIR}/cmake/write_manual_html.cmake ${CMAKE_SOURCE_DIR}/cmake/manual_page.html.in
    VERBATIM)
  add_custom_target(manual_html ALL DEPENDS ${MANUAL_HTML}/index.html)
  install(DIRECTORY ${MANUAL_HTML}/ DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/parvel-desktop/manual COMPONENT parvel-desktop)
endif()
