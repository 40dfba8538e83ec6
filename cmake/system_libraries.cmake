# Libraries of the system that bring no description of their own for CMake.
function(tv_system_library target header library)
  find_path(${target}_HEADERS ${header} REQUIRED)
  find_library(${target}_LIBRARY ${library} REQUIRED)
  add_library(${target} INTERFACE)
  target_include_directories(${target} SYSTEM INTERFACE ${${target}_HEADERS})
  target_link_libraries(${target} INTERFACE ${${target}_LIBRARY})
endfunction()

tv_system_library(tv_libsensors sensors/sensors.h sensors)
tv_system_library(tv_libsystemd systemd/sd-bus.h systemd)
