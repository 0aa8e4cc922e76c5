# cmake -D WIDL= -D BITS= -D IDL= -D HEADER= -D IDS= -D TLB= -P RunWidl.cmake
#
# A warning of widl is an error. It has one that matters a great deal, "duplicate uuid": it then writes a type library
# with a wrong library id, which loads but breaks marshalling. The IDL avoids it by naming the dual interface before any
# dispinterface inside the library.
#
# The time of the run, which widl writes into the type library, is always the same, so that one commit makes one DLL.
find_program(faketime faketime)
set(fixed_time "")
if(faketime)
  set(fixed_time ${CMAKE_COMMAND} -E env TZ=UTC ${faketime} -f "2026-01-01 00:00:00")
endif()
set(h ${HEADER})
set(u ${IDS})
set(t ${TLB})
foreach(kind h u t)
  execute_process(
    COMMAND ${fixed_time} ${WIDL} -m${BITS} -I/usr/include/wine/wine/windows
            -L/usr/lib/x86_64-linux-gnu/wine/x86_64-windows -${kind} -o ${${kind}} ${IDL}
    RESULT_VARIABLE result OUTPUT_VARIABLE said ERROR_VARIABLE said)
  if(NOT result EQUAL 0 OR said MATCHES "warning|error")
    file(REMOVE ${HEADER} ${IDS} ${TLB})
    message(FATAL_ERROR "widl -${kind} ${IDL}:\n${said}")
  endif()
endforeach()
