# bench/<name>.cpp is bench_<name> with Google Benchmark; bench/program_<name>.cpp has a main of its own. Programs that
# measure windows are in bench/win32/ and always have their own main (there is no Windows build of Google Benchmark).

if(NOT KAZ_BENCH)
  return()
endif()

if(WIN32)
  file(GLOB programs CONFIGURE_DEPENDS bench/win32/*.cpp)
else()
  find_package(benchmark REQUIRED)
  file(GLOB programs CONFIGURE_DEPENDS bench/*.cpp)
endif()
foreach(source ${programs})
  get_filename_component(name ${source} NAME_WE)
  add_executable(bench_${name} ${source})
  target_link_libraries(bench_${name} PRIVATE kaz_ui kaz_fakes kaz_warnings)
  if(WIN32)
    target_link_libraries(bench_${name} PRIVATE kaz_idl psapi)
  elseif(NOT name MATCHES "^program_")
    target_link_libraries(bench_${name} PRIVATE benchmark::benchmark_main)
  endif()
endforeach()
