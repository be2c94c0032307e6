# What is shipped: an installation, the Debian packages and the archive for any Linux in the folders
# that are usual there; for Windows the folder that becomes the zip. The routine set for other programs
# is the component "development", all the rest "program".
include(GNUInstallDirs)
find_package(Python3 3.8 COMPONENTS Interpreter)

# The programs, each with a line about it and the option that prints all of its help, as far as this
# build has them.
set(about_vantelgis "Converts between 12d Model archives and GIS layers")
set(about_vantelgis-batch "Converts many files and says which results are right")
set(about_vantelgis-gpkg "Converts between 12d Model archives and GeoPackages")
set(help_vantelgis-batch --help-all)
set(help_vantelgis-gpkg --help)
set(shipped_programs "")
foreach(program vantelgis vantelgis-batch vantelgis-gpkg)
  if(TARGET ${program})
    list(APPEND shipped_programs ${program})
  endif()
endforeach()

if(WIN32)
  set(program_folder .)
  set(document_folder .)
else()
  set(program_folder ${CMAKE_INSTALL_BINDIR})
  set(document_folder ${CMAKE_INSTALL_DOCDIR})
endif()
install(TARGETS ${shipped_programs} RUNTIME DESTINATION ${program_folder} COMPONENT program)
if(WIN32)
  include(${CMAKE_CURRENT_LIST_DIR}/windows_programs.cmake)
endif()
include(${CMAKE_CURRENT_LIST_DIR}/documents.cmake)

# What `cmake --install` and cpack build before they copy.
add_custom_target(shipped DEPENDS ${shipped_programs} ${shipped_documents})
if(TARGET vantelgis_toolkit)
  add_dependencies(shipped vantelgis_toolkit fortran_module)
endif()

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
