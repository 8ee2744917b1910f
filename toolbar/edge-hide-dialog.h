// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "toolbar/enter-event.h"

#include <QDialog>

class EdgeTab;

// The thin strip left at a screen edge while the toolbar hides there. Resting the
// mouse on it, or on the tab that hangs from it, for 200 ms asks for the toolbar back.
class EdgeHideDialog : public QDialog
{
    Q_OBJECT
public:
    explicit EdgeHideDialog(QWidget* parent = nullptr);

    // 1 top, 2 bottom, 3 left, 4 right, 0 none.
    void setSide(int side);
    int side() const { return m_side; }
    bool isHovering() const { return m_showTimerId != 0; }
    EdgeTab* tab() const { return m_tab; }

signals:
    void sig_showCtrlBar();

protected:
    void timerEvent(QTimerEvent* event) override;
    void enterEvent(EnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void startHover();
    void stopHover();
    void placeTab();

    EdgeTab* m_tab;
    int m_side = 0;
    int m_showTimerId = 0;
};
