# kovrel_library(NAME [WIDGETS] USES lower floors... LINKS packages...)
#
# A floor of the house: every source of the current folder as one static library, which may use only the floors
# that it names. A static library does not refuse a wrong arrow by itself, so `arrows-NAME` links it whole with
# nothing but what it declared.
function(kovrel_library name)
  cmake_parse_arguments(ARG "WIDGETS" "" "USES;LINKS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  add_library(${name} STATIC ${sources})
  target_link_libraries(${name} PUBLIC kovrel_settings ${ARG_USES} ${ARG_LINKS})
  if(ARG_WIDGETS)
    kovrel_reuse_pch(${name} pch_widgets)
  else()
    kovrel_reuse_pch(${name} pch_core)
  endif()

  add_executable(arrows-${name} ${PROJECT_SOURCE_DIR}/cmake/arrows.cpp)
  target_link_libraries(arrows-${name} PRIVATE $<LINK_LIBRARY:WHOLE_ARCHIVE,${name}>)
  set_target_properties(arrows-${name} PROPERTIES AUTOMOC OFF RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/arrows)
endfunction()

function(kovrel_pch_donor name)
  cmake_parse_arguments(ARG "" "" "HEADERS;LINKS" ${ARGN})
  if(KOVREL_PCH)
    add_library(${name} STATIC ${PROJECT_SOURCE_DIR}/cmake/empty.cpp)
    target_link_libraries(${name} PUBLIC kovrel_settings ${ARG_LINKS})
    target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
    set_target_properties(${name} PROPERTIES AUTOMOC OFF)
  endif()
endfunction()

function(kovrel_reuse_pch name donor)
  if(KOVREL_PCH)
    target_precompile_headers(${name} REUSE_FROM ${donor})
  endif()
endfunction()
