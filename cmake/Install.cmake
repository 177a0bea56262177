# What `cmake --install` puts where, in two components: cli, and desktop.
install(TARGETS velmora-cli RUNTIME COMPONENT cli)
install(DIRECTORY examples docs schemas TYPE DOC COMPONENT cli USE_SOURCE_PERMISSIONS)
install(FILES README.md CHANGELOG.md LICENSE NOTICE TYPE DOC COMPONENT cli)

# Debian's zsh looks into vendor-completions.
set(VELMORA_ZSH_COMPLETIONS ${CMAKE_INSTALL_DATADIR}/zsh/site-functions CACHE STRING
  "Where completions of zsh are installed")
set(manuals ${PROJECT_BINARY_DIR}/packaging)

# A manual page of section 1 in both languages, from FILE.en and FILE.pt.
function(velmora_install_manual file program component)
  install(FILES ${file}.en RENAME ${program}.1
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT ${component})
  install(FILES ${file}.pt RENAME ${program}.1
    DESTINATION ${CMAKE_INSTALL_MANDIR}/pt/man1 COMPONENT ${component})
endfunction()

velmora_install_manual(${manuals}/velmora-cli.man velmora-cli cli)
install(FILES ${manuals}/velmora-cli.bash RENAME velmora-cli
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT cli)
install(FILES ${manuals}/velmora-cli.zsh RENAME _velmora-cli
  DESTINATION ${VELMORA_ZSH_COMPLETIONS} COMPONENT cli)
install(FILES ${manuals}/velmora-cli.fish
  DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d COMPONENT cli)

if(VELMORA_DESKTOP)
  set(shared ${CMAKE_INSTALL_DATADIR}/velmora)
  install(TARGETS velmora RUNTIME COMPONENT desktop)
  install(DIRECTORY ${PROJECT_BINARY_DIR}/Imagens_Marcador ${PROJECT_BINARY_DIR}/Imagens_Cores
    DESTINATION ${shared} COMPONENT desktop)
  if(VELMORA_GUIDE)
    foreach(guide HelpFile_Velmora ArquivoDeAjuda_Velmora)
      install(FILES ${PROJECT_BINARY_DIR}/${guide}.pdf ${PROJECT_BINARY_DIR}/${guide}.html
        DESTINATION ${shared} COMPONENT desktop)
    endforeach()
  endif()

  # What a desktop shows of the program and of its files.
  install(DIRECTORY ${PROJECT_BINARY_DIR}/icons TYPE DATA COMPONENT desktop)
  install(FILES packaging/velmora.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT desktop)
  install(FILES packaging/velmora.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT desktop)
  install(FILES packaging/velmora-mime.xml RENAME velmora.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages COMPONENT desktop)
  configure_file(packaging/velmora.metainfo.xml.in ${manuals}/velmora.metainfo.xml @ONLY)
  install(FILES ${manuals}/velmora.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT desktop)
  foreach(language en pt)
    configure_file(packaging/velmora.1.${language}.in ${manuals}/velmora.man.${language} @ONLY)
  endforeach()
  velmora_install_manual(${manuals}/velmora.man velmora desktop)
endif()
