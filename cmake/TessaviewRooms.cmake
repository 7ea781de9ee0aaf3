# How the rooms of the house are built: one target per folder, sources found by name, so that a new
# file needs no line here.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_C_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
set(CMAKE_INSTALL_RPATH "$ORIGIN/../lib:$ORIGIN/../..")
set(TESSAVIEW_COMPONENT_DIR ${PROJECT_BINARY_DIR}/lib/tessaview3/components)

option(TESSAVIEW_WERROR "Treat warnings as errors" OFF)
option(TESSAVIEW_WINDOW "Build the window (needs Qt 6)" ON)
option(TESSAVIEW_BENCHMARKS "Build the benchmarks" OFF)
option(TESSAVIEW_FUZZ "Build the fuzz targets (clang only)" OFF)
set(TESSAVIEW_SANITIZE "" CACHE STRING "Sanitizers, as for -fsanitize=")

add_library(tessaview_options INTERFACE)
target_compile_options(tessaview_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow $<$<BOOL:${TESSAVIEW_WERROR}>:-Werror>)
if(TESSAVIEW_SANITIZE)
  # The interfaces of components admit hand-made vtables, which carry no type information.
  set(sanitize -fsanitize=${TESSAVIEW_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  if(TESSAVIEW_SANITIZE MATCHES "undefined")
    list(APPEND sanitize -fno-sanitize=vptr)
  endif()
  target_compile_options(tessaview_options INTERFACE ${sanitize})
  target_link_options(tessaview_options INTERFACE ${sanitize})
endif()

# tessaview_room(NAME [SHARED] [LINKS target...]): the library of the folder it is called for.
function(tessaview_room name)
  cmake_parse_arguments(room "SHARED" "" "LINKS" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS
    ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.h)
  if(NOT sources)
    return()
  endif()
  set(kind STATIC)
  if(room_SHARED)
    set(kind SHARED)
  endif()
  add_library(tessaview_${name} ${kind} ${sources})
  set_target_properties(tessaview_${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_include_directories(tessaview_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(tessaview_${name} PUBLIC ${room_LINKS} PRIVATE tessaview_options)
endfunction()

# tessaview_component(NAME [LINKS target...]): a component library and its manifest, from the
# sources of the current folder, placed where the class registry looks for them.
function(tessaview_component name)
  cmake_parse_arguments(component "" "MANIFEST" "SOURCES;LINKS" ${ARGN})
  add_library(${name} MODULE ${component_SOURCES})
  set_target_properties(${name} PROPERTIES
    PREFIX "" LIBRARY_OUTPUT_DIRECTORY ${TESSAVIEW_COMPONENT_DIR})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE tessaview_options ${component_LINKS})
  configure_file(${component_MANIFEST} ${TESSAVIEW_COMPONENT_DIR}/${name}.component COPYONLY)
  install(TARGETS ${name} LIBRARY DESTINATION lib/tessaview3/components)
  install(FILES ${component_MANIFEST} DESTINATION lib/tessaview3/components RENAME ${name}.component)
endfunction()

# tessaview_tests(FOLDER [LINKS target...]): the test program of one folder under tests/.
function(tessaview_tests folder)
  cmake_parse_arguments(tests "" "TIMEOUT" "LINKS" ${ARGN})
  if(NOT tests_TIMEOUT)
    set(tests_TIMEOUT 300)
  endif()
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(${folder}_tests ${sources})
  set_target_properties(${folder}_tests PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
  target_include_directories(${folder}_tests PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR})
  target_compile_definitions(${folder}_tests PRIVATE
    TESSAVIEW_SOURCE_DIR="${PROJECT_SOURCE_DIR}" TESSAVIEW_BUILD_DIR="${PROJECT_BINARY_DIR}")
  target_link_libraries(${folder}_tests PRIVATE
    tessaview_options ${tests_LINKS} GTest::gmock GTest::gtest_main)
  # The values of cases without names would be shown as raw memory.
  gtest_discover_tests(${folder}_tests NO_PRETTY_VALUES DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT ${tests_TIMEOUT})
endfunction()
