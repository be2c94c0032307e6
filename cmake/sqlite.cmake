# The target `sqlite`: the library of the system, or, for programs that are to need none, SQLite's
# sources in one file, which tools/install-packages fetches.
if(NOT VANTELGIS_OWN_SQLITE)
  find_package(SQLite3 REQUIRED)
  add_library(sqlite ALIAS SQLite::SQLite3)
  return()
endif()

set(sqlite_folder ${PROJECT_SOURCE_DIR}/build/sqlite)
if(NOT EXISTS ${sqlite_folder}/sqlite3.c)
  message(FATAL_ERROR "SQLite's sources are missing: tools/install-packages windows")
endif()
enable_language(C)
add_library(sqlite STATIC ${sqlite_folder}/sqlite3.c)
target_include_directories(sqlite SYSTEM PUBLIC ${sqlite_folder})
# One thread, no extensions from files, no words for what is never asked.
target_compile_definitions(sqlite PRIVATE SQLITE_ENABLE_RTREE SQLITE_THREADSAFE=0 SQLITE_DQS=0
  SQLITE_DEFAULT_MEMSTATUS=0 SQLITE_LIKE_DOESNT_MATCH_BLOBS SQLITE_OMIT_LOAD_EXTENSION
  SQLITE_OMIT_DEPRECATED SQLITE_OMIT_SHARED_CACHE)
target_compile_options(sqlite PRIVATE -w)
