# Installing the game: the program folder whole under one folder of the
# prefix, a command in bin/, a launcher in the desktop menus with the game's
# icon, AppStream metadata; and a Debian package made by CPack.
include(GNUInstallDirs)

set(COPPIE_CARTELLA_INSTALLATA "${CMAKE_INSTALL_LIBDIR}/coppie-vivaci" CACHE STRING
    "Where the program folder goes, relative to the install prefix")

install(DIRECTORY ${CARTELLA_PROGRAMMA}/ DESTINATION ${COPPIE_CARTELLA_INSTALLATA} USE_SOURCE_PERMISSIONS)
# The command on the PATH is a link: the game finds its folder through the real executable.
file(RELATIVE_PATH verso_programma "/${CMAKE_INSTALL_BINDIR}" "/${COPPIE_CARTELLA_INSTALLATA}/coppie-vivaci")
install(CODE "
  file(MAKE_DIRECTORY \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
  file(CREATE_LINK \"${verso_programma}\" \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/coppie-vivaci\" SYMBOLIC)
")
install(FILES ${CMAKE_SOURCE_DIR}/packaging/it.coppievivaci.CoppieVivaci.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${CMAKE_SOURCE_DIR}/app/risorse/coppie-vivaci.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES ${CMAKE_SOURCE_DIR}/packaging/it.coppievivaci.CoppieVivaci.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

set(CPACK_PACKAGE_NAME coppie-vivaci)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "Coppie vivaci")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "game of pairs for young children and switch users")
set(CPACK_PACKAGE_DESCRIPTION "Coppie vivaci is a game of pairs (memory) for young children and for people with motor disabilities. Tiles show films, animated pictures or words, each with its own sound; one to three players; played with the mouse, the keyboard or one or two switches (scanning). Teachers and parents make their own sets of pairs.")
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Coppie vivaci developers <sviluppo@coppievivaci.invalid>")
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://coppievivaci.invalid")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_STRIP_FILES TRUE)
# What the libraries alone don't say: the image and sound plugins, and the fonts the game asks for.
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "qt6-image-formats-plugins, qt6-qpa-plugins, libqt6svg6, gstreamer1.0-plugins-base, gstreamer1.0-plugins-good, fonts-liberation, fonts-comic-neue")
include(CPack)
