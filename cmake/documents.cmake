# The guide as one page, the manual pages, what completes commands in a shell, the sample headers, the
# examples and the history, made where there is Python. `shipped_documents` is the target of what is made.
install(FILES ${PROJECT_SOURCE_DIR}/CHANGES.md DESTINATION ${document_folder} COMPONENT program)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples DESTINATION ${document_folder}
  COMPONENT program FILES_MATCHING
  PATTERN "*.mif" PATTERN "*.mid" PATTERN "*.12da" PATTERN "*.prj"
  PATTERN "*.shp" PATTERN "*.shx" PATTERN "*.dbf" PATTERN runs.txt PATTERN toolkit EXCLUDE)
if(WIN32)
  install(FILES ${PROJECT_SOURCE_DIR}/packaging/windows/examples.cmd
    DESTINATION ${document_folder}/examples RENAME "Run the examples.cmd" COMPONENT program)
endif()

set(shipped_documents "")
if(NOT Python3_FOUND)
  message(STATUS "No Python: the guide, the manual pages and the sample headers are left out")
  return()
endif()

set(documents ${PROJECT_BINARY_DIR}/documents)
file(MAKE_DIRECTORY ${documents}/man)
file(GLOB guide_pages CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/docs/*.md ${PROJECT_SOURCE_DIR}/docs/*.svg ${PROJECT_SOURCE_DIR}/docs/*.png)
set(made_documents "")

# document(FILE PYTHON SCRIPT ARGUMENT...): FILE holds what the script of this folder writes.
function(document file python script)
  set(script ${PROJECT_SOURCE_DIR}/cmake/${script})
  add_custom_command(OUTPUT ${documents}/${file}
    COMMAND ${python} ${script} ${ARGN} > ${documents}/${file}
    DEPENDS ${script} ${guide_pages} ${shipped_programs} VERBATIM)
  set(made_documents ${made_documents} ${documents}/${file} PARENT_SCOPE)
endfunction()

set(pages ${PROJECT_SOURCE_DIR}/docs)
# A Python of one's own, before the system's in PATH, doesn't see the system's modules.
set(guide_python "")
foreach(python /usr/bin/python3 ${Python3_EXECUTABLE})
  execute_process(COMMAND ${python} -c "import markdown" RESULT_VARIABLE no_markdown ERROR_QUIET)
  if(NOT no_markdown)
    set(guide_python ${python})
  endif()
endforeach()
if(NOT guide_python)
  message(STATUS "No Python module markdown (python3-markdown): the guide is left out")
else()
  document(guide.html ${guide_python} guide_html.py ${pages} ${PROJECT_VERSION})
  install(FILES ${documents}/guide.html DESTINATION ${document_folder} COMPONENT program)
endif()

if(NOT WIN32)
  document(man/vantelgis.1 ${Python3_EXECUTABLE} man_page.py guide ${pages} ${PROJECT_VERSION})
  foreach(program IN LISTS shipped_programs)
    if(NOT program STREQUAL vantelgis)
      document(man/${program}.1 ${Python3_EXECUTABLE} man_page.py help $<TARGET_FILE:${program}>
        ${help_${program}} ${about_${program}} ${PROJECT_VERSION})
    endif()
  endforeach()
  install(DIRECTORY ${documents}/man/ DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT program)

  set(completion ${documents}/vantelgis-batch)
  add_custom_command(OUTPUT ${completion}
    COMMAND vantelgis-batch --completion bash > ${completion} DEPENDS vantelgis-batch VERBATIM)
  list(APPEND made_documents ${completion})
  install(FILES ${completion} DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    COMPONENT program)
endif()

set(header_script ${PROJECT_SOURCE_DIR}/cmake/sample_headers.py)
add_custom_command(OUTPUT ${documents}/headers.made
  COMMAND ${Python3_EXECUTABLE} ${header_script} ${documents}/headers
  COMMAND ${CMAKE_COMMAND} -E touch ${documents}/headers.made DEPENDS ${header_script} VERBATIM)
install(DIRECTORY ${documents}/headers DESTINATION ${document_folder} COMPONENT program)

add_custom_target(documents ALL DEPENDS ${made_documents} ${documents}/headers.made)
set(shipped_documents documents)
