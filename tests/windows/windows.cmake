# What only the Windows program has.
add_executable(hold_open windows/hold_open.cpp)
target_link_libraries(hold_open PRIVATE vantelgis_options)
add_test(NAME held_output COMMAND Python3::Interpreter
  ${CMAKE_CURRENT_SOURCE_DIR}/windows/held_output_test.py --program $<TARGET_FILE:vantelgis>
  --holder $<TARGET_FILE:hold_open> --launcher "${CMAKE_CROSSCOMPILING_EMULATOR}")
set_tests_properties(held_output PROPERTIES TIMEOUT 120)
# Names in other alphabets, in the pages of two locales.
add_executable(half_character windows/half_character.cpp)
target_link_libraries(half_character PRIVATE vantelgis_options)
foreach(page 1252 932)
  add_test(NAME names_${page} COMMAND Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/windows/names_test.py
    ${page} $<TARGET_FILE:vantelgis> $<TARGET_FILE:vantelgis-batch> $<TARGET_FILE:drop_target>
    $<TARGET_FILE:half_character> "${CMAKE_CROSSCOMPILING_EMULATOR}")
  set_tests_properties(names_${page} PROPERTIES TIMEOUT 300)
endforeach()
# What the batch does otherwise than on POSIX.
add_test(NAME batch_windows COMMAND Python3::Interpreter
  ${CMAKE_CURRENT_SOURCE_DIR}/windows/batch_test.py --batch $<TARGET_FILE:vantelgis-batch>
  --program $<TARGET_FILE:vantelgis> --stand-in $<TARGET_FILE:batch_stand_in>
  --launcher "${CMAKE_CROSSCOMPILING_EMULATOR}")
set_tests_properties(batch_windows PROPERTIES TIMEOUT 300)
# The zip as its users unpack it.
add_test(NAME zip_packed COMMAND ${PROJECT_SOURCE_DIR}/tools/build-windows)
add_test(NAME zip COMMAND Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/windows/zip_test.py
  ${PROJECT_SOURCE_DIR}/dist/vantelgis-${PROJECT_VERSION}-windows-x64.zip ${PROJECT_VERSION}
  "${CMAKE_CROSSCOMPILING_EMULATOR}")
set_tests_properties(zip_packed PROPERTIES FIXTURES_SETUP zip)
set_tests_properties(zip PROPERTIES FIXTURES_REQUIRED zip TIMEOUT 600)
if(TARGET vantelgis_toolkit)
  add_test(NAME library COMMAND Python3::Interpreter
    ${CMAKE_CURRENT_SOURCE_DIR}/windows/library_test.py --build ${PROJECT_BINARY_DIR}
    --compiler ${CMAKE_C_COMPILER} --launcher "${CMAKE_CROSSCOMPILING_EMULATOR}")
  set_tests_properties(library PROPERTIES TIMEOUT 120 RESOURCE_LOCK build_folder)
endif()
