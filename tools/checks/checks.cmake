# Checks of what is no behaviour of the program: the sources (layers, words, layout, what clang-tidy
# has to say) and what is shipped. Runs in the tests' folder, as ctest carries them out.
set(checks ${PROJECT_SOURCE_DIR}/tools/checks)
function(add_check name)
  add_test(NAME ${name} COMMAND Python3::Interpreter ${checks}/check_${name}.py ${ARGN})
  set_tests_properties(${name} PROPERTIES LABELS tree SKIP_RETURN_CODE 77)
endfunction()

if(CMAKE_CROSSCOMPILING)
  add_check(dlls ${CMAKE_OBJDUMP} $<TARGET_FILE:vantelgis> $<TARGET_FILE:vantelgis-batch>
    $<TARGET_FILE:vantelgis-gpkg> $<TARGET_FILE:drop_target>)
  return()
endif()
# What can be said of the tree itself is said once, in the build without sanitizers.
if(VANTELGIS_SANITIZE)
  return()
endif()

add_check(includes)
add_check(words)
add_check(messages)
add_check(sizes)
if(NOT VANTELGIS_COVERAGE)
  add_check(package ${PROJECT_BINARY_DIR})  # of a build that could be shipped
  # What installs completes the build first.
  set_tests_properties(package PROPERTIES RESOURCE_LOCK build_folder)
  if(TEST installed_library)
    set_tests_properties(installed_library PROPERTIES RESOURCE_LOCK build_folder)
  endif()
  add_check(headers $<TARGET_FILE:vantelgis> ${PROJECT_BINARY_DIR}/documents/headers)
  add_check(guide_page ${PROJECT_BINARY_DIR}/documents/guide.html)
  set_tests_properties(headers guide_page PROPERTIES DEPENDS package)
endif()

# Another major version lays code out differently and warns of other things.
set(clang_tools_version 14)
set(clang_tools format)
if(VANTELGIS_TIDY)
  list(APPEND clang_tools tidy)
endif()
foreach(tool IN LISTS clang_tools)
  find_program(CLANG_${tool} NAMES clang-${tool}-${clang_tools_version} clang-${tool})
  set(tool_version "")
  if(CLANG_${tool})
    execute_process(COMMAND ${CLANG_${tool}} --version OUTPUT_VARIABLE tool_version)
  endif()
  if(tool_version MATCHES "version ${clang_tools_version}\\.")
    add_check(${tool} ${CLANG_${tool}} ${PROJECT_BINARY_DIR})
  else()
    message(STATUS "No clang-${tool} ${clang_tools_version}: its check is left out")
  endif()
endforeach()
if(TEST tidy)
  set_tests_properties(tidy PROPERTIES RUN_SERIAL TRUE)  # it uses every core itself
endif()
