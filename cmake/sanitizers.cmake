# For programs that run in the root helper's sandbox. At a process's end the leak check of the address sanitizer stops it
# from outside; where a sandbox forbids that, it waits forever. Leaks are found by the tests of the same code.
function(tv_without_leak_check target)
  if(CMAKE_CXX_FLAGS MATCHES "-fsanitize=[a-z,]*address")
    target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support/without_leak_check.cpp)
  endif()
endfunction()
