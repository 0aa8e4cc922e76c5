# kaz_libzip: the ZIP library that the backups are written with. Linux has it as a package; for MinGW-w64 it is built
# once into build/deps.
add_library(kaz_libzip INTERFACE)

if(MINGW)
  kaz_library_for_mingw(libzip z advapi32)
else()
  # Debian's own CMake package of libzip asks for its command-line tools too, so it is looked for by hand.
  find_path(KAZ_LIBZIP_INCLUDE zip.h REQUIRED)
  find_library(KAZ_LIBZIP_LIBRARY zip REQUIRED)
  target_include_directories(kaz_libzip SYSTEM INTERFACE ${KAZ_LIBZIP_INCLUDE})
  target_link_libraries(kaz_libzip INTERFACE ${KAZ_LIBZIP_LIBRARY})
endif()
