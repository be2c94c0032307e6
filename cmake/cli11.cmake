include_guard(GLOBAL)
# The target `cli11`: the command-line parser of the programs around the converter, headers only.
# A cross build takes those of the machine that builds, and nothing else that lies beside them.
find_path(CLI11_HEADERS CLI/CLI.hpp PATHS /usr/include /usr/local/include NO_CMAKE_FIND_ROOT_PATH)
if(NOT CLI11_HEADERS)
  message(FATAL_ERROR "CLI11 is missing: tools/install-packages build (Debian: libcli11-dev)")
endif()
add_library(cli11 INTERFACE)
set(cli11_folder ${PROJECT_BINARY_DIR}/cli11)
file(MAKE_DIRECTORY ${cli11_folder})
file(CREATE_LINK ${CLI11_HEADERS}/CLI ${cli11_folder}/CLI SYMBOLIC)
target_include_directories(cli11 SYSTEM INTERFACE ${cli11_folder})
