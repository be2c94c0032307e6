# What makes the program fit to be left alone: faults of the system and batch runs.

# The program on files in memory. Its platform layer stands before that of the library.
add_library(memory_support OBJECT
  memory/memory_platform.cpp memory/memory_run.cpp support/fresh_start.cpp)
target_link_libraries(memory_support PUBLIC vantelgis_core)
target_include_directories(memory_support PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})

file(GLOB fault_tests CONFIGURE_DEPENDS faults/*.cpp)
add_executable(fault_tests ${fault_tests})
target_link_libraries(fault_tests PRIVATE memory_support vantelgis_core GTest::gtest_main)
add_test(NAME faults COMMAND fault_tests)

if(NOT CMAKE_CROSSCOMPILING)
  add_test(NAME batch COMMAND Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/batch_test.py
    --program $<TARGET_FILE:vantelgis>)
  add_test(NAME guide COMMAND Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/docs_test.py
    --program $<TARGET_FILE:vantelgis>)
endif()
