# Compile options shared by every target of this project.
add_library(vantelgis_options INTERFACE)
target_compile_options(vantelgis_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow
  # A fused multiply-add rounds once where the written results round twice.
  -ffp-contract=off
  # GCC 12 warns of overlaps in the run-time's own operator+ of strings; they can't be.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
if(CMAKE_BUILD_TYPE STREQUAL "Release")
  # What is shipped is the same wherever it was built.
  target_compile_options(vantelgis_options INTERFACE -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
endif()
target_compile_definitions(vantelgis_options INTERFACE _FILE_OFFSET_BITS=64)

if(VANTELGIS_WERROR)
  target_compile_options(vantelgis_options INTERFACE -Werror)
endif()
if(VANTELGIS_COVERAGE)
  # Several tests run the program at the same time.
  target_compile_options(vantelgis_options INTERFACE --coverage -fprofile-update=atomic)
  target_link_options(vantelgis_options INTERFACE --coverage)
endif()
if(VANTELGIS_SANITIZE)
  target_compile_options(vantelgis_options INTERFACE
    -fsanitize=${VANTELGIS_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(vantelgis_options INTERFACE -fsanitize=${VANTELGIS_SANITIZE})
endif()
