# What an installation holds, and the Debian package of it: the program, the script for many runs,
# their manual pages and the guide. The routine set for other programs is the component
# "development", a package of its own.
include(GNUInstallDirs)
find_package(Python3 3.8 COMPONENTS Interpreter)

set(batch_script ${PROJECT_SOURCE_DIR}/tools/vantelgis-batch)
file(GLOB guide_pages CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/docs/*.md ${PROJECT_SOURCE_DIR}/docs/*.svg)
if(Python3_FOUND)
  set(man_folder ${PROJECT_BINARY_DIR}/man)
  set(man_script ${PROJECT_SOURCE_DIR}/cmake/man_page.py)
  file(MAKE_DIRECTORY ${man_folder})
  add_custom_command(OUTPUT ${man_folder}/vantelgis.1
    COMMAND Python3::Interpreter ${man_script} guide ${PROJECT_SOURCE_DIR}/docs ${PROJECT_VERSION}
      > ${man_folder}/vantelgis.1
    DEPENDS ${man_script} ${guide_pages} VERBATIM)
  add_custom_command(OUTPUT ${man_folder}/vantelgis-batch.1
    COMMAND Python3::Interpreter ${man_script} usage ${batch_script} ${PROJECT_VERSION}
      > ${man_folder}/vantelgis-batch.1
    DEPENDS ${man_script} ${batch_script} VERBATIM)
  add_custom_target(manual_pages ALL
    DEPENDS ${man_folder}/vantelgis.1 ${man_folder}/vantelgis-batch.1)
  install(FILES ${man_folder}/vantelgis.1 ${man_folder}/vantelgis-batch.1
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT program)
else()
  message(STATUS "No Python: the manual pages are left out")
endif()

install(TARGETS vantelgis RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT program)
install(PROGRAMS ${batch_script} DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT program)
install(FILES ${guide_pages} DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT program)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples DESTINATION ${CMAKE_INSTALL_DOCDIR}
  COMPONENT program FILES_MATCHING
  PATTERN "*.mif" PATTERN "*.mid" PATTERN "*.12da" PATTERN "*.prj"
  PATTERN "*.shp" PATTERN "*.shx" PATTERN "*.dbf" PATTERN toolkit EXCLUDE)

set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "converts between 12d Model archives and GIS layers")
set(CPACK_PACKAGE_CONTACT "vantelgis support <support@vantelgis.example>")
set(CPACK_COMPONENTS_ALL program)
if(VANTELGIS_LIBRARY)
  list(APPEND CPACK_COMPONENTS_ALL development)
endif()
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME vantelgis)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME vantelgis-dev)
set(CPACK_STRIP_FILES ON)
include(CPack)
