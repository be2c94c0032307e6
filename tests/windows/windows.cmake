# What only the Windows program has.
add_executable(hold_open windows/hold_open.cpp)
target_link_libraries(hold_open PRIVATE vantelgis_options)
add_test(NAME held_output COMMAND Python3::Interpreter
  ${CMAKE_CURRENT_SOURCE_DIR}/windows/held_output_test.py --program $<TARGET_FILE:vantelgis>
  --holder $<TARGET_FILE:hold_open> --launcher "${CMAKE_CROSSCOMPILING_EMULATOR}")
set_tests_properties(held_output PROPERTIES TIMEOUT 120)
add_test(NAME batch COMMAND Python3::Interpreter
  ${CMAKE_CURRENT_SOURCE_DIR}/windows/batch_test.py --program $<TARGET_FILE:vantelgis>
  --launcher "${CMAKE_CROSSCOMPILING_EMULATOR}")
set_tests_properties(batch PROPERTIES TIMEOUT 120)
