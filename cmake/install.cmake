# Where `cmake --install` puts what a desktop needs. Two parts are left to the packages, which ask for them by name:
# `debian` (what Debian wants beside the program) and `archive` (the page on top of the archive).
include(GNUInstallDirs)
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME program)

set(data_folder ${CMAKE_INSTALL_DATADIR}/torvale)
file(RELATIVE_PATH data_from_programs ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_DATADIR}/torvale)
if(NOT data_from_programs STREQUAL "../share/torvale")
  message(FATAL_ERROR "The program looks for its data in ../share/torvale, not in ${data_from_programs}")
endif()

list(TRANSFORM front_ends PREPEND torvale_ OUTPUT_VARIABLE programs)
install(TARGETS ${programs} DESTINATION ${CMAKE_INSTALL_BINDIR})
if(TORVALE_WINDOW)
  install(TARGETS torvale DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

# The samples that Open reads lie with the data, those that torvale_script replays with the pages.
install(FILES ${data_files} DESTINATION ${data_folder})
install(FILES ${help_pictures} DESTINATION ${data_folder}/help)
install(FILES ${sample_designs} DESTINATION ${data_folder}/samples)
install(FILES ${sample_scripts} DESTINATION ${CMAKE_INSTALL_DOCDIR}/samples)

install(FILES README.md NEWS.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} FILES_MATCHING PATTERN *.md PATTERN *.svg PATTERN *.png)
install(PROGRAMS docs/many_fields/local_shards.sh docs/many_fields/slurm_array.sh
  DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs/many_fields)
install(FILES packaging/torvale.1 packaging/torvale_script.1 packaging/torvale_batch.1
  DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

install(FILES packaging/torvale.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/org.torvale.torvale.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES packaging/torvale.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES data/icons/torvale.svg DESTINATION ${icons}/scalable/apps)
foreach(size 16 22 24 32 48 64 128 256)
  install(FILES data/icons/png/${size}.png DESTINATION ${icons}/${size}x${size}/apps RENAME torvale.png)
endforeach()

# Debian keeps the text of this licence for all its packages; elsewhere it comes along.
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT licence)
install(FILES packaging/debian/changelog packaging/debian/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR}
  COMPONENT debian EXCLUDE_FROM_ALL)
install(FILES packaging/archive_readme.txt DESTINATION . RENAME README COMPONENT archive EXCLUDE_FROM_ALL)
