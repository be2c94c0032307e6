# The routine set as a shared library, with its headers, a package for CMake and one for pkg-config, so
# that other programs can link against it: find_package(vantelgis), targets vantelgis::toolkit (C++) and
# vantelgis::c.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(foundation_sources ${vantelgis_sources})
list(FILTER foundation_sources INCLUDE REGEX "/(text|run)/[^/]*\\.cpp$")

add_library(vantelgis_toolkit SHARED
  $<TARGET_OBJECTS:vantelgis_routines> toolkit/host_process.cpp ${foundation_sources})
target_link_libraries(vantelgis_toolkit PRIVATE $<BUILD_INTERFACE:vantelgis_options>)
target_include_directories(vantelgis_toolkit PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})

if(WIN32)
  set(development_folder dev)
  set(header_folder dev/include)
  set(library_folder dev)
  set(package_folder dev/cmake)
else()
  set(development_folder ${CMAKE_INSTALL_DATADIR}/vantelgis)
  set(header_folder ${CMAKE_INSTALL_INCLUDEDIR}/vantelgis)
  set(library_folder ${CMAKE_INSTALL_LIBDIR})
  set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/vantelgis)
endif()

# What the library shows: one list, in the form that each linker reads.
set(toolkit_exports ${PROJECT_SOURCE_DIR}/cmake/toolkit_exports.map)
set(toolkit_scripts ${PROJECT_SOURCE_DIR}/cmake/toolkit)
find_package(Python3 3.8 REQUIRED COMPONENTS Interpreter)
if(WIN32)
  set(definitions ${CMAKE_CURRENT_BINARY_DIR}/vantelgis_toolkit.def)
  execute_process(COMMAND ${Python3_EXECUTABLE} ${toolkit_scripts}/exports_def.py ${toolkit_exports}
    OUTPUT_FILE ${definitions} COMMAND_ERROR_IS_FATAL ANY)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${toolkit_exports})
  target_sources(vantelgis_toolkit PRIVATE ${definitions})
  target_link_options(vantelgis_toolkit PRIVATE -static -s -Wl,--no-insert-timestamp)
  set_target_properties(vantelgis_toolkit PROPERTIES PREFIX "")
  # The import library that the other compiler's linker reads.
  add_custom_command(TARGET vantelgis_toolkit POST_BUILD
    COMMAND ${CMAKE_DLLTOOL} -d ${definitions} -D vantelgis_toolkit.dll -l vantelgis_toolkit.lib
    BYPRODUCTS vantelgis_toolkit.lib VERBATIM)
  install(FILES ${definitions} ${CMAKE_CURRENT_BINARY_DIR}/vantelgis_toolkit.lib
    DESTINATION ${library_folder} COMPONENT development)
else()
  target_link_options(vantelgis_toolkit PRIVATE -Wl,--version-script=${toolkit_exports})
  set_target_properties(vantelgis_toolkit PROPERTIES LINK_DEPENDS ${toolkit_exports})
endif()
set_target_properties(vantelgis_toolkit PROPERTIES
  FOUNDATION_SOURCES "${foundation_sources};${toolkit_sources}"
  EXPORT_NAME library
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR})

# The headers that declare the set, and those that they include. Those for C are included by their mere
# names, those for C++ with their folders.
file(GLOB toolkit_headers RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} CONFIGURE_DEPENDS toolkit/*.h)
list(REMOVE_ITEM toolkit_headers toolkit/line_pieces.h toolkit/host.h)
list(APPEND toolkit_headers
  text/text.h text/limits.h run/message_record.h run/opener_settings.h)
foreach(header IN LISTS toolkit_headers)
  get_filename_component(layer ${header} DIRECTORY)
  install(FILES ${header} DESTINATION ${header_folder}/${layer} COMPONENT development)
endforeach()
file(GLOB c_headers CONFIGURE_DEPENDS toolkit/c/vantelgis*.h)
install(FILES ${c_headers} DESTINATION ${header_folder} COMPONENT development)

# The module for Fortran is made from the headers for C.
set(fortran_module ${CMAKE_CURRENT_BINARY_DIR}/vantelgis.f90)
add_custom_command(OUTPUT ${fortran_module}
  COMMAND ${Python3_EXECUTABLE} ${toolkit_scripts}/fortran_module.py > ${fortran_module}
  DEPENDS ${c_headers} ${toolkit_scripts}/fortran_module.py ${toolkit_scripts}/c_headers.py VERBATIM)
add_custom_target(fortran_module ALL DEPENDS ${fortran_module})
add_custom_target(routine_page
  COMMAND ${Python3_EXECUTABLE} ${toolkit_scripts}/routine_page.py ${PROJECT_SOURCE_DIR}/docs/routines.md)
install(FILES ${fortran_module} DESTINATION ${header_folder} COMPONENT development)

install(TARGETS vantelgis_toolkit EXPORT vantelgis-targets
  LIBRARY DESTINATION ${library_folder} COMPONENT development
  RUNTIME DESTINATION ${library_folder} COMPONENT development
  ARCHIVE DESTINATION ${library_folder} COMPONENT development)
install(EXPORT vantelgis-targets NAMESPACE vantelgis:: DESTINATION ${package_folder}
  COMPONENT development)
configure_package_config_file(${toolkit_scripts}/vantelgis-config.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/vantelgis-config.cmake INSTALL_DESTINATION ${package_folder}
  PATH_VARS header_folder)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/vantelgis-config-version.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/vantelgis-config.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/vantelgis-config-version.cmake
  DESTINATION ${package_folder} COMPONENT development)
if(NOT WIN32)
  # An installation may be moved.
  file(RELATIVE_PATH prefix_above /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
  configure_file(${toolkit_scripts}/vantelgis.pc.in ${CMAKE_CURRENT_BINARY_DIR}/vantelgis.pc @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/vantelgis.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endif()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/toolkit
  DESTINATION ${development_folder}/examples COMPONENT development)
install(FILES ${PROJECT_SOURCE_DIR}/docs/routines.md DESTINATION ${development_folder}
  COMPONENT development)
