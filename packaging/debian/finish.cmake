# What Debian's policy wants of the files before they go into the package: manuals and changes are compressed.
set(share ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share)
file(GLOB pages ${share}/man/man1/*.1)
foreach(file ${pages} ${share}/doc/torvale/changelog)
  execute_process(COMMAND gzip -9n ${file} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
