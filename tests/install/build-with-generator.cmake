# SPDX-FileCopyrightText: 2026 pallo-board developers
# SPDX-License-Identifier: MIT

# cmake -DSOURCE=<tree> -DBINARY=<folder> -DGENERATOR=<name> -DTARGETS=<a;b> [-DLAUNCHER=<ccache>]
#       [-DQT_MAJOR=<5|6>]
#       -P build-with-generator.cmake
# Configures the tree afresh with the given CMake generator and builds the targets, so
# that rules only one generator happens to satisfy (such as output folders Ninja makes
# by itself) are caught.
file(REMOVE_RECURSE ${BINARY})
set(configure ${CMAKE_COMMAND} -S ${SOURCE} -B ${BINARY} -G ${GENERATOR}
    -DPALLO_BUILD_TESTS=OFF -DPALLO_BUILD_BENCH=OFF)
if(LAUNCHER)
    list(APPEND configure -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER})
endif()
if(QT_MAJOR)
    list(APPEND configure -DPALLO_QT_MAJOR=${QT_MAJOR})
endif()
execute_process(COMMAND ${configure} RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "configuring with ${GENERATOR} failed")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --build ${BINARY} --target ${TARGETS}
    RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "building ${TARGETS} with ${GENERATOR} failed")
endif()
file(REMOVE_RECURSE ${BINARY})
