# embed_files(TARGET_VAR SYMBOL FILES...): writes a C++ source that holds the
# given files as a table of {path, bytes, size}, and puts its name in
# TARGET_VAR. Paths are relative to BASE.
function(embed_files out_var symbol base)
  set(gen ${CMAKE_CURRENT_BINARY_DIR}/${symbol}.cc)
  # A list would reach the shell as commands separated by ";": pass the
  # file names joined by "|" instead, which embed_run.cmake splits again.
  string(REPLACE ";" "|" files "${ARGN}")
  add_custom_command(
    OUTPUT ${gen}
    COMMAND ${CMAKE_COMMAND} -DOUT=${gen} -DSYMBOL=${symbol} -DBASE=${base}
            "-DFILES=${files}" -P ${CMAKE_SOURCE_DIR}/cmake/embed_run.cmake
    DEPENDS ${ARGN} ${CMAKE_SOURCE_DIR}/cmake/embed_run.cmake
    COMMENT "Embedding ${symbol}"
    VERBATIM)
  set(${out_var} ${gen} PARENT_SCOPE)
endfunction()
