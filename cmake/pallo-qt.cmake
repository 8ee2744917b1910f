# SPDX-FileCopyrightText: 2026 pallo-board developers
# SPDX-License-Identifier: MIT

# pallo_find_qt(<components...>)
# Finds Qt 5 or Qt 6 with the given components, so the build names only the versionless
# Qt:: targets. PALLO_QT_MAJOR chooses the major version; left empty, Qt 5 is taken when
# it is there, else Qt 6. Qt 5 also brings X11 Extras on X11, where Qt 6 has the
# display connection in Qt::Gui.
set(PALLO_QT_MAJOR "" CACHE STRING "Qt major version to build with: 5 or 6 (empty: Qt 5 if found, else Qt 6)")

macro(pallo_find_qt)
    if(NOT PALLO_QT_MAJOR)
        find_package(Qt5 5.15 QUIET COMPONENTS Core)
        if(Qt5_FOUND)
            set(PALLO_QT_MAJOR 5)
        else()
            set(PALLO_QT_MAJOR 6)
        endif()
    endif()
    if(PALLO_QT_MAJOR STREQUAL "5")
        set(pallo_qt_components ${ARGN})
        if(UNIX AND NOT APPLE)
            list(APPEND pallo_qt_components X11Extras)
        endif()
        find_package(Qt5 5.15 REQUIRED COMPONENTS ${pallo_qt_components})
    elseif(PALLO_QT_MAJOR STREQUAL "6")
        find_package(Qt6 6.2 REQUIRED COMPONENTS ${ARGN})
    else()
        message(FATAL_ERROR "PALLO_QT_MAJOR must be 5 or 6, not '${PALLO_QT_MAJOR}'")
    endif()
    message(STATUS "Building with Qt ${PALLO_QT_MAJOR}")
endmacro()
