get_property(resource_files GLOBAL PROPERTY KAZ_RESOURCE_FILES)
set(rc_includes ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/src/resources
  ${PROJECT_BINARY_DIR}/generated ${PROJECT_BINARY_DIR}/generated/base ${PROJECT_BINARY_DIR}/generated/com)

# A test program's resources may include the component's templates, and with them the type library.
function(kaz_test_resources name)
  target_include_directories(${name} PRIVATE ${rc_includes})
  foreach(file ${ARGN})
    if(TARGET kaz_idl)
      add_dependencies(${name} kaz_idl)
    endif()
    set_source_files_properties(${file} PROPERTIES OBJECT_DEPENDS "${resource_files}")
  endforeach()
endfunction()
