# Programs that need the real Windows interfaces: wine/<name>/*.cpp is wine_<name>.exe, and what it has the system load,
# wine/<name>/dll/<file>.cpp, is <file>.dll beside it. Three kinds run in another way:
# - "sound" runs inside a recording, which must not be silent: whether something was heard is not for itself to say;
# - "host" runs with a clock that it can move;
# - a file wine/<name>/locales names locales, one a line (de_DE.UTF-8), under each of which the program runs once more.

kaz_test_resources(form_tests forms/win32/forms.rc)
set_property(SOURCE forms/win32/forms.rc APPEND PROPERTY OBJECT_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/forms/win32/TestResources.h)
kaz_test_resources(soak_tests soak/win32/soak.rc)
set_tests_properties(form_tests PROPERTIES TIMEOUT 120)

file(GLOB names RELATIVE ${CMAKE_CURRENT_SOURCE_DIR}/wine CONFIGURE_DEPENDS wine/*)
foreach(folder ${names})
  file(GLOB sources CONFIGURE_DEPENDS wine/${folder}/*.cpp)
  if(NOT sources)
    continue()
  endif()
  file(GLOB rc CONFIGURE_DEPENDS wine/${folder}/*.rc)
  kaz_test_program(wine_${folder} kaz_ui ${sources} ${rc})
  target_link_libraries(wine_${folder} PRIVATE kaz_idl)
  kaz_test_resources(wine_${folder} ${rc})
  file(GLOB libraries CONFIGURE_DEPENDS wine/${folder}/dll/*.cpp)
  foreach(source ${libraries})
    get_filename_component(name ${source} NAME_WE)
    add_library(${name} SHARED ${source})
    set_target_properties(${name} PROPERTIES PREFIX "")
    target_link_libraries(${name} PRIVATE kaz_base kaz_warnings)
    add_dependencies(wine_${folder} ${name})
  endforeach()

  if(folder STREQUAL "sound")
    kaz_register(wine_sound wine_sound ${PROJECT_SOURCE_DIR}/tools/lib/with-recording)
  elseif(folder STREQUAL "host")
    kaz_register(wine_host wine_host ${PROJECT_SOURCE_DIR}/tools/lib/with-clock)
    set_tests_properties(wine_host PROPERTIES TIMEOUT 400)
  else()
    kaz_register(wine_${folder} wine_${folder})
  endif()
  file(GLOB locales CONFIGURE_DEPENDS wine/${folder}/locales)
  if(locales)
    file(STRINGS ${locales} locales)
  endif()
  foreach(locale ${locales})
    set(name wine_${folder}_${locale})
    kaz_register(${name} wine_${folder})
    set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT "LC_ALL=${locale}")
  endforeach()

  foreach(product Kazlib KAZ2)
    if(TARGET ${product})
      add_dependencies(wine_${folder} ${product})
    endif()
  endforeach()
endforeach()

# Scripts drive the component as an automation client would, by its registered name. The script host ends with 0 even
# when a script fails, so each script's last line must be "OK".
file(GLOB scripts CONFIGURE_DEPENDS wine/scripts/*.vbs)
# The example runs in a host of its test's own.
file(READ ${PROJECT_SOURCE_DIR}/examples/today.vbs EXAMPLE)
string(REPLACE "Option Explicit" "" EXAMPLE "${EXAMPLE}")
string(REPLACE "WScript." "host." EXAMPLE "${EXAMPLE}")
configure_file(wine/scripts/example.vbs.in ${results}/example.vbs @ONLY)
list(APPEND scripts ${results}/example.vbs)
if(scripts AND TARGET Kazlib)
  set(wine ${CMAKE_CROSSCOMPILING_EMULATOR})
  add_test(NAME register_component COMMAND ${wine} "C:\\windows\\system32\\regsvr32.exe" /s Kazlib.dll
    WORKING_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
  add_test(NAME unregister_component COMMAND ${wine} "C:\\windows\\system32\\regsvr32.exe" /s /u Kazlib.dll
    WORKING_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
  set_tests_properties(register_component PROPERTIES FIXTURES_SETUP registered TIMEOUT 60)
  set_tests_properties(unregister_component PROPERTIES FIXTURES_CLEANUP registered TIMEOUT 60)
  foreach(script ${scripts})
    get_filename_component(name ${script} NAME_WE)
    string(REPLACE "/" "\\" windows_path "Z:${script}")
    add_test(NAME script_${name}
      COMMAND ${wine} "C:\\windows\\system32\\cscript.exe" //nologo ${windows_path} WORKING_DIRECTORY ${results})
    set_tests_properties(script_${name} PROPERTIES TIMEOUT 60 FIXTURES_REQUIRED registered
      ENVIRONMENT "KAZ_TEST_DATA=${data}" PASS_REGULAR_EXPRESSION "(^|\n)OK[\r\n]*$")
  endforeach()
  # Wine's script host connects no events; a script that needs them has to say so.
  string(REPLACE "/" "\\" windows_path "Z:${PROJECT_SOURCE_DIR}/examples/today.vbs")
  add_test(NAME script_today COMMAND ${wine} "C:\\windows\\system32\\cscript.exe" //nologo ${windows_path} "C:\\nowhere"
    WORKING_DIRECTORY ${results})
  set_tests_properties(script_today PROPERTIES TIMEOUT 60 FIXTURES_REQUIRED registered
    PASS_REGULAR_EXPRESSION "^KAZ cannot be connected here: .* [(]445[)]")
endif()
