# bench/<name>.cpp is bench_<name> with Google Benchmark; bench/program_<name>.cpp has a main of its own. Programs that
# measure windows are bench/win32/<name>/*.cpp and have their own main (there is no Windows build of Google Benchmark).

if(NOT KAZ_BENCH)
  return()
endif()

if(WIN32)
  file(GLOB names RELATIVE ${CMAKE_CURRENT_SOURCE_DIR}/bench/win32 CONFIGURE_DEPENDS bench/win32/*)
  foreach(name ${names})
    file(GLOB sources CONFIGURE_DEPENDS bench/win32/${name}/*.cpp)
    file(GLOB rc CONFIGURE_DEPENDS bench/win32/${name}/*.rc)
    add_executable(bench_${name} ${sources} ${rc})
    target_link_libraries(bench_${name} PRIVATE kaz_ui kaz_fakes kaz_idl kaz_warnings psapi)
    kaz_test_resources(bench_${name} ${rc})
  endforeach()
  return()
endif()

find_package(benchmark REQUIRED)
file(GLOB programs CONFIGURE_DEPENDS bench/*.cpp)
foreach(source ${programs})
  get_filename_component(name ${source} NAME_WE)
  add_executable(bench_${name} ${source})
  target_link_libraries(bench_${name} PRIVATE kaz_ui kaz_fakes kaz_warnings)
  if(NOT name MATCHES "^program_")
    target_link_libraries(bench_${name} PRIVATE benchmark::benchmark_main)
  endif()
endforeach()
