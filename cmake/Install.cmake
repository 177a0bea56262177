# What `cmake --install` puts where, in two components: cli, and desktop, which needs it.
set(velmora_manuals ${CMAKE_INSTALL_MANDIR})
set(velmora_documents ${CMAKE_INSTALL_DATAROOTDIR}/doc)

install(TARGETS velmora-cli RUNTIME COMPONENT cli)
install(DIRECTORY examples TYPE DOC COMPONENT cli)
install(FILES README.md CHANGELOG.md LICENSE NOTICE TYPE DOC COMPONENT cli)

if(VELMORA_DESKTOP)
  install(TARGETS velmora RUNTIME COMPONENT desktop)
  install(DIRECTORY ${CMAKE_BINARY_DIR}/Imagens_Marcador ${CMAKE_BINARY_DIR}/Imagens_Cores
    DESTINATION ${CMAKE_INSTALL_DATADIR}/velmora COMPONENT desktop)
  install(DIRECTORY ${CMAKE_BINARY_DIR}/icons TYPE DATA COMPONENT desktop)
  install(FILES packaging/velmora.svg RENAME velmora.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT desktop)
  install(FILES packaging/velmora.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT desktop)
  install(FILES packaging/velmora-mime.xml RENAME velmora.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages COMPONENT desktop)
  configure_file(packaging/velmora.metainfo.xml.in velmora.metainfo.xml @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/velmora.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT desktop)
  if(VELMORA_GUIDE)
    install(FILES ${CMAKE_BINARY_DIR}/HelpFile_Velmora.pdf ${CMAKE_BINARY_DIR}/ArquivoDeAjuda_Velmora.pdf
      DESTINATION ${CMAKE_INSTALL_DATADIR}/velmora COMPONENT desktop)
  endif()
endif()
