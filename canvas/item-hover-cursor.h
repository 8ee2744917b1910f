// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

// The move cursor that drawn items show while hovered. It is an application override
// cursor, so every item that installs one restores it exactly once.
class ItemHoverCursor
{
public:
    // Installs the cursor unless it is already shown or the eraser is active.
    void enter();
    void leave();
    bool shown() const { return m_shown; }

private:
    bool m_shown = false;
};
