# kaz_libcurl: the library that the host speaks to mail servers with; of all its protocols SMTP alone. Linux has it as a
# package, Visual C++ from vcpkg (vcpkg.json); for MinGW-w64 it is built once into build/deps.
add_library(kaz_libcurl INTERFACE)

if(MINGW AND CMAKE_HOST_UNIX)
  message(STATUS "Looking for libcurl in build/deps; the first time it is built")
  execute_process(COMMAND ${PROJECT_SOURCE_DIR}/tools/lib/libcurl-mingw.sh ${KAZ_MINGW_TARGET}
    OUTPUT_VARIABLE folder OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "libcurl for MinGW-w64 is not there and could not be built")
  endif()
  target_include_directories(kaz_libcurl SYSTEM INTERFACE ${folder}/include)
  target_compile_definitions(kaz_libcurl INTERFACE CURL_STATICLIB)
  # Nothing of it is called before the first mail, so the network's and the certificates' DLLs do not take part in a start.
  kaz_delay_import(kaz_delayed_network ws2_32 crypt32 bcrypt)
  target_link_libraries(kaz_libcurl INTERFACE ${folder}/lib/libcurl.a kaz_delayed_network advapi32)
else()
  find_package(CURL REQUIRED)
  target_link_libraries(kaz_libcurl INTERFACE CURL::libcurl)
endif()
