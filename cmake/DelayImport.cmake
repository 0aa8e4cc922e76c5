# kaz_delay_import(NAME LIBRARY...): NAME stands for the import libraries of these system DLLs, with the difference that a DLL
# is loaded by the first call into it instead of with the program, and from the system's folder only. For DLLs that are seldom
# called and slow to load, and for all that the system does not keep ready: it would look for those beside the program first.
function(kaz_delay_import name)
  add_library(${name} INTERFACE)
  if(NOT CMAKE_SYSTEM_PROCESSOR STREQUAL x86_64) # elsewhere the functions have decorated names
    target_link_libraries(${name} INTERFACE ${ARGN})
    return()
  endif()
  set(folder ${PROJECT_BINARY_DIR}/generated/delay)
  foreach(library ${ARGN})
    # Which functions there are is read from the usual import library.
    set(run OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=lib${library}.a OUTPUT_VARIABLE usual ${run})
    execute_process(COMMAND ${CMAKE_DLLTOOL} --identify ${usual} OUTPUT_VARIABLE dll ${run})
    execute_process(COMMAND ${CMAKE_NM} ${usual} OUTPUT_VARIABLE symbols ERROR_QUIET ${run})
    string(REGEX MATCHALL " T [A-Za-z0-9_]+" functions "${symbols}")
    list(REMOVE_DUPLICATES functions)
    list(TRANSFORM functions REPLACE " T " "")
    list(JOIN functions "\n" functions)
    file(CONFIGURE OUTPUT ${folder}/${library}.def CONTENT "LIBRARY \"${dll}\"\nEXPORTS\n${functions}\n")
    execute_process(COMMAND ${CMAKE_DLLTOOL} --input-def ${folder}/${library}.def
      --output-delaylib ${folder}/lib${library}.a ${run})
    target_link_libraries(${name} INTERFACE ${folder}/lib${library}.a)
  endforeach()
  # Nothing names the hook but the run-time library, which comes last and has an empty one of its own.
  target_link_libraries(${name} INTERFACE -Wl,--undefined=__pfnDliNotifyHook2 kaz_process delayimp)
endfunction()
