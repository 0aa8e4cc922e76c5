# The warnings of our own targets; third-party code (GoogleTest, generated COM proxies) does not link this.
add_library(kaz_warnings INTERFACE)
target_compile_options(kaz_warnings INTERFACE
  $<$<COMPILE_LANGUAGE:CXX>:-Wall;-Wextra;-Wpedantic;-Wshadow;-Wconversion;-Wsign-conversion;-Werror>)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(kaz_warnings INTERFACE
    # GCC 12 reports overlapping copies inside std::string's own operator+ when it inlines it (GCC bug 105651).
    $<$<COMPILE_LANGUAGE:CXX>:-Wno-restrict>
    # The checks that the sanitizers put in make GCC see paths that no run can take.
    $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<BOOL:${KAZ_SANITIZE}>>:-Wno-maybe-uninitialized>)
endif()
