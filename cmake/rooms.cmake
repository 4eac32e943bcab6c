# SPDX-License-Identifier: GPL-3.0-or-later
# A room is one folder and one static library. LINKS names the rooms below it, and nothing else reaches it:
# Qt comes in as QtCore only, wider Qt modules must be asked for with QT.

# --- flags that everything shares -------------------------------------------------------------------------
add_library(vantrel_flags INTERFACE)
target_compile_options(vantrel_flags INTERFACE -Wall -Wextra -Wconversion -Wshadow)
if(VANTREL_WERROR)
  target_compile_options(vantrel_flags INTERFACE -Werror)
endif()
if(CMAKE_INTERPROCEDURAL_OPTIMIZATION)
  # Seen from the whole program the compiler takes an impossible size in Qt's hash for a possible one.
  target_compile_options(vantrel_flags INTERFACE -Wno-alloc-size-larger-than)
  target_link_options(vantrel_flags INTERFACE -Wno-alloc-size-larger-than)
endif()
target_compile_definitions(vantrel_flags INTERFACE QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII QT_STRICT_ITERATORS)
target_include_directories(vantrel_flags INTERFACE ${CMAKE_SOURCE_DIR})
if(VANTREL_SANITIZE)
  # The instrumented code makes the compiler see paths on which a variable isn't set; the plain build judges that.
  target_compile_options(vantrel_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined
                                                 -fno-omit-frame-pointer -Wno-maybe-uninitialized)
  target_link_options(vantrel_flags INTERFACE -fsanitize=address,undefined)
endif()

find_program(VANTREL_MOLD mold)
if(VANTREL_MOLD)
  target_link_options(vantrel_flags INTERFACE -fuse-ld=mold)
endif()
find_program(VANTREL_CCACHE ccache)
if(VANTREL_CCACHE)
  # Without these two a compilation with a precompiled header is never taken from the cache.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
                                  CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
                                  ${VANTREL_CCACHE})
  target_compile_options(vantrel_flags INTERFACE -fpch-preprocess)
endif()

# --- one precompiled header for all rooms and tests --------------------------------------------------------
# Compiled once. Targets may add macros of their own (a Qt module's, a test's folder): the header doesn't look at them.
add_library(vantrel_pch OBJECT ${CMAKE_SOURCE_DIR}/cmake/pch.cpp)
target_link_libraries(vantrel_pch PUBLIC vantrel_flags Qt6::Core)
# Found by its include path: with the folder's own path in it, a cache couldn't serve two checkouts.
target_precompile_headers(vantrel_pch PRIVATE <cmake/pch.h>)

# vantrel_precompiled(target): lets a target that links Qt6::Core use it.
function(vantrel_precompiled target)
  target_precompile_headers(${target} REUSE_FROM vantrel_pch)
endfunction()

# vantrel_room(name LINKS room... QT module... LIBS library...): all sources of the calling folder, subfolders not included.
function(vantrel_room name)
  cmake_parse_arguments(ROOM "" "" "LINKS;QT;LIBS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h
       ${CMAKE_CURRENT_SOURCE_DIR}/*.ui ${CMAKE_CURRENT_SOURCE_DIR}/*.qrc)
  add_library(${name} STATIC ${sources})
  target_link_libraries(${name} PUBLIC vantrel_flags Qt6::Core ${ROOM_LINKS} ${ROOM_QT} ${ROOM_LIBS})
  vantrel_precompiled(${name})
endfunction()
