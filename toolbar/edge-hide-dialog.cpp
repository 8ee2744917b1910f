// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "toolbar/edge-hide-dialog.h"

#include "common/scale-factor.h"
#include "common/window-layering.h"
#include "toolbar/edge-tab.h"
#include "toolbar/toolbar-geometry.h"

#include <QPainter>
#include <QTimerEvent>

namespace {
constexpr int hoverDelayMs = 200;
}

EdgeHideDialog::EdgeHideDialog(QWidget* parent)
    : QDialog(parent, window_layering::overCanvasFlags()), m_tab(new EdgeTab(this))
{
    connect(m_tab, &EdgeTab::entered, this, &EdgeHideDialog::startHover);
    connect(m_tab, &EdgeTab::left, this, &EdgeHideDialog::stopHover);
    connect(m_tab, &EdgeTab::clicked, this, [this] {
        stopHover();
        emit sig_showCtrlBar();
    });
}

void EdgeHideDialog::setSide(int side)
{
    m_side = side;
    m_tab->setSide(side);
    placeTab();
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
    startHover();
}

void EdgeHideDialog::leaveEvent(QEvent*)
{
    stopHover();
}

void EdgeHideDialog::startHover()
{
    if (m_showTimerId == 0)
        m_showTimerId = startTimer(hoverDelayMs, Qt::CoarseTimer);
}

void EdgeHideDialog::stopHover()
{
    if (m_showTimerId != 0) {
        killTimer(m_showTimerId);
        m_showTimerId = 0;
    }
}

void EdgeHideDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    placeTab();
}

void EdgeHideDialog::hideEvent(QHideEvent* event)
{
    m_tab->hide();
    QDialog::hideEvent(event);
}

void EdgeHideDialog::moveEvent(QMoveEvent* event)
{
    QDialog::moveEvent(event);
    placeTab();
}

void EdgeHideDialog::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    placeTab();
}

// The tab follows the strip: shown with it, on its side, from its middle.
void EdgeHideDialog::placeTab()
{
    const QRect r = toolbar_geometry::tabRect(geometry(), m_side, screenScaleFactor());
    if (!isVisible() || r.isEmpty()) {
        m_tab->hide();
        return;
    }
    m_tab->setGeometry(r);
    m_tab->show();
    m_tab->raise();
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
