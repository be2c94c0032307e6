# What makes the program fit to be left alone: batch runs.
if(NOT CMAKE_CROSSCOMPILING)
  add_test(NAME batch COMMAND Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/batch_test.py
    --program $<TARGET_FILE:vantelgis>)
endif()
