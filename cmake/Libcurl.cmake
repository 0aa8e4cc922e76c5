# kaz_libcurl: the library that the host speaks to mail servers with; of all its protocols SMTP alone. Linux has it as a
# package; for MinGW-w64 it is built once into build/deps.
add_library(kaz_libcurl INTERFACE)

if(MINGW)
  # Nothing of it is called before the first mail, so the network's and the certificates' DLLs do not take part in a start.
  kaz_delay_import(kaz_delayed_network ws2_32 crypt32 bcrypt)
  kaz_library_for_mingw(libcurl kaz_delayed_network advapi32)
  target_compile_definitions(kaz_libcurl INTERFACE CURL_STATICLIB)
else()
  find_package(CURL REQUIRED)
  target_link_libraries(kaz_libcurl INTERFACE CURL::libcurl)
endif()
