# What the programs around the converter share in reading their options.
include_guard(GLOBAL)
include(${PROJECT_SOURCE_DIR}/cmake/cli11.cmake)

add_library(command_line STATIC ${CMAKE_CURRENT_SOURCE_DIR}/command_line/nearest_option.cpp)
target_include_directories(command_line PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(command_line PUBLIC vantelgis_options cli11)
