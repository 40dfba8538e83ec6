# One target carries the language and the warnings; everything else links it.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # The first for precompiled headers; with the second a build folder finds what another one has compiled.
  set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_SLOPPINESS=pch_defines,time_macros CCACHE_NOHASHDIR=true ${CCACHE_PROGRAM})
endif()

add_library(tv_flags INTERFACE)
target_compile_features(tv_flags INTERFACE cxx_std_20)
target_include_directories(tv_flags INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_definitions(tv_flags INTERFACE $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)
target_compile_options(tv_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
                                          -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough)
if(TICKERVANTAGE_WERROR)
  target_compile_options(tv_flags INTERFACE -Werror)
endif()

# A folder's logic: standard C++ and the platform interfaces, never Qt.
function(tv_logic name)
  add_library(${name} STATIC ${ARGN})
  set_target_properties(${name} PROPERTIES AUTOMOC OFF)
  target_link_libraries(${name} PUBLIC tv_flags)
endfunction()

# A folder's windows: Qt allowed.
function(tv_windows name)
  add_library(${name} STATIC ${ARGN})
  target_link_libraries(${name} PUBLIC tv_flags)
  target_compile_definitions(${name} PUBLIC QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII)
  if(name MATCHES "_windows$") # the others do not link Qt's widgets
    tv_precompile(${name} REUSE_FROM tv_qt_access)
  endif()
endfunction()
