# What a system gets that the player is installed on, at the places of GNUInstallDirs.

include(GNUInstallDirs)
find_package(Python3 REQUIRED COMPONENTS Interpreter)

set(files ${PROJECT_SOURCE_DIR}/packaging/debian)
set(made ${CMAKE_BINARY_DIR}/install)
set(version ${PROJECT_VERSION})
configure_file(${files}/orvan.1 ${made}/orvan.1 @ONLY)

# The desktop's icons are the icon's images.
set(icon ${PROJECT_SOURCE_DIR}/assets/orvan.ico)
set(drawing ${PROJECT_SOURCE_DIR}/assets/draw)
add_custom_command(OUTPUT ${made}/icons-made
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${made}/icons
    COMMAND Python3::Interpreter -B ${drawing}/icon_pictures.py ${icon} ${made}/icons
    COMMAND ${CMAKE_COMMAND} -E touch ${made}/icons-made
    DEPENDS ${icon} ${drawing}/icon_pictures.py ${drawing}/png.py VERBATIM)
add_custom_target(orvan_icons DEPENDS ${made}/icons-made)
add_dependencies(orvan orvan_icons)

install(TARGETS orvan)
install(FILES ${files}/orvan.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${files}/orvan.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo
    RENAME example.orvan.player.metainfo.xml)
install(FILES ${made}/orvan.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
foreach(side 16 32 48 128 256)
    install(FILES ${made}/icons/${side}x${side}.png RENAME orvan.png
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${side}x${side}/apps)
endforeach()
file(GLOB guide ${PROJECT_SOURCE_DIR}/docs/using*)
install(FILES ${guide} DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/orvan)
