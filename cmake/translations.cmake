# translations/*.ts become what the program loads: Contents/Resources/translations/*.qm. Without Qt's lrelease it builds
# too, and then speaks English only. /usr/bin/lrelease may be that of another Qt.
find_program(TV_LRELEASE NAMES lrelease lrelease-qt6 lrelease6 HINTS /usr/lib/qt6/bin)
set(translations)
if(TV_LRELEASE)
  file(MAKE_DIRECTORY ${TV_BUNDLE_RESOURCES}/translations)
  foreach(language de en)
    set(source ${PROJECT_SOURCE_DIR}/translations/tickervantage_${language}.ts)
    set(result ${TV_BUNDLE_RESOURCES}/translations/tickervantage_${language}.qm)
    add_custom_command(OUTPUT ${result}
      COMMAND ${TV_LRELEASE} -silent -removeidentical ${source} -qm ${result}
      DEPENDS ${source} COMMENT "Translation ${language}" VERBATIM)
    list(APPEND translations ${result})
  endforeach()
else()
  message(STATUS "lrelease not found: the windows will be in English only")
endif()
add_custom_target(translations ALL DEPENDS ${translations})
