// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "toolbar/toolbar-styles.h"

#include <QStringList>

namespace toolbar_styles {

namespace {

// selector{[color:transparent;]border-image:normal} plus :hover, :pressed and, when
// asked, :checked rules with the second image.
QString buttonStyle(const QString& selector, const QString& normal, const QString& active,
                    bool withChecked, bool transparentText = true)
{
    const QString colour = transparentText ? QStringLiteral("color:transparent;") : QString();
    QString css = QStringLiteral("%1{%2border-image:url(%3);}").arg(selector, colour, normal);
    QStringList states = {QStringLiteral(":hover"), QStringLiteral(":pressed")};
    if (withChecked)
        states << QStringLiteral(":checked");
    for (const QString& state : states)
        css += QStringLiteral("%1%2{%3border-image:url(%4);}").arg(selector, state, colour, active);
    return css;
}

} // namespace

QString penStyle(const QString& penKind)
{
    const QString sel = QStringLiteral("QToolButton#toolButton_pen");
    if (penKind == QLatin1String("brush"))
        return buttonStyle(sel, ":/images/pen.png", ":/images/pen_hover.png", true);
    if (penKind == QLatin1String("highlighter"))
        return buttonStyle(sel, ":/images/pen_highlighter.png",
                           ":/images/pen_highlighter_hover.png", true);
    if (penKind == QLatin1String("delayerase"))
        return buttonStyle(sel, ":/images/pen_delay_erase.png",
                           ":/images/pen_delay_erase_selected.png", true);
    return QString();
}

const char* penTooltipKey(const QString& penKind)
{
    if (penKind == QLatin1String("brush"))
        return "CtrlForm.Btn.Pen";
    // The delayed-erase pen shares the mark pen's tooltip on purpose.
    if (penKind == QLatin1String("highlighter") || penKind == QLatin1String("delayerase"))
        return "CtrlForm.Btn.MarkPen";
    return "";
}

QString chooseStyle(const QString& mode)
{
    const QString sel = QStringLiteral("QToolButton#toolButton_choose");
    if (mode == QLatin1String("choose"))
        return buttonStyle(sel, ":/images/choose_menu.png", ":/images/choose_hover_menu.png", true);
    return buttonStyle(sel, ":/images/drag_menu.png", ":/images/drag_hover_menu.png", true);
}

QString zoomStyle(int toolType)
{
    const QString sel = QStringLiteral("QToolButton#toolButton_zoom");
    switch (toolType) {
    case 1:
        return buttonStyle(sel, ":/images/tool_fangdajing_default_d.png",
                           ":/images/tool_fangdajing_press_p.png", false);
    case 2:
        return buttonStyle(sel, ":/images/tool_time_default_d.png",
                           ":/images/tool_time_press_p.png", false);
    case 3:
        return buttonStyle(sel, ":/images/tool_jieping_default_d.png",
                           ":/images/tool_jieping_press_p.png", false);
    default:
        return QString();
    }
}

QString sizeStyle(int width)
{
    const QString sel = QStringLiteral("QToolButton");
    const QString press = QStringLiteral(":/images/tool_cuxi_press.png");
    switch (width) {
    case 1:
        return buttonStyle(sel, ":/images/tool_cuxi_mini.png", press, false);
    case 3:
        return buttonStyle(sel, ":/images/tool_cuxi_mid.png", press, false);
    case 6:
        return buttonStyle(sel, ":/images/tool_cuxi_big.png", press, false);
    default:
        return QString();
    }
}

QString folderStyle(int figureId, bool horizontal, const QString& penKind,
                    const QString& chooseMode)
{
    const QString sel = QStringLiteral("QToolButton#toolButton_folder");
    auto tool = [&sel](const char* normal, const char* active) {
        return buttonStyle(sel, normal, active, false, false);
    };
    switch (figureId) {
    case 0:
        return horizontal ? buttonStyle(sel, ":/images/tool_folder.png",
                                        ":/images/tool_folder_hover.png", false)
                          : buttonStyle(sel, ":/images/tool_folder_up.png",
                                        ":/images/tool_folder_up_hover.png", false);
    case 1:
        if (penKind == QLatin1String("highlighter"))
            return tool(":/images/pen_highlighter_menu.png",
                        ":/images/pen_highlighter_menu_hover.png");
        if (penKind == QLatin1String("delayerase"))
            return tool(":/images/pen_delay_erase.png", ":/images/pen_delay_erase_selected.png");
        if (penKind == QLatin1String("brush"))
            return tool(":/images/pen_menu.png", ":/images/pen_menu_hover.png");
        return QString();
    case 2:
        return tool(":/images/rect.png", ":/images/rect_hover.png");
    case 3:
        return tool(":/images/line.png", ":/images/line_hover.png");
    case 4:
        return tool(":/images/ellipse.png", ":/images/ellipse_hover.png");
    case 5:
        // The folded text button rests on the highlighted picture, on purpose.
        return tool(":/images/text_folder_hover.png", ":/images/text_folder.png");
    case 6:
        if (chooseMode == QLatin1String("drag"))
            return tool(":/images/tool_drag.png", ":/images/tool_drag_hover.png");
        if (chooseMode == QLatin1String("choose"))
            return tool(":/images/choose.png", ":/images/choose_hover.png");
        return QString();
    case 7:
        return tool(":/images/tool_arrow_default.png", ":/images/tool_arrow_hover.png");
    case 8:
        return tool(":/images/tool_erase_default.png", ":/images/tool_erase_hover.png");
    default:
        return QString();
    }
}

} // namespace toolbar_styles
