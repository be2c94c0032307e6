# What a Windows program carries besides its code: icon, version, and the manifest that lets it open
# names of more than 260 characters. Then the programs that only Windows has.
enable_language(RC)
set(windows_folder ${PROJECT_SOURCE_DIR}/packaging/windows)

function(add_windows_resources program about)
  set(resources ${PROJECT_BINARY_DIR}/resources/${program}.rc)
  configure_file(${windows_folder}/program.rc.in ${resources} @ONLY)
  set_source_files_properties(${resources} TARGET_DIRECTORY ${program} PROPERTIES
    OBJECT_DEPENDS "${windows_folder}/vantelgis.ico;${windows_folder}/program.manifest")
  target_sources(${program} PRIVATE ${resources})
endfunction()

foreach(program IN LISTS shipped_programs)
  add_windows_resources(${program} "${about_${program}}")
endforeach()

# Icons on which files are dropped: one program that finds out by its own name what to do.
add_windows_resources(drop_target "Converts what is dropped on it")
foreach(name "2D breaklines" "3D breaklines (points and lines)" "Results" "Archive to layers"
    "Archive to cross-sections")
  install(PROGRAMS $<TARGET_FILE:drop_target> DESTINATION . RENAME "${name}.exe" COMPONENT program)
endforeach()
list(APPEND shipped_programs drop_target)
