# Checks of the sources: layers, words, layout, and what clang-tidy has to say.
function(add_tree_check name)
  add_test(NAME ${name} COMMAND ${ARGN})
  set_tests_properties(${name} PROPERTIES LABELS tree SKIP_RETURN_CODE 77)
endfunction()

add_tree_check(includes Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/check_includes.py)
add_tree_check(words Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/check_words.py)

add_tree_check(messages Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/check_messages.py)

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
    add_tree_check(${tool} Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/check_${tool}.py
      ${CLANG_${tool}} ${PROJECT_BINARY_DIR})
  else()
    message(STATUS "No clang-${tool} ${clang_tools_version}: its check is left out")
  endif()
endforeach()
if(TEST tidy)
  set_tests_properties(tidy PROPERTIES RUN_SERIAL TRUE)  # it uses every core itself
endif()
