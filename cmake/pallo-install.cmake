# SPDX-FileCopyrightText: 2026 pallo-board developers
# SPDX-License-Identifier: MIT

# What `cmake --install` puts where, and the Debian package CPack makes of it.
include(GNUInstallDirs)

# The library is private to the two programs: no headers, no other users, no promise
# that one build's library fits another's program. So it goes into a folder of its own,
# without the development link, and its soname carries the whole version, so a program
# never loads a library from another release. The board finds it through a RUNPATH
# relative to itself, which keeps the installed tree movable.
set(PALLO_INSTALL_PRIVATE_LIBDIR ${CMAKE_INSTALL_LIBDIR}/pallo-board)
set_target_properties(pallo PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION})
file(RELATIVE_PATH pallo_bin_to_lib
    ${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}
    ${CMAKE_INSTALL_PREFIX}/${PALLO_INSTALL_PRIVATE_LIBDIR})
set_target_properties(pallo-board PROPERTIES INSTALL_RPATH "$ORIGIN/${pallo_bin_to_lib}")

# pallo-host finds the board beside itself, so both go to the same folder.
install(TARGETS pallo-board pallo-host RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS pallo LIBRARY DESTINATION ${PALLO_INSTALL_PRIVATE_LIBDIR} NAMELINK_SKIP)

set(pallo_app_id org.pallo.Board)
set(pallo_desktop_dir ${PROJECT_SOURCE_DIR}/resources/desktop)
configure_file(${pallo_desktop_dir}/${pallo_app_id}.metainfo.xml
    ${CMAKE_BINARY_DIR}/desktop/${pallo_app_id}.metainfo.xml @ONLY)
install(FILES ${pallo_desktop_dir}/${pallo_app_id}.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${pallo_desktop_dir}/${pallo_app_id}.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES ${CMAKE_BINARY_DIR}/desktop/${pallo_app_id}.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})

# Man pages are installed compressed, as man and Debian expect them.
set(pallo_man_pages "")
foreach(page IN ITEMS pallo-board.1 pallo-host.1)
    set(page_file ${CMAKE_BINARY_DIR}/man/${page})
    configure_file(${PROJECT_SOURCE_DIR}/resources/man/${page} ${page_file} @ONLY)
    add_custom_command(OUTPUT ${page_file}.gz
        COMMAND gzip -9 -n -k -f ${page_file}
        DEPENDS ${page_file}
        COMMENT "Compressing the man page ${page}"
        VERBATIM)
    list(APPEND pallo_man_pages ${page_file}.gz)
endforeach()
add_custom_target(pallo-man-pages ALL DEPENDS ${pallo_man_pages})
install(FILES ${pallo_man_pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME pallo-board)
set(CPACK_PACKAGE_VENDOR "pallo-board developers")
set(CPACK_PACKAGE_CONTACT "pallo-board developers <developers@pallo-board.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "transparent annotation board over the desktop")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# As Debian's own packages: the programs without their debug information.
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "transparent annotation board over the desktop\n\
A see-through drawing surface over the whole screen with a floating toolbar:\n\
pen, highlighter, shapes, text, selection, eraser, undo and redo, a magnifier,\n\
a timer and a screenshot tool. pallo-host starts the board and sends it\n\
commands over a local pipe.")
# The Depends line comes from the libraries the programs link (dpkg-shlibdeps).
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR})
# Chinese text needs a CJK font; see-through windows need a compositor.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "fonts-noto-cjk, picom | xcompmgr")
include(CPack)
