# kaz_add_type_library(TARGET IDL FOLDER): compiles IDL into FOLDER/<name>_h.h, <name>_i.c and <name>.tlb, and makes
# TARGET a library of the ids whose users find the header and the type library in FOLDER.
function(kaz_add_type_library target idl folder)
  get_filename_component(name ${idl} NAME_WE)
  set(header ${folder}/${name}_h.h)
  set(ids ${folder}/${name}_i.c)
  set(tlb ${folder}/${name}.tlb)
  file(MAKE_DIRECTORY ${folder})

  # Debian's MinGW-w64 has no IDL files of its own; Wine's are used for the import and for nothing else.
  math(EXPR bits "8 * ${CMAKE_SIZEOF_VOID_P}")
  find_program(KAZ_WIDL NAMES ${KAZ_MINGW_TARGET}-widl widl REQUIRED)
  set(script ${PROJECT_SOURCE_DIR}/cmake/RunWidl.cmake)
  add_custom_command(OUTPUT ${header} ${ids} ${tlb}
    COMMAND ${CMAKE_COMMAND} -D WIDL=${KAZ_WIDL} -D BITS=${bits} -D IDL=${idl}
            -D HEADER=${header} -D IDS=${ids} -D TLB=${tlb} -P ${script}
    DEPENDS ${idl} ${script} VERBATIM)

  add_library(${target} STATIC ${ids} ${header} ${tlb})
  # SYSTEM: the generated header is not written to our warnings.
  target_include_directories(${target} SYSTEM PUBLIC ${folder})
endfunction()
