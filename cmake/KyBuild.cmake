# What every target of the project is built with, and how its three shared libraries are made.

include(GNUInstallDirs)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()
set(CMAKE_CXX_FLAGS_RELEASE "-O3 -DNDEBUG")

find_program(KY_CCACHE ccache)
if(KY_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${KY_CCACHE})
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -fno-plt -fno-semantic-interposition)
if(KY_WERROR)
  add_compile_options(-Werror)
endif()
if(KY_SANITIZE)
  add_compile_options(-fsanitize=${KY_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer -g)
  add_link_options(-fsanitize=${KY_SANITIZE})
endif()

if(KY_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# One of the project's libraries: the shared one under its own file name, and `<target>_whitebox`, the same
# objects in an archive that is never installed, with which the unit tests reach what is not exported.
#
# ky_add_library(<target> OUTPUT_NAME <name> SOURCES ... HEADERS <public headers> HEADER_DIRS <their folders> LINK ...)
function(ky_add_library target)
  cmake_parse_arguments(arg "" "OUTPUT_NAME" "SOURCES;HEADERS;HEADER_DIRS;LINK" ${ARGN})

  add_library(${target}_objects OBJECT ${arg_SOURCES})
  target_include_directories(${target}_objects PUBLIC ${arg_HEADER_DIRS})
  target_link_libraries(${target}_objects PUBLIC ${arg_LINK})

  add_library(${target} SHARED $<TARGET_OBJECTS:${target}_objects>)
  set_target_properties(${target} PROPERTIES OUTPUT_NAME ${arg_OUTPUT_NAME} INSTALL_RPATH "$ORIGIN")
  target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS ${arg_HEADER_DIRS} FILES ${arg_HEADERS})
  target_link_libraries(${target} PUBLIC ${arg_LINK})
  target_link_options(${target} PRIVATE -Wl,--as-needed -Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/exports.map)
  set_target_properties(${target} PROPERTIES LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/exports.map)
  if(NOT KY_SANITIZE)
    target_link_options(${target} PRIVATE -Wl,--no-undefined)
  endif()

  add_library(${target}_whitebox STATIC EXCLUDE_FROM_ALL $<TARGET_OBJECTS:${target}_objects>)
  target_include_directories(${target}_whitebox PUBLIC ${arg_HEADER_DIRS})
  target_link_libraries(${target}_whitebox PUBLIC ${arg_LINK})

  target_compile_features(${target} INTERFACE cxx_std_17)
  install(TARGETS ${target}
    EXPORT CorvaneTypeManagerTargets
    LIBRARY COMPONENT runtime
    FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/corvane-typemanager COMPONENT development)
endfunction()
