# late_library(PREFIX): a library found by pkg_check_modules that is loaded when it is wanted, by loader/late_library.h.
# PREFIX::late gives its headers and, as PREFIX_LIBRARY, the name under which the system's loader finds it; nothing is
# linked. LATE_FILES lists such libraries for the packages, which have to name what no linker sees.
function(late_library prefix)
  list(GET ${prefix}_LINK_LIBRARIES 0 file)
  file(REAL_PATH ${file} file)
  execute_process(COMMAND ${CMAKE_OBJDUMP} -p ${file} OUTPUT_VARIABLE headers COMMAND_ERROR_IS_FATAL ANY)
  if(NOT headers MATCHES "SONAME +([^\n ]+)")
    message(FATAL_ERROR "${file} is no shared library with a name of its own")
  endif()
  add_library(${prefix}_late INTERFACE)
  add_library(${prefix}::late ALIAS ${prefix}_late)
  target_include_directories(${prefix}_late SYSTEM INTERFACE ${${prefix}_INCLUDE_DIRS})
  target_compile_definitions(${prefix}_late INTERFACE ${prefix}_LIBRARY="${CMAKE_MATCH_1}")
  target_link_libraries(${prefix}_late INTERFACE loader)
  set_property(GLOBAL APPEND PROPERTY LATE_FILES ${file})
endfunction()
