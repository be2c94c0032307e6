# The routine set as a shared library, with its headers and a CMake package, so that other programs
# can link against it: find_package(vantelgis), target vantelgis::toolkit.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(foundation_sources ${vantelgis_sources})
list(FILTER foundation_sources INCLUDE REGEX "/(text|run)/[^/]*\\.cpp$")

add_library(vantelgis_toolkit SHARED
  $<TARGET_OBJECTS:vantelgis_routines> toolkit/host_process.cpp ${foundation_sources})
add_library(vantelgis::toolkit ALIAS vantelgis_toolkit)
target_include_directories(vantelgis_toolkit PUBLIC
  $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/vantelgis>)
target_compile_features(vantelgis_toolkit PUBLIC cxx_std_20)
target_link_libraries(vantelgis_toolkit PRIVATE $<BUILD_INTERFACE:vantelgis_options>)

set(toolkit_exports ${PROJECT_SOURCE_DIR}/cmake/toolkit_exports.map)
target_link_options(vantelgis_toolkit PRIVATE -Wl,--version-script=${toolkit_exports})
set_target_properties(vantelgis_toolkit PROPERTIES
  LINK_DEPENDS ${toolkit_exports}
  EXPORT_NAME toolkit
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR})

# The headers that declare the set, and those that they include.
file(GLOB toolkit_headers RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} CONFIGURE_DEPENDS toolkit/*.h)
list(REMOVE_ITEM toolkit_headers toolkit/line_pieces.h)
list(APPEND toolkit_headers
  text/text.h text/limits.h run/message_record.h run/opener_settings.h)
foreach(header IN LISTS toolkit_headers)
  get_filename_component(layer ${header} DIRECTORY)
  install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vantelgis/${layer}
    COMPONENT development)
endforeach()

install(TARGETS vantelgis_toolkit EXPORT vantelgis-targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/vantelgis)
install(EXPORT vantelgis-targets NAMESPACE vantelgis:: DESTINATION ${package_folder}
  FILE vantelgis-config.cmake COMPONENT development)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/vantelgis-config-version.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/vantelgis-config-version.cmake
  DESTINATION ${package_folder} COMPONENT development)
