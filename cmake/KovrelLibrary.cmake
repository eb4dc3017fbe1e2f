# kovrel_library(FOLDER [WIDGETS | QOBJECTS] USES folders... LINKS packages... [SOURCES files...])
#
# A room of the house: every source of src/FOLDER as one static library, which may use only the folders that it names.
# The library is called as its folder, with `_` for `/`. `scripts/check-includes` takes the arrows from here. A static
# library does not refuse a wrong arrow by itself, so `arrows-NAME` links it whole with nothing but what it declared.
# What has widgets, or other classes with Q_OBJECT, says so: to look for them costs each room a second.
function(kovrel_library folder)
  cmake_parse_arguments(ARG "WIDGETS;QOBJECTS" "" "USES;LINKS;SOURCES" ${ARGN})
  string(REPLACE "/" "_" name ${folder})
  string(REPLACE "/" "_" uses "${ARG_USES}")
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${folder}/*.cpp ${PROJECT_SOURCE_DIR}/src/${folder}/*.h)
  list(TRANSFORM ARG_SOURCES PREPEND ${PROJECT_SOURCE_DIR}/src/${folder}/)
  add_library(${name} STATIC ${sources} ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC kovrel_settings ${uses} ${ARG_LINKS})
  if(ARG_WIDGETS OR ARG_QOBJECTS)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
  endif()
  if(ARG_WIDGETS)
    kovrel_reuse_pch(${name} pch_widgets)
  else()
    kovrel_reuse_pch(${name} pch_core)
  endif()
  kovrel_declare_arrows(${folder} ${ARG_WIDGETS} ${ARG_USES})

  add_executable(arrows-${name} ${PROJECT_SOURCE_DIR}/cmake/arrows.cpp)
  target_link_libraries(arrows-${name} PRIVATE $<LINK_LIBRARY:WHOLE_ARCHIVE,${name}>)
  set_target_properties(arrows-${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/arrows)
endfunction()

# kovrel_plugin(NAME FOLDER files... USES folders... LINKS packages...)
#
# A library that is loaded when it is needed first. Of its folder it has the files that are named. It comes with the
# program, or with the PACKAGE that is named, of those in packaging/Packages.cmake.
function(kovrel_plugin name folder)
  cmake_parse_arguments(ARG "" "PACKAGE" "USES;LINKS" ${ARGN})
  string(REPLACE "/" "_" uses "${ARG_USES}")
  add_library(${name} MODULE ${ARG_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PRIVATE kovrel_settings ${uses} ${ARG_LINKS})
  set_target_properties(${name} PROPERTIES
    CXX_VISIBILITY_PRESET hidden
    NO_SONAME ON
    LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib/kovrel)
  kovrel_reuse_pch(${name} pch_core)
  kovrel_declare_arrows(${folder} FALSE ${ARG_USES})
  if(NOT ARG_PACKAGE)
    set(ARG_PACKAGE program)
  endif()
  install(TARGETS ${name} LIBRARY DESTINATION lib/kovrel COMPONENT ${ARG_PACKAGE})
endfunction()

# A line "FOLDER [widgets]: folders..." for `scripts/check-includes`.
function(kovrel_declare_arrows folder has_widgets)
  string(JOIN " " uses ${ARGN})
  set(kind "")
  if(has_widgets)
    set(kind " widgets")
  endif()
  set_property(GLOBAL APPEND_STRING PROPERTY KOVREL_ARROWS "${folder}${kind}: ${uses}\n")
endfunction()

function(kovrel_write_arrows)
  get_property(arrows GLOBAL PROPERTY KOVREL_ARROWS)
  file(WRITE ${CMAKE_BINARY_DIR}/arrows.txt "${arrows}")
endfunction()

function(kovrel_pch_donor name)
  cmake_parse_arguments(ARG "" "" "HEADERS;LINKS" ${ARGN})
  if(KOVREL_PCH)
    add_library(${name} STATIC ${PROJECT_SOURCE_DIR}/cmake/empty.cpp)
    target_link_libraries(${name} PUBLIC kovrel_settings ${ARG_LINKS})
    target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
  endif()
endfunction()

function(kovrel_reuse_pch name donor)
  if(KOVREL_PCH)
    target_precompile_headers(${name} REUSE_FROM ${donor})
  endif()
endfunction()
