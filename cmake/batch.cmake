# vantelgis-batch: what is in src/batch, on the converter's own readers. The guide's page of messages
# is part of it.
include(${PROJECT_SOURCE_DIR}/cmake/command_line.cmake)

file(GLOB_RECURSE batch_sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/batch/*.cpp)
list(FILTER batch_sources EXCLUDE REGEX "/batch/main\\.cpp$")
if(WIN32)
  list(FILTER batch_sources EXCLUDE REGEX "/batch/platform_posix[^/]*\\.cpp$")
else()
  list(FILTER batch_sources EXCLUDE REGEX "/batch/platform_windows[^/]*\\.cpp$")
endif()

set(messages_page ${PROJECT_SOURCE_DIR}/docs/messages.md)
set(messages_source ${CMAKE_CURRENT_BINARY_DIR}/messages_page.cpp)
add_custom_command(OUTPUT ${messages_source}
  COMMAND ${CMAKE_COMMAND} -DINPUT=${messages_page} -DOUTPUT=${messages_source}
    -DNAME=kMessagesPage -DNAMESPACE=vantelgis::batch
    -P ${PROJECT_SOURCE_DIR}/cmake/embed_text.cmake
  DEPENDS ${messages_page} ${PROJECT_SOURCE_DIR}/cmake/embed_text.cmake VERBATIM)

find_package(Threads REQUIRED)
add_library(vantelgis_batch_core STATIC ${batch_sources} ${messages_source})
target_compile_definitions(vantelgis_batch_core PUBLIC VANTELGIS_VERSION="${PROJECT_VERSION}")
# g++ 12 takes "text" + std::string for an overlapping copy.
target_compile_options(vantelgis_batch_core PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
target_link_libraries(vantelgis_batch_core PUBLIC vantelgis_core command_line Threads::Threads)

add_executable(vantelgis-batch batch/main.cpp)
target_link_libraries(vantelgis-batch PRIVATE vantelgis_batch_core)
