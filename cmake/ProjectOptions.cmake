# SPDX-License-Identifier: MIT
# The compile options of all targets of this project. Link `project_options` privately.
add_library(project_options INTERFACE)
target_include_directories(project_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_definitions(project_options INTERFACE QT_NO_CAST_TO_ASCII QT_DEPRECATED_WARNINGS QT_NO_FOREACH)
# -fno-gnu-unique: g++ marks static data of templates as unique, which would prevent unloading the module.
target_compile_options(project_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion
  $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>
  $<$<BOOL:${BROWSER_WERROR}>:-Werror>)

if(BROWSER_SANITIZE)
  add_compile_options(-fsanitize=${BROWSER_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${BROWSER_SANITIZE})
endif()
