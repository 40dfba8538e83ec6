#include <sanitizer/asan_interface.h>

extern "C" const char* __asan_default_options() {
    return "detect_leaks=0";
}
