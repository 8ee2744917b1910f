# SPDX-FileCopyrightText: 2026 pallo-board developers
# SPDX-License-Identifier: MIT

# Warnings in each compiler's own words, and the Windows version the Win32 code is
# written for.
if(MSVC)
    add_compile_options(/W4)
else()
    add_compile_options(-Wall -Wextra)
endif()
if(WIN32)
    # Windows 10: the pen's pointer messages and the pointer info calls need it.
    add_compile_definitions(_WIN32_WINNT=0x0A00 WINVER=0x0A00)
endif()
