# fuzz/<name>.cpp holds LLVMFuzzerTestOneInput. With KAZ_FUZZ it is a libFuzzer program; in the regular Linux tests a
# small driver feeds it corpus/<name>/ and, from a fixed seed, mutations of those files.

if(WIN32 OR NOT (KAZ_FUZZ OR KAZ_TESTS))
  return()
endif()

file(GLOB targets CONFIGURE_DEPENDS fuzz/*.cpp)
foreach(source ${targets})
  get_filename_component(name ${source} NAME_WE)
  set(corpus ${CMAKE_CURRENT_SOURCE_DIR}/fuzz/corpus/${name})
  add_executable(fuzz_${name} ${source})
  target_link_libraries(fuzz_${name} PRIVATE kaz_ui kaz_fakes kaz_warnings)
  if(KAZ_FUZZ)
    target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
  else()
    target_sources(fuzz_${name} PRIVATE fuzz/replay/ReplayMain.cpp)
    add_test(NAME fuzz_${name} COMMAND fuzz_${name} ${corpus} WORKING_DIRECTORY ${results})
    set_tests_properties(fuzz_${name} PROPERTIES TIMEOUT 120)
  endif()
endforeach()
