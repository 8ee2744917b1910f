// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/popup-clicker.h"

#include "tests/e2e/xdotool.h"

#include <QApplication>
#include <QTimerEvent>
#include <QWidget>

PopupClicker::PopupClicker(const QString& entryName)
    : m_entryName(entryName), m_timerId(startTimer(50))
{
}

void PopupClicker::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_timerId)
        return;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible())
            continue;
        auto* entry = window->findChild<QWidget*>(m_entryName);
        if (entry == nullptr || !entry->isVisible())
            continue;
        killTimer(m_timerId);
        m_timerId = 0;
        m_clicked = xdotool::click(entry->mapToGlobal(entry->rect().center()));
        return;
    }
}
