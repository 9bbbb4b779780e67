include(GNUInstallDirs)

# Installs a file as NAME.gz, compressed as distributions require: with the best compression, without a timestamp.
# corvane_install_compressed(FILE DESTINATION NAME)
function(corvane_install_compressed file destination name)
  set(compressed ${CMAKE_BINARY_DIR}/compressed/${name}.gz)
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/compressed)
  add_custom_command(OUTPUT ${compressed} COMMAND gzip -9nc ${file} > ${compressed} DEPENDS ${file}
    COMMENT "Compressing ${name}" VERBATIM)
  add_custom_target(compressed_${name} ALL DEPENDS ${compressed})
  install(FILES ${compressed} DESTINATION ${destination})
endfunction()

# Installs a manual page in section 1.
function(corvane_install_man file)
  if(APPLE)
    install(FILES ${file} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  else()
    get_filename_component(name ${file} NAME)
    corvane_install_compressed(${file} ${CMAKE_INSTALL_MANDIR}/man1 ${name})
  endif()
endfunction()

# On Debian, zsh searches another folder than elsewhere.
if(EXISTS /etc/debian_version)
  set(zsh_completions ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
else()
  set(zsh_completions ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
endif()
set(CORVANE_ZSH_COMPLETIONS ${zsh_completions} CACHE STRING "Where zsh looks for completions")

# Installs the shell completions of a program.
function(corvane_install_completions program)
  set(folder ${CMAKE_SOURCE_DIR}/packaging/completions)
  install(FILES ${folder}/${program}.bash
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME ${program})
  install(FILES ${folder}/_${program} DESTINATION ${CORVANE_ZSH_COMPLETIONS})
  install(FILES ${folder}/${program}.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
endfunction()
