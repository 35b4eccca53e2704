# embed_text(<output.cpp> [<function> <file>]...): writes a source file that defines, for each pair, a function of
# namespace quorvel declared in data/Schema.h that returns the file's text. Configuring again follows a change of a file.
function(embed_text output)
  set(body "#include \"data/Schema.h\"\n\nnamespace quorvel {\n")
  set(pairs ${ARGN})
  while(pairs)
    list(POP_FRONT pairs function file)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${file})
    file(READ ${file} text)
    string(APPEND body "\nstd::string_view ${function}() noexcept {\n  return R\"sql-text(${text})sql-text\";\n}\n")
  endwhile()
  string(APPEND body "\n}  // namespace quorvel\n")
  file(CONFIGURE OUTPUT ${output} CONTENT "${body}" @ONLY)
endfunction()
