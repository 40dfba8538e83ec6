# Where a package puts things. The programs look for their bundle at one fixed place, and the bus, systemd, polkit and
# the desktop look for their files at theirs, so the paths are absolute; DESTDIR works.
option(TICKERVANTAGE_INSTALL_CHRONY "Install the bundle's copies of chronyc and chronyd too" ON)

set(TV_INSTALLED_BUNDLE /usr/lib/tickervantage/Tickervantage.app/Contents)
set(TV_LINKS ${CMAKE_BINARY_DIR}/links)
file(MAKE_DIRECTORY ${TV_LINKS})

install(TARGETS chronyhelper chronysupport chronywake DESTINATION ${TV_INSTALLED_BUNDLE}/MacOS)
# All that the build put there, whoever made it: help pages and translations too.
install(DIRECTORY ${TV_BUNDLE_RESOURCES}/ DESTINATION ${TV_INSTALLED_BUNDLE}/Resources USE_SOURCE_PERMISSIONS)
install(FILES packaging/man/chronywake.8 packaging/man/chronysupport.8 packaging/man/chronyhelper.8
        DESTINATION /usr/share/man/man8)

if(TICKERVANTAGE_INSTALL_CHRONY)
  foreach(program chronyc chronyd)
    install(PROGRAMS ${TV_BUNDLE_PROGRAMS}/${program} DESTINATION ${TV_INSTALLED_BUNDLE}/MacOS OPTIONAL)
  endforeach()
endif()

# A program of the user's, with its link in the search path, its manual page and its completions: bash and fish look
# for a file of the program's name, zsh reads in the file what it is for.
function(tv_install_program name)
  install(TARGETS ${name} DESTINATION ${TV_INSTALLED_BUNDLE}/MacOS)
  file(CREATE_LINK ../lib/tickervantage/Tickervantage.app/Contents/MacOS/${name} ${TV_LINKS}/${name} SYMBOLIC)
  install(FILES ${TV_LINKS}/${name} DESTINATION /usr/bin)
  install(FILES packaging/man/${name}.1 DESTINATION /usr/share/man/man1)
  install(FILES packaging/completions/tickervantage.bash DESTINATION /usr/share/bash-completion/completions RENAME ${name})
  install(FILES packaging/completions/tickervantage.fish DESTINATION /usr/share/fish/vendor_completions.d
          RENAME ${name}.fish)
endfunction()

if(TICKERVANTAGE_UI)
  tv_install_program(tickervantage)
  tv_install_program(tickerctl)
  install(TARGETS tickercommands DESTINATION ${TV_INSTALLED_BUNDLE}/MacOS) # which tickerctl hands on to
  # What monitoring systems need of it; the rules are those that `tickerctl rules` prints, as a test sees to.
  file(CREATE_LINK ../../tickervantage/Tickervantage.app/Contents/MacOS/tickerctl ${TV_LINKS}/check_tickervantage SYMBOLIC)
  install(FILES ${TV_LINKS}/check_tickervantage DESTINATION /usr/lib/nagios/plugins)
  install(FILES packaging/monitoring/tickervantage.rules.yml packaging/monitoring/tickervantage.tests.yml
                packaging/monitoring/dashboard.json packaging/monitoring/icinga2.conf DESTINATION /usr/share/tickervantage)
  install(FILES packaging/monitoring/tickervantage-metrics.service packaging/monitoring/tickervantage-metrics.timer
          DESTINATION /lib/systemd/system)
  install(FILES packaging/completions/_tickervantage DESTINATION /usr/share/zsh/vendor-completions)
  install(FILES packaging/systemd/tickervantage-history.service DESTINATION /usr/lib/systemd/user)
  install(FILES packaging/desktop/net.brisklane.tickervantage.desktop DESTINATION /usr/share/applications)
  install(FILES packaging/desktop/net.brisklane.tickervantage.metainfo.xml DESTINATION /usr/share/metainfo)
  install(FILES packaging/desktop/net.brisklane.tickervantage.svg DESTINATION /usr/share/icons/hicolor/scalable/apps)
endif()
