// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "toolbar/edge-hide-dialog.h"

#include "common/window-layering.h"

#include <QPainter>
#include <QTimerEvent>

namespace {
constexpr int hoverDelayMs = 200;
}

EdgeHideDialog::EdgeHideDialog(QWidget* parent)
    : QDialog(parent, window_layering::overCanvasFlags())
{
}

void EdgeHideDialog::setSide(int side)
{
    m_side = side;
    update();
}

void EdgeHideDialog::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_showTimerId || m_showTimerId == 0)
        return;
    killTimer(m_showTimerId);
    m_showTimerId = 0;
    emit sig_showCtrlBar();
}

void EdgeHideDialog::enterEvent(EnterEvent*)
{
    if (m_showTimerId == 0)
        m_showTimerId = startTimer(hoverDelayMs, Qt::CoarseTimer);
}

void EdgeHideDialog::leaveEvent(QEvent*)
{
    if (m_showTimerId != 0) {
        killTimer(m_showTimerId);
        m_showTimerId = 0;
    }
}

void EdgeHideDialog::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.setPen(QPen(QColor("#009FFF"), 2));
    const int w = width();
    const int h = height();
    // Only the three sides away from the screen edge get the outline.
    switch (m_side) {
    case 1:
        painter.drawLine(0, h, w, h);
        painter.drawLine(0, 0, 0, h);
        painter.drawLine(w, 0, w, h);
        break;
    case 2:
        painter.drawLine(0, 0, w, 0);
        painter.drawLine(0, 0, 0, h);
        painter.drawLine(w, 0, w, h);
        break;
    case 3:
        painter.drawLine(0, 0, w, 0);
        painter.drawLine(0, h, w, h);
        painter.drawLine(w, 0, w, h);
        break;
    case 4:
        painter.drawLine(0, 0, w, 0);
        painter.drawLine(0, h, w, h);
        painter.drawLine(0, 0, 0, h);
        break;
    default:
        break;
    }
}
