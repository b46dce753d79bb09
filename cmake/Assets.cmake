# Read-only assets: found beside the executable in a build folder, under the data folder when installed.
set(VARNHOLT_ASSETS_LINK "${CMAKE_BINARY_DIR}/bin/assets")
file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
file(CREATE_LINK "${CMAKE_SOURCE_DIR}/assets" "${VARNHOLT_ASSETS_LINK}" SYMBOLIC)

install(TARGETS varnholt RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(DIRECTORY assets/ DESTINATION "${CMAKE_INSTALL_DATADIR}/varnholt/assets" USE_SOURCE_PERMISSIONS
  PATTERN "desktop" EXCLUDE
  PATTERN "make-*" EXCLUDE)

# What the desktop itself reads: the menu entry, its icon, and the description for software centres.
install(FILES assets/icons/varnholt.svg DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps")
install(FILES assets/desktop/varnholt.desktop DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
install(FILES assets/desktop/varnholt.metainfo.xml DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")
