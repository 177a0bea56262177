# The Debian packages: velmora-cli, without Qt, and velmora. `./package` makes them.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME velmora)
set(CPACK_PACKAGE_VENDOR "The Velmora developers")
set(CPACK_PACKAGE_CONTACT ${VELMORA_CONTACT})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/DebianFiles.cmake)
configure_file(packaging/copyright.in packaging/copyright @ONLY)
set(CPACK_VELMORA_COPYRIGHT ${PROJECT_BINARY_DIR}/packaging/copyright)
set(CPACK_VELMORA_RELEASE_DATE ${VELMORA_RELEASE_DATE})

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL cli)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

set(CPACK_DEBIAN_CLI_PACKAGE_NAME velmora-cli)
set(CPACK_DEBIAN_CLI_DESCRIPTION "kinetic parameters of batch fermentations (command line)
From measured time courses of cells, substrate and product of up to nine
cultivations, Velmora finds the parameters with which one of 32 growth models
reproduces them all at once, compares the models, and says how far each
parameter can be trusted.
.
This package holds the command line, which needs no display, and examples.")

if(VELMORA_DESKTOP)
  list(APPEND CPACK_COMPONENTS_ALL desktop)
  set(CPACK_DEBIAN_DESKTOP_PACKAGE_NAME velmora)
  set(CPACK_DEBIAN_DESKTOP_PACKAGE_RECOMMENDS
    "velmora-cli (= ${PROJECT_VERSION}-1), xdg-utils, qt6-translations-l10n")
  set(CPACK_DEBIAN_DESKTOP_DESCRIPTION "kinetic parameters of batch fermentations (desktop)
From measured time courses of cells, substrate and product of up to nine
cultivations, Velmora finds the parameters with which one of 32 growth models
reproduces them all at once, compares the models, and says how far each
parameter can be trusted.
.
This package holds the desktop program and its guide, in English and
Portuguese.")
endif()
include(CPack)
