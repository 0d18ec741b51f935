# The manual page of the window's program, with its options as its own help tells them.
# usage: cmake -DPROGRAM=… -DTEMPLATE=… -DPAGE=… -DPROJECT_VERSION=… -P window_page.cmake
execute_process(COMMAND ${PROGRAM} --help OUTPUT_VARIABLE help COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE "-" "\\-" help "${help}")
string(REGEX MATCHALL "\n  \\\\-\\\\-[^\n]*" options "${help}")
set(PARVEL_WINDOW_OPTIONS "")
foreach(option IN LISTS options)
  string(REGEX REPLACE "^\n  ([^ ]+( [^ ]+)?)  +(.*)$" ".TP\n.B \\1\n\\3\n" entry "${option}")
  string(APPEND PARVEL_WINDOW_OPTIONS "${entry}")
endforeach()
string(STRIP "${PARVEL_WINDOW_OPTIONS}" PARVEL_WINDOW_OPTIONS)
configure_file(${TEMPLATE} ${PAGE} @ONLY)
