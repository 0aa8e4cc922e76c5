# kaz_utf8proc: the forms and the borders of all letters. Linux has it as a package; for MinGW-w64 it is built once into
# build/deps.
add_library(kaz_utf8proc INTERFACE)

if(MINGW)
  kaz_library_for_mingw(utf8proc)
  target_compile_definitions(kaz_utf8proc INTERFACE UTF8PROC_STATIC)
else()
  find_path(KAZ_UTF8PROC_INCLUDE utf8proc.h REQUIRED)
  find_library(KAZ_UTF8PROC_LIBRARY utf8proc REQUIRED)
  target_include_directories(kaz_utf8proc SYSTEM INTERFACE ${KAZ_UTF8PROC_INCLUDE})
  target_link_libraries(kaz_utf8proc INTERFACE ${KAZ_UTF8PROC_LIBRARY})
endif()
