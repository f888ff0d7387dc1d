# Packages by CPack: scripts/make_packages.sh makes them.
set(CPACK_GENERATOR DEB TGZ)
set(CPACK_PACKAGE_NAME torvale)
set(CPACK_PACKAGE_VENDOR "TORVALE developers")
set(CPACK_PACKAGE_CONTACT "TORVALE developers <developers@torvale.invalid>")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)
# A package holds the programs and none of the tests; make_packages.sh has built them.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS qt6-wayland)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "furrow irrigation supply line design")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"TORVALE designs the line of layflat tubing or gated pipe that waters the
furrows of a field. From a survey of the crown, the furrow lengths, the pipe
and the flow of the water source it works out head and furrow flow at every
hole and from them the distribution uniformity.

It chooses hole sizes, or designs the slope that the line is laid on, so that
all furrows get their share of the water, and prints what the crew needs to
punch the holes.")

# What is read again for each kind of package.
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_SOURCE_DIR}/packaging/packages.cmake)
string(TOLOWER ${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR} system)
set(CPACK_TORVALE_ARCHIVE torvale-${PROJECT_VERSION}-${system})
include(CPack)
