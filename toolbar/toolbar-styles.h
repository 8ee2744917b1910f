// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// Stylesheets that the toolbar puts on its buttons at run time, when the pen kind,
// the select mode, the zoom tool, the pen width or the folded state change. A null
// string means "leave the button's look as it is".
namespace toolbar_styles {

QString penStyle(const QString& penKind);
QString chooseStyle(const QString& mode);
QString zoomStyle(int toolType);
QString sizeStyle(int width);
// The folder button's look for a figure id of the tool group (0: unfolded).
QString folderStyle(int figureId, bool horizontal, const QString& penKind,
                    const QString& chooseMode);

// The tooltip key of the pen button for a pen kind, empty for an unknown kind.
const char* penTooltipKey(const QString& penKind);

} // namespace toolbar_styles
