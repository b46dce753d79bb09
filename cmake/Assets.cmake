# Read-only assets: found beside the executable in a build folder, under the data folder when installed.
set(VARNHOLT_ASSETS_LINK "${CMAKE_BINARY_DIR}/bin/assets")
file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
file(CREATE_LINK "${CMAKE_SOURCE_DIR}/assets" "${VARNHOLT_ASSETS_LINK}" SYMBOLIC)

install(TARGETS varnholt RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(DIRECTORY assets/ DESTINATION "${CMAKE_INSTALL_DATADIR}/varnholt/assets"
  REGEX "/assets/(desktop|icons|windows|make-[^/]*)$" EXCLUDE)
install(DIRECTORY assets/windows DESTINATION "${CMAKE_INSTALL_DATADIR}/varnholt/assets"
  FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# What the desktop itself reads: the menu entry, its icon, and the description for software centres.
install(FILES assets/icons/varnholt.svg DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps")
install(FILES assets/desktop/varnholt.desktop DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
install(FILES assets/desktop/varnholt.metainfo.xml DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")

# Manual page, terms, and what is new: with the version filled in, and packed as Debian wants it.
string(TIMESTAMP VARNHOLT_DATE "%Y-%m-%d" UTC)
string(TIMESTAMP VARNHOLT_CHANGED "%a, %d %b %Y %H:%M:%S +0000" UTC)
function(varnholt_packed_document name destination)
  configure_file("assets/desktop/${name}" "${CMAKE_BINARY_DIR}/documents/${name}" @ONLY)
  execute_process(COMMAND gzip -9 --no-name --force --keep "${CMAKE_BINARY_DIR}/documents/${name}" COMMAND_ERROR_IS_FATAL ANY)
  install(FILES "${CMAKE_BINARY_DIR}/documents/${name}.gz" DESTINATION "${destination}")
endfunction()
varnholt_packed_document(varnholt.1 "${CMAKE_INSTALL_MANDIR}/man1")
varnholt_packed_document(changelog "${CMAKE_INSTALL_DATADIR}/doc/varnholt")
install(FILES assets/desktop/copyright docs/files.md DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/varnholt")
