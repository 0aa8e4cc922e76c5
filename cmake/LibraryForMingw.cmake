# kaz_library_for_mingw(NAME LIBRARY...): kaz_<NAME> brings a library of which there is no package for MinGW-w64, and the
# others that it needs. It is built once into build/deps, by tools/lib/<NAME>-mingw.sh.
function(kaz_library_for_mingw name)
  message(STATUS "Looking for ${name} in build/deps; the first time it is built")
  execute_process(COMMAND ${PROJECT_SOURCE_DIR}/tools/lib/${name}-mingw.sh ${KAZ_MINGW_TARGET}
    OUTPUT_VARIABLE folder OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${name} for MinGW-w64 is not there and could not be built")
  endif()
  target_include_directories(kaz_${name} SYSTEM INTERFACE ${folder}/include)
  set(library ${folder}/lib/${name}.a)
  if(NOT EXISTS ${library})
    set(library ${folder}/lib/lib${name}.a)
  endif()
  target_link_libraries(kaz_${name} INTERFACE ${library} ${ARGN})
endfunction()
