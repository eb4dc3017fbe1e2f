# `cpack -G DEB` in a build folder makes the Debian packages: the program, and beside it what is large or needs much and
# is loaded only when it is needed first. Without those the program says what is missing where it is missed.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kovrel)
set(CPACK_PACKAGE_VENDOR "The Kovrel developers")
set(CPACK_PACKAGE_CONTACT "The Kovrel developers <packages@kovrel.com>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
# Whoever built it may have a tight umask.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_POST_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/NoLdconfig.cmake)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL program reading heif sound)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR}/lib/kovrel)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS OFF)

set(same_version "kovrel (= ${PROJECT_VERSION})")
# What the toolkit loads by itself, so that nobody sees it among the libraries.
set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME kovrel)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS "qt6-qpa-plugins, default-dbus-session-bus | dbus-session-bus")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS
  "kovrel-reading, kovrel-heif, kovrel-sound, xdg-utils")
set(CPACK_DEBIAN_PROGRAM_DESCRIPTION "screenshot utility that keeps and finds every capture
Kovrel waits in the tray. A hotkey captures an area, a window, the full screen
or the last area again; each capture comes as a card in a corner, from which
it is copied, saved, dragged out, pinned or annotated, and is kept in a history
that is searched by application, name, kind, list and the words inside it.")

set(CPACK_DEBIAN_READING_PACKAGE_NAME kovrel-reading)
set(CPACK_DEBIAN_READING_PACKAGE_DEPENDS "${same_version}, tesseract-ocr-eng")
set(CPACK_DEBIAN_READING_PACKAGE_ENHANCES kovrel)
set(CPACK_DEBIAN_READING_DESCRIPTION "text and code recognition for Kovrel
Reads the text in captures, so that it can be copied and searched for, and
finds QR codes. Languages besides English come with tesseract-ocr-*.")

set(CPACK_DEBIAN_HEIF_PACKAGE_NAME kovrel-heif)
set(CPACK_DEBIAN_HEIF_PACKAGE_DEPENDS ${same_version})
set(CPACK_DEBIAN_HEIF_PACKAGE_ENHANCES kovrel)
set(CPACK_DEBIAN_HEIF_DESCRIPTION "HEIC pictures for Kovrel
Lets Kovrel save captures as HEIC files, and open such files.")

set(CPACK_DEBIAN_SOUND_PACKAGE_NAME kovrel-sound)
set(CPACK_DEBIAN_SOUND_PACKAGE_DEPENDS ${same_version})
set(CPACK_DEBIAN_SOUND_PACKAGE_ENHANCES kovrel)
set(CPACK_DEBIAN_SOUND_DESCRIPTION "shutter and confirmation sounds for Kovrel
Lets Kovrel be heard when it captures, through the audio service.")

# What every Debian package has to have: who may copy it, and what has changed.
set(changelog ${CMAKE_CURRENT_BINARY_DIR}/changelog.gz)
add_custom_command(OUTPUT ${changelog}
  COMMAND ${GZIP} -9nc ${CMAKE_CURRENT_SOURCE_DIR}/changelog > ${changelog}
  DEPENDS changelog VERBATIM)
add_custom_target(changelog ALL DEPENDS ${changelog})
foreach(part program:kovrel reading:kovrel-reading heif:kovrel-heif sound:kovrel-sound)
  string(REPLACE ":" ";" names ${part})
  list(GET names 0 component)
  list(GET names 1 package)
  set(documents ${CMAKE_INSTALL_DATADIR}/doc/${package})
  install(FILES ${changelog} DESTINATION ${documents} COMPONENT ${component})
  install(FILES copyright DESTINATION ${documents} COMPONENT ${component})
endforeach()

include(CPack)
