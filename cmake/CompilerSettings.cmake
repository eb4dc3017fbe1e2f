# Warnings are errors in our own code; Qt's keywords and implicit loops are off.
add_library(kovrel_settings INTERFACE)
target_compile_options(kovrel_settings INTERFACE
  -Wall -Wextra -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough
  -Wno-missing-designated-field-initializers -Werror)
target_compile_definitions(kovrel_settings INTERFACE QT_NO_KEYWORDS QT_NO_FOREACH QT_USE_QSTRINGBUILDER)
target_include_directories(kovrel_settings INTERFACE ${PROJECT_SOURCE_DIR}/src)

if(KOVREL_SANITIZERS)
  add_compile_options(-fsanitize=${KOVREL_SANITIZERS} -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${KOVREL_SANITIZERS})
endif()
if(KOVREL_SANITIZERS STREQUAL thread)
  add_compile_definitions(KOVREL_WITHOUT_CLONES) # the loader chooses among clones before the sanitizer is ready
endif()

# Quick, and sound: with mold 1.10 of Debian 12 a program with a variable for each thread may have a first page that the
# loader can't protect, and then does not start.
add_link_options(-fuse-ld=lld)

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE})
  add_compile_options(-Xclang -fno-pch-timestamp)
endif()
