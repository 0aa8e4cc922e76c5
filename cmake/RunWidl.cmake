# cmake -D WIDL=... -D BITS=... -D IDL=... -P RunWidl.cmake -h HEADER -u IDS -t TYPELIB
#
# Any output of widl is an error. It has one warning that matters a great deal, "duplicate uuid": it then writes a
# type library with a wrong library id, which loads but breaks marshalling. The IDL avoids it by naming the dual
# interface before any dispinterface inside the library.
set(options "")
foreach(index RANGE 1 ${CMAKE_ARGC})
  list(APPEND arguments "${CMAKE_ARGV${index}}")
endforeach()
foreach(kind -h -u -t)
  list(FIND arguments ${kind} position)
  math(EXPR position "${position} + 1")
  list(GET arguments ${position} output)
  execute_process(
    COMMAND ${WIDL} -m${BITS} -I/usr/include/wine/wine/windows
            -L/usr/lib/x86_64-linux-gnu/wine/x86_64-windows ${kind} -o ${output} ${IDL}
    RESULT_VARIABLE result OUTPUT_VARIABLE said ERROR_VARIABLE said)
  if(NOT result EQUAL 0 OR said MATCHES "warning|error")
    file(REMOVE ${output})
    message(FATAL_ERROR "widl ${kind} ${IDL}:\n${said}")
  endif()
endforeach()
