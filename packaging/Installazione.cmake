# Installing the game: the program folder whole under one folder of the
# prefix, a command in games/ (on Debian /usr/games), a launcher in the desktop menus with the game's
# icon, AppStream metadata; and a Debian package made by CPack.
include(GNUInstallDirs)

if(WIN32)
  # The program folder is the install folder itself (e.g. C:/Program Files/Coppie vivaci).
  set(cartella_installata_predefinita ".")
else()
  set(cartella_installata_predefinita "${CMAKE_INSTALL_LIBDIR}/coppie-vivaci")
endif()
set(COPPIE_CARTELLA_INSTALLATA "${cartella_installata_predefinita}" CACHE STRING
    "Where the program folder goes, relative to the install prefix")

# The executable goes as a target, so that an install with --strip (and a
# package) strips it; the rest of the program folder goes as it is.
install(DIRECTORY ${CARTELLA_PROGRAMMA}/ DESTINATION ${COPPIE_CARTELLA_INSTALLATA} USE_SOURCE_PERMISSIONS
        PATTERN coppie-vivaci EXCLUDE PATTERN coppie-vivaci.exe EXCLUDE)

if(WIN32)
  # Qt's libraries and plugins beside the executable, by Qt's own tool, then
  # the other libraries the executable loads (libsndfile, mpg123, ...), found
  # along the PATH of the build.
  install(TARGETS coppie-vivaci RUNTIME DESTINATION ${COPPIE_CARTELLA_INSTALLATA}
          RUNTIME_DEPENDENCIES PRE_EXCLUDE_REGEXES "^api-ms-" "^ext-ms-" "^[Qq]t6"
          POST_EXCLUDE_REGEXES "[Ss]ystem32" DIRECTORIES $ENV{PATH})
  get_target_property(qmake_eseguibile Qt6::qmake IMPORTED_LOCATION)
  get_filename_component(cartella_qt_bin "${qmake_eseguibile}" DIRECTORY)
  find_program(WINDEPLOYQT windeployqt HINTS "${cartella_qt_bin}" REQUIRED)
  install(CODE "
    set(programma \"\${CMAKE_INSTALL_PREFIX}/${COPPIE_CARTELLA_INSTALLATA}\")
    execute_process(COMMAND \"${WINDEPLOYQT}\" --release --no-translations --no-compiler-runtime
                            --dir \"\${programma}\" \"\${programma}/coppie-vivaci.exe\" COMMAND_ERROR_IS_FATAL ANY)
  ")
  include(InstallRequiredSystemLibraries) # the compiler's run-time
  set(CPACK_PACKAGE_NAME coppie-vivaci)
  set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
  set(CPACK_PACKAGE_VENDOR "The Coppie vivaci team")
  set(CPACK_PACKAGE_INSTALL_DIRECTORY "Coppie vivaci")
  set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Memory game of pairs for young children, also played by switch")
  set(CPACK_GENERATOR ZIP NSIS)
  set(CPACK_NSIS_DISPLAY_NAME "Coppie vivaci")
  set(CPACK_NSIS_PACKAGE_NAME "Coppie vivaci")
  set(CPACK_NSIS_EXECUTABLES_DIRECTORY ".")
  set(CPACK_PACKAGE_EXECUTABLES coppie-vivaci "Coppie vivaci")
  set(CPACK_NSIS_INSTALLED_ICON_NAME coppie-vivaci.exe)
  include(CPack)
  return()
endif()

install(TARGETS coppie-vivaci RUNTIME DESTINATION ${COPPIE_CARTELLA_INSTALLATA})

# Debian keeps the commands of games apart from the others.
set(COPPIE_CARTELLA_COMANDO "games" CACHE STRING "Where the command goes, relative to the install prefix")
# The command on the PATH is a link: the game finds its folder through the real executable.
file(RELATIVE_PATH verso_programma "/${COPPIE_CARTELLA_COMANDO}" "/${COPPIE_CARTELLA_INSTALLATA}/coppie-vivaci")
install(CODE "
  file(MAKE_DIRECTORY \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${COPPIE_CARTELLA_COMANDO}\")
  file(CREATE_LINK \"${verso_programma}\" \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${COPPIE_CARTELLA_COMANDO}/coppie-vivaci\" SYMBOLIC)
")
install(FILES ${CMAKE_SOURCE_DIR}/packaging/it.coppievivaci.CoppieVivaci.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${CMAKE_SOURCE_DIR}/app/risorse/coppie-vivaci.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES ${CMAKE_SOURCE_DIR}/packaging/it.coppievivaci.CoppieVivaci.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

# The icon at the sizes desktops ask for, drawn from the SVG at build time.
set(COPPIE_LATI_ICONA 16 22 24 32 48 64 128 256)
add_executable(crea_icone ${CMAKE_SOURCE_DIR}/packaging/crea_icone.cpp)
target_link_libraries(crea_icone PRIVATE Qt6::Gui Qt6::Svg)
set_target_properties(crea_icone PROPERTIES AUTOMOC OFF)
set(CARTELLA_ICONE ${CMAKE_BINARY_DIR}/icone)
set(file_icone)
foreach(lato ${COPPIE_LATI_ICONA})
  list(APPEND file_icone ${CARTELLA_ICONE}/${lato}x${lato}/apps/coppie-vivaci.png)
endforeach()
add_custom_command(OUTPUT ${file_icone}
  COMMAND crea_icone ${CMAKE_SOURCE_DIR}/app/risorse/coppie-vivaci.svg ${CARTELLA_ICONE} ${COPPIE_LATI_ICONA}
  DEPENDS crea_icone ${CMAKE_SOURCE_DIR}/app/risorse/coppie-vivaci.svg VERBATIM)
add_custom_target(icone ALL DEPENDS ${file_icone})
install(DIRECTORY ${CARTELLA_ICONE}/ DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor)

if(UNIX AND NOT APPLE)
  # The manual page and what Debian asks of every package's documents: the
  # terms and licences, and the history of the package.
  find_program(GZIP_ESEGUIBILE gzip REQUIRED)
  set(CARTELLA_DEBIAN ${CMAKE_BINARY_DIR}/debian)
  add_custom_command(OUTPUT ${CARTELLA_DEBIAN}/coppie-vivaci.6.gz
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CARTELLA_DEBIAN}
    COMMAND sh -c "${GZIP_ESEGUIBILE} -9nc \"$0\" > \"$1\"" ${CMAKE_SOURCE_DIR}/packaging/coppie-vivaci.6
            ${CARTELLA_DEBIAN}/coppie-vivaci.6.gz
    DEPENDS ${CMAKE_SOURCE_DIR}/packaging/coppie-vivaci.6 VERBATIM)
  add_custom_command(OUTPUT ${CARTELLA_DEBIAN}/changelog.Debian.gz
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CARTELLA_DEBIAN}
    COMMAND sh -c "${GZIP_ESEGUIBILE} -9nc \"$0\" > \"$1\"" ${CMAKE_SOURCE_DIR}/packaging/debian/changelog
            ${CARTELLA_DEBIAN}/changelog.Debian.gz
    DEPENDS ${CMAKE_SOURCE_DIR}/packaging/debian/changelog VERBATIM)
  add_custom_target(documenti_debian ALL DEPENDS ${CARTELLA_DEBIAN}/coppie-vivaci.6.gz ${CARTELLA_DEBIAN}/changelog.Debian.gz)
  install(FILES ${CARTELLA_DEBIAN}/coppie-vivaci.6.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man6)
  install(FILES ${CARTELLA_DEBIAN}/changelog.Debian.gz DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/coppie-vivaci)
  install(FILES ${CMAKE_SOURCE_DIR}/packaging/debian/coppie-vivaci.lintian-overrides
          DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME coppie-vivaci)

  # The copyright file: the game's terms written here, followed by the full
  # texts of the free licences of the pictures (from the ready-made sets'
  # own licence file) and of the font (from the font's own copyright file).
  set(licenza_mit ${CMAKE_SOURCE_DIR}/contenuti/licenze/LICENZA-MIT-Fluent-Emoji.txt)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/packaging/debian/copyright.in
               ${licenza_mit} ${COPPIE_FONT_CORSIVO_LICENZA})
  function(paragrafo_licenza nome testo uscita)
    string(REPLACE "\r" "" testo "${testo}")
    string(STRIP "${testo}" testo)
    string(REGEX REPLACE "[ \t]+\n" "\n" testo "${testo}")
    string(REPLACE "\n" ";" righe "${testo}")
    set(r "\nLicense: ${nome}\n")
    foreach(riga IN LISTS righe)
      if(riga STREQUAL "")
        string(APPEND r " .\n")
      else()
        string(APPEND r " ${riga}\n")
      endif()
    endforeach()
    set(${uscita} "${r}" PARENT_SCOPE)
  endfunction()
  file(READ ${CMAKE_SOURCE_DIR}/packaging/debian/copyright.in copyright)
  file(READ ${licenza_mit} mit)
  paragrafo_licenza(MIT "${mit}" p)
  string(APPEND copyright "${p}")
  file(READ ${COPPIE_FONT_CORSIVO_LICENZA} ofl)
  string(FIND "${ofl}" "SIL OPEN FONT LICENSE" inizio)
  string(FIND "${ofl}" "OTHER DEALINGS IN THE FONT SOFTWARE." fine)
  if(inizio LESS 0 OR fine LESS inizio)
    message(FATAL_ERROR "${COPPIE_FONT_CORSIVO_LICENZA} does not hold the SIL Open Font License")
  endif()
  math(EXPR lunghezza "${fine} - ${inizio} + 36")
  string(SUBSTRING "${ofl}" ${inizio} ${lunghezza} ofl)
  paragrafo_licenza(OFL-1.1 "${ofl}" p)
  string(APPEND copyright "${p}")
  file(WRITE ${CMAKE_BINARY_DIR}/debian/copyright "${copyright}")
  install(FILES ${CMAKE_BINARY_DIR}/debian/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/coppie-vivaci)
endif()

set(CPACK_PACKAGE_NAME coppie-vivaci)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "The Coppie vivaci team")
set(CPACK_PACKAGE_CONTACT "Coppie vivaci developers <sviluppo@coppievivaci.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "memory game of pairs for young children, also played by switch")
# What a parent reads in the package manager before installing.
set(CPACK_PACKAGE_DESCRIPTION [=[Coppie vivaci is a game of pairs, also called memory, for young
children and for people who find a mouse hard to use. Turn two tiles: if
they match, they stay open. The tiles show little films, moving pictures
or words, and each tile says its word aloud. One to three players take turns.

A child can play with the mouse, with the arrow keys, or with one or two
switches: a frame walks over the tiles and a press picks the tile it is on.
The game comes with ready-made sets of animals, fruit, vehicles, toys,
colours and numbers, and parents and teachers can make their own sets from
photos, drawings and recorded voices. Texts in Italian, English, Spanish,
French and German. No network is used.

The game may be used freely at home and at school, but not for commercial
purposes.]=])
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Coppie vivaci developers <sviluppo@coppievivaci.invalid>")
# The game's terms forbid commercial use: that is not free in Debian's sense.
set(CPACK_DEBIAN_PACKAGE_SECTION non-free/games)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://coppievivaci.invalid")
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION TRUE)
# The executable goes into the package stripped; its debug symbols are dropped.
set(CPACK_STRIP_FILES TRUE)
# What the libraries alone don't say: the image and sound plugins, and the fonts the game asks for.
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "qt6-image-formats-plugins, qt6-qpa-plugins, libqt6svg6, gstreamer1.0-plugins-base, gstreamer1.0-plugins-good, libsdl2-2.0-0, fonts-liberation, fonts-comic-neue")
include(CPack)
