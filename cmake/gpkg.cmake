# vantelgis-gpkg: what is in src/gpkg, on the converter's own readers and writers and on SQLite.
include(${PROJECT_SOURCE_DIR}/cmake/command_line.cmake)
include(${PROJECT_SOURCE_DIR}/cmake/sqlite.cmake)

file(GLOB_RECURSE gpkg_sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/gpkg/*.cpp)
list(FILTER gpkg_sources EXCLUDE REGEX "/gpkg/main\\.cpp$")
if(WIN32)
  list(FILTER gpkg_sources EXCLUDE REGEX "/gpkg/platform_posix[^/]*\\.cpp$")
else()
  list(FILTER gpkg_sources EXCLUDE REGEX "/gpkg/platform_windows[^/]*\\.cpp$")
endif()

add_library(vantelgis_gpkg_core STATIC ${gpkg_sources})
target_compile_definitions(vantelgis_gpkg_core PRIVATE VANTELGIS_VERSION="${PROJECT_VERSION}")
target_link_libraries(vantelgis_gpkg_core PUBLIC vantelgis_core sqlite PRIVATE command_line)

add_executable(vantelgis-gpkg gpkg/main.cpp)
target_link_libraries(vantelgis-gpkg PRIVATE vantelgis_gpkg_core)
