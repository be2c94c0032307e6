# What makes the program fit to be left alone: faults of the system and batch runs.

if(NOT CMAKE_CROSSCOMPILING)
  add_test(NAME guide COMMAND Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/docs_test.py
    --program $<TARGET_FILE:vantelgis>)

  # The inputs with which a fuzz driver begins and those that once showed a fault, without its engine.
  file(GLOB fuzz_drivers CONFIGURE_DEPENDS ${fuzz}/drivers/*.cpp ${fuzz}/model/*.cpp)
  add_executable(fuzz_replay ${fuzz}/replay.cpp ${fuzz_drivers})
  target_link_libraries(fuzz_replay PRIVATE memory_support vantelgis_gpkg_core vantelgis_core)
  foreach(driver mif shp archive command boundaries roundtrip gpkg)
    set(seeds ${PROJECT_BINARY_DIR}/fuzz_seeds/${driver})
    add_test(NAME seeds_${driver} COMMAND Python3::Interpreter
      ${fuzz}/make_seeds.py ${driver} ${seeds})
    add_test(NAME replay_${driver} COMMAND fuzz_replay ${driver}
      ${fuzz}/findings/${driver} ${seeds})
    set_tests_properties(seeds_${driver} PROPERTIES FIXTURES_SETUP seeds_${driver})
    set_tests_properties(replay_${driver} PROPERTIES FIXTURES_REQUIRED seeds_${driver})
  endforeach()
endif()
