# The application bundle: programs in Contents/MacOS, everything else in Contents/Resources.
set(TV_BUNDLE ${CMAKE_BINARY_DIR}/Tickervantage.app)
set(TV_BUNDLE_PROGRAMS ${TV_BUNDLE}/Contents/MacOS)
set(TV_BUNDLE_RESOURCES ${TV_BUNDLE}/Contents/Resources)
file(MAKE_DIRECTORY ${TV_BUNDLE_PROGRAMS} ${TV_BUNDLE_RESOURCES})

# All of it: a program without its helper or its tools can do no job that needs root.
add_custom_target(bundle)

function(tv_program name)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${TV_BUNDLE_PROGRAMS})
  add_dependencies(bundle ${name})
endfunction()

# A file of resources/ that the program reads at run time.
function(tv_resource name)
  configure_file(${PROJECT_SOURCE_DIR}/resources/${name} ${TV_BUNDLE_RESOURCES}/${name} COPYONLY)
endfunction()

tv_resource(chrony.conf)
tv_resource(freqtemp.rtf)
tv_resource(freqtemp_de.rtf)
tv_resource(chronylogrotate.sh)
foreach(page chronywake faq first-use laboratory windows)
  tv_resource(help/${page}.md)
  tv_resource(help/${page}_de.md)
endforeach()
foreach(picture editor-error main-window servers tracking)
  tv_resource(help/images/${picture}.png)
endforeach()

file(GLOB icons CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/resources ${PROJECT_SOURCE_DIR}/resources/icons/*.svg)
foreach(icon ${icons})
  tv_resource(${icon})
endforeach()
# The program's own, where no package has given it to the desktop.
configure_file(${PROJECT_SOURCE_DIR}/packaging/desktop/net.brisklane.tickervantage.svg
               ${TV_BUNDLE_RESOURCES}/icons/net.brisklane.tickervantage.svg COPYONLY)

# The bundle carries the distribution's own chronyc and chronyd, so that it always has a pair that fits together.
foreach(program chronyc chronyd)
  find_program(TV_${program} ${program} PATHS /usr/bin /usr/sbin NO_DEFAULT_PATH)
  if(TV_${program})
    configure_file(${TV_${program}} ${TV_BUNDLE_PROGRAMS}/${program} COPYONLY)
  else()
    message(STATUS "${program} not found: the bundle will not carry it")
  endif()
endforeach()
