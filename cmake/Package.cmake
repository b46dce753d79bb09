# A Debian package: cmake --build --preset package. What is linked finds its packages by itself, for every program and
# library that has an install rule; listed here is what is only asked for at run time.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME varnholt)
set(CPACK_PACKAGE_VENDOR "The Varnholt authors")
set(CPACK_PACKAGE_CONTACT "Varnholt developers <varnholt@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "two-panel file manager and disk tool")
set(CPACK_PACKAGE_DESCRIPTION "Varnholt shows two folders side by side and works from the one to the
other: it copies, moves, renames, zips, compares and synchronises, with a
question before anything is overwritten.
.
It has drive letters and DOS attributes, a basket that gathers files
across folders, a Virtual DeskTop of pointers kept as projects, favorites,
bookmarks and notes, searches, a clean-up, a picture view, and charts of
what takes the space of a disk.")
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_LIST_DIR}/PackagePermissions.cmake")

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
  "libheif1, libmount1, qt6-image-formats-plugins, shared-mime-info, xdg-utils, fonts-dejavu-core | fonts-liberation | fonts-noto-core")
# A session of Wayland, and the tools behind the commands for terminal, address and network.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
  "qt6-wayland, hicolor-icon-theme, xterm | x-terminal-emulator, iputils-ping, iproute2, desktop-file-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "network-manager, sqlitebrowser | sqlite3")

include(CPack)
